#pragma once

#include <array>
#include <cstddef>

#include "solver/system/VrexSolverFrame.h"
#include "solver/system/VrexSolverSpace.h"

/// What of a body the solver may vary, in the body's own axes.
struct VrexSolverMobility {
    std::array<bool, 3> translations{};
    std::array<bool, 3> rotations{};
    std::array<bool, 2> sizes{};

    std::size_t count() const;
    /// How many of each kind: translations, rotations, the first size, the second.
    std::array<std::size_t, 4> counts() const;
};

/// What moves as one: a free entity, a rigid set with all it carries, a single number. Its unknowns are small
/// motions from where it stands, so that a direction stays of unit length and each unknown is a degree of
/// freedom: a line has no unknown along itself, a plane none in itself.
///
/// Unknowns come in the order translations, rotations, sizes. A translation, and a size that is a length, is
/// counted in `length`, so that all unknowns are near 1.
class VrexSolverBody {
public:
    VrexSolverBody(const VrexSolverFrame& frame, const VrexSolverMobility& mobility)
        : m_frame(frame), m_mobility(mobility) {}

    const VrexSolverFrame& frame() const { return m_frame; }
    const VrexSolverMobility& mobility() const { return m_mobility; }
    std::size_t unknownCount() const { return m_mobility.count(); }
    bool isFixed() const { return unknownCount() == 0; }
    /// Holds everything.
    void fix() { m_mobility = {}; }
    /// The number of the first unknown in the system.
    std::size_t firstUnknown() const { return m_firstUnknown; }
    void setFirstUnknown(std::size_t unknown) { m_firstUnknown = unknown; }
    /// False for a half angle, a pattern's value and the like.
    bool isLength(std::size_t index) const { return m_isLength[index]; }
    /// The one that it was added to; none before.
    VrexSolverSpace& space() const { return *m_space; }
    void setSpace(VrexSolverSpace& space) { m_space = &space; }
    double length() const { return m_space->length(); }

    double size(std::size_t index) const { return m_sizes[index]; }
    void setSize(std::size_t index, double size, bool isLength);
    /// What one unit of the size's unknown is.
    double sizeUnit(std::size_t index) const { return m_isLength[index] ? length() : 1.0; }

    /// Whether it ever moved, be it there and back.
    bool hasMoved() const { return m_hasMoved; }
    /// Moves by one value for each unknown.
    void move(const double* step);

private:
    VrexSolverFrame m_frame;
    VrexSolverMobility m_mobility;
    std::array<double, 2> m_sizes{};
    std::array<bool, 2> m_isLength{true, true};
    VrexSolverSpace* m_space = nullptr;
    std::size_t m_firstUnknown = 0;
    bool m_hasMoved = false;
};
