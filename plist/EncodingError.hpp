#pragma once

#include <stdexcept>
#include <string>

#include "plist/DecodingError.hpp"

namespace vornix::plist {

// A value that cannot be written: a null record where one is required, an enumeration value
// that is none of its cases, a string the XML format cannot carry (a control character,
// bytes that are not UTF-8), a date outside the years 0000 to 9999. what() reads
// "invalidValue at <path>: <description>".
class EncodingError final : public std::runtime_error {
public:
    EncodingError(CodingPath codingPath, std::string description);

    const CodingPath& codingPath() const { return codingPath_; }
    std::string pathText() const { return codingPathText(codingPath_); }
    const std::string& description() const { return description_; }

private:
    CodingPath codingPath_;
    std::string description_;
};

}  // namespace vornix::plist
