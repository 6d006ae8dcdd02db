#include <string_view>

#include "plist/BinaryReader.hpp"
#include "plist/fuzz/RoundTrip.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Expansion through shared objects is refused at 64 KiB here instead of 64 MiB: the same
    // paths, without spending seconds on each input that expands to the limit.
    const auto read = [](std::string_view bytes) {
        return vornix::plist::readBinary(bytes, vornix::plist::BinaryLimits{.fixedBudget = 64 << 10});
    };
    vornix::plist::fuzz::readAndRoundTrip(read, data, size);
    return 0;
}
