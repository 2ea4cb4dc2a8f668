#pragma once

#include <cstddef>

/// Counts calls of `operator new`, and what they take, from its construction on. Works only in an executable
/// that links AllocationCounter.cpp, which replaces the global operators.
class AllocationCounter {
public:
    AllocationCounter();
    [[nodiscard]] std::size_t count() const;
    /// What the blocks asked for since then take with the allocator's own share, given back or not: a header
    /// of eight bytes each, in steps of 16, as on this system.
    [[nodiscard]] std::size_t bytes() const;

private:
    std::size_t m_before;
    std::size_t m_bytesBefore;
};

/// Lets `operator new` fail while this lives, from the call on that follows `allowed` ones. As above.
class AllocationLimit {
public:
    explicit AllocationLimit(std::size_t allowed);
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
    ~AllocationLimit();
};
