#pragma once

#include <cstddef>
#include <functional>

#include "data/VrexVariable.h"

/// What a constraint asks for, as numbers that are to be zero: lengths in the component's length, angles and
/// their likes as they are.
struct VrexSolverResidual {
    enum class Kind {
        EQUALITY,
        /// Rows that follow from others of the residual say nothing new, and that is no harm.
        WITH_SPARES,
        /// A limit or an inequality: zero on its good side. What rests on it can still move off it, so it
        /// takes no freedom.
        ONE_SIDED,
        /// It pulls as long as the constraints are not, and counts for nothing in the end.
        WISH
    };

    std::size_t constraint = 0; ///< Its place in the list of constraints.
    std::size_t rows = 0;
    Kind kind = Kind::EQUALITY;
    /// Writes one number a row, with its derivatives by the unknowns. A row without derivatives binds
    /// nothing where the bodies stand, such as a limit that is kept.
    std::function<void(VrexVariable* rows)> evaluate;
};
