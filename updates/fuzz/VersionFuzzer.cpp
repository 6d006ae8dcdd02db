#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "updates/Version.hpp"

// Splits the input at the first newline into two versions and checks that their order is
// consistent both ways and with equality.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto split = input.find('\n');
    if (split == std::string_view::npos) {
        return 0;
    }
    const auto left = vornix::updates::Version::parse(input.substr(0, split));
    const auto right = vornix::updates::Version::parse(input.substr(split + 1));
    if (!left || !right) {
        return 0;
    }
    const auto forward = *left <=> *right;
    const auto backward = *right <=> *left;
    if ((forward < 0) != (backward > 0) || (forward == 0) != (backward == 0) || (forward == 0) != (*left == *right) ||
        (*left <=> *left) != 0) {
        __builtin_trap();
    }
    return 0;
}
