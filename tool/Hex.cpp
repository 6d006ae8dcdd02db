#include "tool/Hex.hpp"

#include <cctype>
#include <stdexcept>

namespace vornix::tool {
namespace {

int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string toHex(std::span<const std::uint8_t> bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

std::vector<std::uint8_t> fromHex(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    int high = -1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (std::isspace(static_cast<unsigned char>(text[i]))) {
            continue;
        }
        const int digit = digitValue(text[i]);
        if (digit < 0) {
            throw std::invalid_argument("not a hex digit: '" + std::string(1, text[i]) + "' at position " + std::to_string(i));
        }
        if (high < 0) {
            high = digit;
        } else {
            bytes.push_back(static_cast<std::uint8_t>(high << 4 | digit));
            high = -1;
        }
    }
    if (high >= 0) {
        throw std::invalid_argument("an odd number of hex digits");
    }
    return bytes;
}

}  // namespace vornix::tool
