#pragma once

#include <cstdint>
#include <utility>

/// What all bodies of a system share.
class VrexSolverSpace {
public:
    /// What a translation is counted in.
    double length() const { return m_length; }
    void setLength(double length) { m_length = length; }
    /// Whether what shapes tell comes with its derivatives.
    bool hasDerivatives() const { return m_rest == 0; }
    /// The number of the time of rest that this is, 0 at other times.
    std::uint64_t rest() const { return m_rest; }

    /// A time of rest, as long as one is there: entities stand still, only points of contact run, and shapes
    /// tell values alone, which takes a fraction of the time.
    class ValuesOnly {
    public:
        explicit ValuesOnly(VrexSolverSpace& space)
            : m_space(space), m_before(std::exchange(space.m_rest, ++space.m_restCount)) {}
        ~ValuesOnly() { m_space.m_rest = m_before; }
        ValuesOnly(const ValuesOnly&) = delete;
        ValuesOnly& operator=(const ValuesOnly&) = delete;

    private:
        VrexSolverSpace& m_space;
        std::uint64_t m_before;
    };

private:
    double m_length = 1.0;
    std::uint64_t m_rest = 0;
    std::uint64_t m_restCount = 0;
};
