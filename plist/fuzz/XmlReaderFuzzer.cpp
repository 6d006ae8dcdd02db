#include "plist/XmlReader.hpp"
#include "plist/fuzz/RoundTrip.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vornix::plist::fuzz::readAndRoundTrip(vornix::plist::readXml, data, size);
    return 0;
}
