#pragma once

#include <deque>
#include <optional>

#include "solver/VrexSolverOptions.h"
#include "solver/numerics/VrexLeastSquares.h"
#include "solver/system/VrexSolverBody.h"

class VrexSolverBuilder;
class VrexSolverSystem;

/// Follows the wishes of a component, such as a drag, before its constraints alone have the say.
///
/// A pose that meets the constraints is left only for one that meets them too and the wishes better, so that
/// a wish that cannot be met moves nothing for ever, and none costs a solution.
class VrexWishSearch {
public:
    /// The start is where the bodies stand now.
    VrexWishSearch(const VrexSolverOptions& options, VrexLeastSquares::KeepGoing keepGoing,
                   const VrexSolverBuilder& builder);

    /// Moves the bodies to where wishes and constraints balance; how many iterations that took. None where
    /// nothing is wished.
    int run();
    /// Takes the bodies back to the start where the pose that a search of the constraints found from there
    /// on, and tells of in `result`, is not worth having left it.
    void settle(VrexLeastSquaresResult& result);

private:
    /// What is left of the wishes, as a sum of squares.
    double unmet();

    const VrexSolverBuilder& m_builder;
    VrexSolverSystem& m_system;
    VrexLeastSquares m_method;
    double m_tolerance;
    std::optional<std::deque<VrexSolverBody>> m_start; ///< If it meets the constraints, and there are wishes.
    double m_unmet = 0.0;                              ///< There.
};
