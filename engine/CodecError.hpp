#pragma once

#include <stdexcept>
#include <string>

namespace vornix::engine {

// Bytes that are not a message, call or envelope of the standard codecs (truncated data, an
// unknown type byte, a size past the end, trailing bytes, nesting too deep, text that is not
// UTF-8), or a value too large for the format. The text says what and where.
class CodecError : public std::runtime_error {
public:
    explicit CodecError(const std::string& what) : std::runtime_error(what) {}
};

}  // namespace vornix::engine
