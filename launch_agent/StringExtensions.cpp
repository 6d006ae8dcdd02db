#include "launch_agent/StringExtensions.hpp"

#include <string>

#include "base/FatalError.hpp"

namespace vornix::launch_agent {
namespace {

bool isContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// Byte length of the character starting at `start`: its lead byte and the continuation bytes after it.
std::size_t characterLength(std::string_view text, std::size_t start) {
    std::size_t end = start + 1;
    while (end < text.size() && isContinuationByte(text[end])) {
        ++end;
    }
    return end - start;
}

[[noreturn]] void offsetOutOfRange(std::string_view text, std::int64_t offset) {
    base::fatalError("character offset " + std::to_string(offset) + " is outside the text \"" + std::string(text) +
                     "\"");
}

}  // namespace

std::string_view characterAt(std::string_view text, std::int64_t offset) {
    if (offset < 0) {
        offsetOutOfRange(text, offset);
    }
    std::size_t start = 0;
    for (std::int64_t index = 0; start < text.size(); ++index) {
        const std::size_t length = characterLength(text, start);
        if (index == offset) {
            return text.substr(start, length);
        }
        start += length;
    }
    offsetOutOfRange(text, offset);
}

}  // namespace vornix::launch_agent
