// Any bytes, read as an XML property list; see RoundTrip.hpp for what must hold.
//
// Not reached by design: in plist/XmlReader.cpp, the refusal of a document over 2 GiB and the
// failures to make or reset an expat parser (out of memory); in plist/Base64.cpp, the decoding
// table, which is built at compile time; in plist/DateText.cpp and plist/NumberText.cpp, the
// exact date text with a fraction of a second and the shortest real text, which only the typed
// JSON form writes and reads (fuzz_plist_typed_json reaches them).
#include "plist/XmlReader.hpp"
#include "plist/fuzz/RoundTrip.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vornix::plist::fuzz::readAndRoundTrip(vornix::plist::readXml, data, size);
    return 0;
}
