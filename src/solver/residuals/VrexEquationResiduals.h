#pragma once

class VrexBaseEquation;
class VrexSolverBuilder;

/// Conditions on a function of single parameters.
namespace nsEquationResiduals {

/// The function is zero; or zero where it would be beyond it, a strict inequality with a small distance; or
/// drawn towards zero as a wish. Its value is divided by the length of its gradient at the start, if that is
/// above a small number, so that it counts as the distance to where the condition holds.
///
/// What a callback throws comes out as `std::runtime_error` that names the equation.
void add(VrexSolverBuilder& builder, VrexBaseEquation& equation);

} // namespace nsEquationResiduals
