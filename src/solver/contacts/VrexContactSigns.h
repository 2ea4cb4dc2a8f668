#pragma once

#include <vector>

#include "data/constraint/VrexConstraintOrientation.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexSolverCore.h"

/// How the gap between two surfaces is made of the distance between their cores and of their radii.
struct VrexContactSigns {
    double core = 1.0;
    double first = -1.0;
    double second = -1.0;
    bool isOpposite = false; ///< The far side of the second core, a circle, counts.

    template <class T>
    T gap(const T& distance, const T& firstRadius, const T& secondRadius) const {
        return distance * core + firstRadius * first + secondRadius * second;
    }
    VrexVariable gap(const VrexSolverCore& one, const VrexSolverCore& other,
                     const VrexSolverShape::Vector& point) const {
        return gap(nsContactFormulas::reachFrom(other, point, isOpposite).length, one.offset(),
                   other.offset());
    }

    /// Apart from each other, the second inside the first, the first inside the second: those ways to stand
    /// that the two can take and the orientation leaves; never none. `Positive` leaves the side of a plane's
    /// normal or the outside, `Negative` the others.
    static std::vector<VrexContactSigns> candidates(const VrexSolverCore& first, const VrexSolverCore& second,
                                                    VrexConstraintOrientation orientation);
    /// Those and, where the second is a circle, the same with its other side: all ways to touch.
    static std::vector<VrexContactSigns> touches(const VrexSolverCore& first, const VrexSolverCore& second,
                                                 VrexConstraintOrientation orientation);
};
