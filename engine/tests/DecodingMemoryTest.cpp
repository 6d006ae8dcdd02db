#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/doubles/HeapPeak.hpp"
#include "engine/CodecError.hpp"
#include "engine/StandardMessageCodec.hpp"
#include "engine/WireType.hpp"

namespace {

using namespace vornix::engine;

// A message of `size` bytes: lists nested 511 deep, each claiming as many values as there are
// bytes after its own header (the most a count may claim), the innermost one filled with nulls.
// The outer lists never get their remaining values, so reading fails at the end of the data.
std::vector<std::uint8_t> nestedListsClaimingEveryByte(std::size_t size) {
    constexpr std::size_t depth = 511;
    constexpr std::size_t header = 4;  // type, the 16-bit size escape, the size
    std::vector<std::uint8_t> message;
    for (std::size_t level = 0; level < depth; ++level) {
        const std::size_t count = size - (level + 1) * header;
        message.push_back(wire::list);
        message.push_back(wire::size16);
        message.push_back(static_cast<std::uint8_t>(count & 0xFF));
        message.push_back(static_cast<std::uint8_t>(count >> 8));
    }
    message.resize(size, wire::null);
    return message;
}

TEST(DecodingMemory, NestedListsClaimingEveryByteCostMemoryInProportionToTheMessage) {
    const std::vector<std::uint8_t> message = nestedListsClaimingEveryByte(16384);
    vornix::testing::resetHeapPeak();
    EXPECT_THROW(StandardMessageCodec::decodeMessage(message), CodecError);
    // Each byte read makes at most one value; reserving every claimed count would hold some
    // 440 MB for these 16 KB.
    EXPECT_LT(vornix::testing::heapPeakBytes(), 128 * message.size());
}

}  // namespace
