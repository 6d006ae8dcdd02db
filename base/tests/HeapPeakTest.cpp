#include <gtest/gtest.h>

#include <new>

#include "base/doubles/HeapPeak.hpp"

namespace {

using vornix::testing::heapPeakBytes;
using vornix::testing::resetHeapPeak;

// Calls operator new itself: an optimiser may leave out the allocations of a new-expression or a
// container that nothing reads.
TEST(HeapPeak, CountsTheMostHeldAtOnceSinceTheReset) {
    void* kept = ::operator new(1000);
    resetHeapPeak();
    EXPECT_EQ(heapPeakBytes(), 0u);
    void* first = ::operator new(100000);
    void* second = ::operator new(50000);
    ::operator delete(first);
    ::operator delete(second);
    void* third = ::operator new(120000);
    EXPECT_EQ(heapPeakBytes(), 150000u);
    ::operator delete(third);
    ::operator delete(kept);
}

}  // namespace
