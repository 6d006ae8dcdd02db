#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vornix::plist::testing {

// Assembles a binary property list from its objects (their bytes, in reference order), with
// the given reference and offset sizes; the trailer's fields can be overridden to break it.
struct Document {
    Document() = default;
    explicit Document(std::vector<std::string> list) : objects(std::move(list)) {}

    std::vector<std::string> objects;
    std::uint8_t referenceSize = 1;
    std::uint8_t offsetSize = 1;
    std::uint64_t topObject = 0;
    std::optional<std::uint64_t> objectCount;
    std::optional<std::uint64_t> tableOffset;
    std::vector<std::uint64_t> offsetOverrides;

    std::string bytes() const {
        std::string out = "bplist00";
        std::vector<std::uint64_t> offsets;
        for (const std::string& object : objects) {
            offsets.push_back(out.size());
            out += object;
        }
        for (std::size_t index = 0; index < offsetOverrides.size(); ++index) {
            offsets[index] = offsetOverrides[index];
        }
        const std::uint64_t table = out.size();
        for (const std::uint64_t offset : offsets) {
            out += bigEndian(offset, offsetSize);
        }
        out += std::string(6, '\0');
        out += static_cast<char>(offsetSize);
        out += static_cast<char>(referenceSize);
        out += bigEndian(objectCount.value_or(objects.size()), 8);
        out += bigEndian(topObject, 8);
        out += bigEndian(tableOffset.value_or(table), 8);
        return out;
    }

    static std::string bigEndian(std::uint64_t value, std::size_t size) {
        std::string out(size, '\0');
        for (std::size_t index = 0; index < size; ++index) {
            out[size - 1 - index] = static_cast<char>(value >> (8 * index));
        }
        return out;
    }
};

inline std::string object(std::initializer_list<int> bytes) {
    std::string out;
    for (const int byte : bytes) {
        out += static_cast<char>(byte);
    }
    return out;
}

}  // namespace vornix::plist::testing
