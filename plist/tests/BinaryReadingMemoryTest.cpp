#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/doubles/HeapPeak.hpp"
#include "plist/BinaryReader.hpp"
#include "plist/DecodingError.hpp"

namespace {

using namespace vornix::plist;

void appendBigEndian(std::string& bytes, std::uint64_t value, std::size_t size) {
    for (std::size_t index = size; index-- > 0;) {
        bytes += static_cast<char>((value >> (8 * index)) & 0xFF);
    }
}

// A binary property list of 511 arrays, each the first item of the one before, each claiming as
// many references as the object area holds after its own header (the most a count may claim), and
// 16 KiB of zero bytes to claim. Object 0's references run into object 40960, which is not there.
std::string nestedArraysClaimingEveryReference() {
    constexpr std::size_t depth = 511;
    constexpr std::size_t header = 8;
    constexpr std::size_t arraySize = 6;  // marker, a 2-byte count as an integer object, the first reference
    constexpr std::size_t padding = 16384;
    const std::size_t tableOffset = header + (depth - 1) * arraySize + 1 + padding;
    std::string bytes = "bplist00";
    std::vector<std::size_t> offsets;
    for (std::size_t index = 0; index + 1 < depth; ++index) {
        offsets.push_back(bytes.size());
        bytes += '\xAF';
        bytes += '\x11';
        appendBigEndian(bytes, (tableOffset - (bytes.size() + 2)) / 2, 2);
        appendBigEndian(bytes, index + 1, 2);
    }
    offsets.push_back(bytes.size());
    bytes += '\xA0';
    bytes.append(padding, '\0');
    for (const std::size_t offset : offsets) {
        appendBigEndian(bytes, offset, 2);
    }
    bytes.append(6, '\0');
    bytes += '\x02';  // offset size
    bytes += '\x02';  // reference size
    appendBigEndian(bytes, depth, 8);
    appendBigEndian(bytes, 0, 8);
    appendBigEndian(bytes, tableOffset, 8);
    return bytes;
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
