#include <cstddef>
#include <cstdint>
#include <string_view>

#include "updates/AppcastParser.hpp"
#include "updates/UpdateSelection.hpp"

// Any bytes either read as an appcast within the bounds or fail with AppcastError; nothing else.
// Not reached by design in updates/AppcastParser.cpp: the refusal of a feed over maxBytes (the
// fuzzer's inputs stay far below it) and the failure to make an expat parser (out of memory).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto running = *vornix::updates::Version::parse("1.0.0");
    static const auto system = *vornix::updates::Version::parse("6.1");
    vornix::updates::AppcastLimits limits;
    limits.maxItems = 64;
    limits.maxFieldBytes = 256;
    try {
        const auto appcast = vornix::updates::parseAppcast(
            std::string_view(reinterpret_cast<const char*>(data), size), limits);
        if (appcast.items.size() > limits.maxItems) {
            __builtin_trap();
        }
        vornix::updates::selectUpdate(appcast, running, system);
    } catch (const vornix::updates::AppcastError&) {
    }
    return 0;
}
