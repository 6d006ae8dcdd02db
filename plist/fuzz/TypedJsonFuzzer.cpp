// Any bytes, read as the typed JSON form of a property list: bad input fails with a
// DecodingError, and a value that was read writes to text that reads back and writes again to
// the same text (unless the writer refuses a date it has no exact text for).
//
// Not reached by design in plist/TypedJson.cpp: the `return {}` after the switch over every
// kind of value, which no value reaches.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/TypedJson.hpp"

namespace plist = vornix::plist;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    plist::Value value;
    try {
        value = plist::readTypedJson(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const plist::DecodingError&) {
        return 0;
    }
    std::string once;
    try {
        once = plist::writeTypedJson(value);
    } catch (const plist::EncodingError&) {
        return 0;
    }
    if (plist::writeTypedJson(plist::readTypedJson(once)) != once) {
        std::abort();
    }
    return 0;
}
