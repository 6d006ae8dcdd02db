#include <cstddef>
#include <cstdint>
#include <string_view>

#include "plist/BinaryReader.hpp"
#include "plist/DecodingError.hpp"
#include "plist/fuzz/RoundTrip.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vornix::plist;
    try {
        fuzz::checkRoundTrip(readBinary(std::string_view(reinterpret_cast<const char*>(data), size)));
    } catch (const DecodingError&) {
    }
    return 0;
}
