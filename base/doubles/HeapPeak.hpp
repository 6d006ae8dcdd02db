#pragma once

#include <cstddef>

namespace vornix::testing {

// Counts the bytes a test executable holds through operator new, for tests that bound the memory
// an input costs. Linking this unit replaces the global operator new and delete of the whole
// executable, so only executables of their own link it.
//
// Starts a measurement: the peak counts from the bytes held now.
void resetHeapPeak();

// The most bytes held at once, beyond those held at the last resetHeapPeak().
std::size_t heapPeakBytes();

}  // namespace vornix::testing
