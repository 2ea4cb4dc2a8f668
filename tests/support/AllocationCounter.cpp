#include "support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<std::size_t>& allocations() {
    static std::atomic<std::size_t> count{0};
    return count;
}

std::atomic<std::size_t>& allocatedBytes() {
    static std::atomic<std::size_t> count{0};
    return count;
}

std::size_t withHeader(std::size_t size) {
    constexpr std::size_t header = 8, step = 16;
    return (size + header + step - 1) / step * step;
}

constexpr std::size_t UNLIMITED = std::numeric_limits<std::size_t>::max();

/// The count of allocations from which on they fail.
std::atomic<std::size_t>& limit() {
    static std::atomic<std::size_t> count{UNLIMITED};
    return count;
}

void* allocate(std::size_t size) {
    if (++allocations() > limit()) {
        throw std::bad_alloc();
    }
    allocatedBytes() += withHeader(size);
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

AllocationCounter::AllocationCounter() : m_before(allocations()), m_bytesBefore(allocatedBytes()) {}

std::size_t AllocationCounter::count() const { return allocations() - m_before; }

std::size_t AllocationCounter::bytes() const { return allocatedBytes() - m_bytesBefore; }

AllocationLimit::AllocationLimit(std::size_t allowed) { limit() = allocations() + allowed; }

AllocationLimit::~AllocationLimit() { limit() = UNLIMITED; }
