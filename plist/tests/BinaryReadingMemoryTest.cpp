#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "base/doubles/HeapPeak.hpp"
#include "plist/BinaryReader.hpp"
#include "plist/DecodingError.hpp"
#include "plist/tests/BinaryDocument.hpp"

namespace {

using namespace vornix::plist;

// A binary property list of 511 arrays, each the first item of the one before, each claiming as
// many references as the object area holds after its own header (the most a count may claim), and
// 16 KiB of zero bytes to claim. Object 0's references run into object 40960, which is not there.
std::string nestedArraysClaimingEveryReference() {
    using vornix::plist::testing::Document;
    constexpr std::size_t header = 8;  // "bplist00"
    constexpr std::size_t depth = 511;
    constexpr std::size_t arraySize = 6;  // marker, a 2-byte count as an integer object, the first reference
    constexpr std::size_t padding = 16384;
    const std::size_t tableOffset = header + (depth - 1) * arraySize + 1 + padding;
    Document document;
    document.referenceSize = 2;
    document.offsetSize = 2;
    for (std::size_t index = 0; index + 1 < depth; ++index) {
        const std::size_t referencesStart = header + index * arraySize + 4;
        document.objects.push_back("\xAF\x11" + Document::bigEndian((tableOffset - referencesStart) / 2, 2) +
                                   Document::bigEndian(index + 1, 2));
    }
    document.objects.push_back("\xA0" + std::string(padding, '\0'));
    return document.bytes();
}

TEST(BinaryReadingMemory, NestedArraysClaimingEveryReferenceCostMemoryInProportionToTheDocument) {
    const std::string document = nestedArraysClaimingEveryReference();
    vornix::testing::resetHeapPeak();
    EXPECT_THROW(readBinary(document), DataCorrupted);
    // Only the values read are paid for; reserving every claimed count would hold some 180 MB
    // for these 20 KB.
    EXPECT_LT(vornix::testing::heapPeakBytes(), 128 * document.size());
}

}  // namespace
