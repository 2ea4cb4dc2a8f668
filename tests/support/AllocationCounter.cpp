#include "support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t>& allocations() {
    static std::atomic<std::size_t> count{0};
    return count;
}

void* allocate(std::size_t size) {
    ++allocations();
    if (void* block = std::malloc(size > 0 ? size : 1)) {
        return block;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

AllocationCounter::AllocationCounter() : m_before(allocations()) {}

std::size_t AllocationCounter::count() const { return allocations() - m_before; }
