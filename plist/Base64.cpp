#include "plist/Base64.hpp"

#include <array>

namespace vornix::plist {
namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint8_t invalid = 0xFF;
constexpr std::uint8_t space = 0xFE;
constexpr std::uint8_t padding = 0xFD;

constexpr std::array<std::uint8_t, 256> decodingTable() {
    std::array<std::uint8_t, 256> table{};
    table.fill(invalid);
    for (std::size_t index = 0; index < alphabet.size(); ++index) {
        table[static_cast<unsigned char>(alphabet[index])] = static_cast<std::uint8_t>(index);
    }
    for (char blank : {' ', '\t', '\n', '\r'}) {
        table[static_cast<unsigned char>(blank)] = space;
    }
    table['='] = padding;
    return table;
}

constexpr std::array<std::uint8_t, 256> sextets = decodingTable();

}  // namespace

std::string base64Encode(const Data& bytes) { return base64Encode(bytes.data(), bytes.size()); }

std::string base64Encode(const std::uint8_t* bytes, std::size_t size) {
    std::string text;
    text.reserve((size + 2) / 3 * 4);
    std::size_t index = 0;
    for (; index + 3 <= size; index += 3) {
        const std::uint32_t group = (std::uint32_t{bytes[index]} << 16) | (std::uint32_t{bytes[index + 1]} << 8) |
                                    bytes[index + 2];
        text += alphabet[(group >> 18) & 63];
        text += alphabet[(group >> 12) & 63];
        text += alphabet[(group >> 6) & 63];
        text += alphabet[group & 63];
    }
    const std::size_t rest = size - index;
    if (rest > 0) {
        std::uint32_t group = std::uint32_t{bytes[index]} << 16;
        if (rest == 2) {
            group |= std::uint32_t{bytes[index + 1]} << 8;
        }
        text += alphabet[(group >> 18) & 63];
        text += alphabet[(group >> 12) & 63];
        text += rest == 2 ? alphabet[(group >> 6) & 63] : '=';
        text += '=';
    }
    return text;
}

std::optional<Data> base64Decode(std::string_view text) {
    Data bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    std::size_t sextetCount = 0;
    std::size_t paddingCount = 0;
    for (const char character : text) {
        const std::uint8_t sextet = sextets[static_cast<unsigned char>(character)];
        if (sextet == space) {
            continue;
        }
        if (sextet == invalid) {
            return std::nullopt;
        }
        if (sextet == padding) {
            ++paddingCount;
            continue;
        }
        if (paddingCount > 0) {
            return std::nullopt;  // text after the padding
        }
        group = (group << 6) | sextet;
        if (++sextetCount % 4 == 0) {
            bytes.push_back(static_cast<std::uint8_t>(group >> 16));
            bytes.push_back(static_cast<std::uint8_t>(group >> 8));
            bytes.push_back(static_cast<std::uint8_t>(group));
            group = 0;
        }
    }
    const std::size_t tail = sextetCount % 4;
    if (tail == 1 || paddingCount > 2 || (paddingCount > 0 && tail + paddingCount != 4)) {
        return std::nullopt;
    }
    if (tail == 2) {
        bytes.push_back(static_cast<std::uint8_t>(group >> 4));
    } else if (tail == 3) {
        bytes.push_back(static_cast<std::uint8_t>(group >> 10));
        bytes.push_back(static_cast<std::uint8_t>(group >> 2));
    }
    return bytes;
}

}  // namespace vornix::plist
