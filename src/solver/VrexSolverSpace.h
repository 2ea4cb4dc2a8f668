#pragma once

#include <utility>

/// What all bodies of a system share.
class VrexSolverSpace {
public:
    /// What a translation is counted in.
    double length() const { return m_length; }
    void setLength(double length) { m_length = length; }
    /// Whether what shapes tell comes with its derivatives.
    bool hasDerivatives() const { return m_hasDerivatives; }

    /// As long as one is there, shapes tell values alone, which takes a fraction of the time.
    class ValuesOnly {
    public:
        explicit ValuesOnly(VrexSolverSpace& space)
            : m_space(space), m_before(std::exchange(space.m_hasDerivatives, false)) {}
        ~ValuesOnly() { m_space.m_hasDerivatives = m_before; }
        ValuesOnly(const ValuesOnly&) = delete;
        ValuesOnly& operator=(const ValuesOnly&) = delete;

    private:
        VrexSolverSpace& m_space;
        bool m_before;
    };

private:
    double m_length = 1.0;
    bool m_hasDerivatives = true;
};
