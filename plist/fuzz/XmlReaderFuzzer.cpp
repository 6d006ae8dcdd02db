// Any bytes, read as an XML property list; see RoundTrip.hpp for what must hold.
//
// Not reached by design:
// - plist/XmlReader.cpp: the refusal of a document over 2 GiB; the failures to make or reset an
//   expat parser and the exceptions a handler catches, both only out of memory; the names of
//   <plist>, <array>, <dict> and unknown elements in "element <x> inside <y>", as only a leaf
//   element can wrongly hold one; the second fail() of one parse and "holds no property-list
//   value", guards against a handler running after a failure or a parse that succeeds with no
//   value.
// - plist/Base64.cpp: the decoding table, which is built at compile time, and the encoder taking
//   Data, which only the typed JSON form calls.
// - plist/DateText.cpp and plist/NumberText.cpp: the exact date text with a fraction of a second,
//   reading such a fraction, and the shortest real text, which only the typed JSON form writes and
//   reads (fuzz_plist_typed_json reaches them); a date out of the writable years, as every date
//   read from text is inside them; from_chars failing after the integer's digits were checked.

#include "plist/XmlReader.hpp"
#include "plist/fuzz/RoundTrip.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vornix::plist::fuzz::readAndRoundTrip(vornix::plist::readXml, data, size);
    return 0;
}
