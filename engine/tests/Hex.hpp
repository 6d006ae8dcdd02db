#pragma once

#include <cctype>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/Bytes.hpp"

namespace vornix::engine::testing {

// "03 05 00 00 00" -> {3, 5, 0, 0, 0}; spaces are for the reader.
inline Bytes hex(std::string_view text) {
    Bytes bytes;
    std::string digits;
    for (char c : text) {
        if (!std::isspace(static_cast<unsigned char>(c))) {
            digits += c;
        }
    }
    if (digits.size() % 2 != 0) {
        throw std::invalid_argument("odd number of hex digits");
    }
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

inline Bytes zeros(std::size_t count) { return Bytes(count, 0); }

inline Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace vornix::engine::testing
