#include "base/doubles/HeapPeak.hpp"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> held{0};
std::atomic<std::size_t> peak{0};
std::atomic<std::size_t> heldAtReset{0};

// Each block carries its size in a header as wide as malloc's alignment, so delete knows what it frees.
constexpr std::size_t headerSize = alignof(std::max_align_t);

void* allocate(std::size_t size) {
    void* block = std::malloc(headerSize + size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *static_cast<std::size_t*>(block) = size;
    const std::size_t now = held.fetch_add(size) + size;
    std::size_t before = peak.load();
    while (now > before && !peak.compare_exchange_weak(before, now)) {
    }
    return static_cast<char*>(block) + headerSize;
}

void release(void* pointer) noexcept {
    if (pointer == nullptr) {
        return;
    }
    void* block = static_cast<char*>(pointer) - headerSize;
    held.fetch_sub(*static_cast<std::size_t*>(block));
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* pointer) noexcept { release(pointer); }
void operator delete[](void* pointer) noexcept { release(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { release(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { release(pointer); }

namespace vornix::testing {

void resetHeapPeak() {
    heldAtReset = held.load();
    peak = heldAtReset.load();
}

std::size_t heapPeakBytes() { return peak.load() - heldAtReset.load(); }

}  // namespace vornix::testing
