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
