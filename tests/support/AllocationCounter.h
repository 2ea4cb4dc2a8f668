#pragma once

#include <cstddef>

/// Counts calls of `operator new` from its construction on. Works only in an executable that links
/// AllocationCounter.cpp, which replaces the global operators.
class AllocationCounter {
public:
    AllocationCounter();
    [[nodiscard]] std::size_t count() const;

private:
    std::size_t m_before;
};

/// Lets `operator new` fail while this lives, from the call on that follows `allowed` ones. As above.
class AllocationLimit {
public:
    explicit AllocationLimit(std::size_t allowed);
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
    ~AllocationLimit();
};
