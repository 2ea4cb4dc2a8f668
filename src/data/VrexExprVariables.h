#pragma once

#include <cstdint>
#include <vector>

#include "data/VrexExprCalls.h"
#include "data/VrexExprDoubles.h"
#include "data/VrexExprProgram.h"
#include "data/VrexVariable.h"

/// Hidden: the registers of a program as differentiable scalars, and how its steps run on them. Conditions
/// run on doubles.
class VrexExprVariables {
public:
    /// Program and doubles must outlive this.
    VrexExprVariables(const VrexExprProgram& program, VrexExprDoubles& doubles);

    [[nodiscard]] const VrexVariable& run();

private:
    using Step = VrexExprProgram::Step;

    /// What is known of the operands: constants need no look at their derivatives.
    enum class Operands : std::uint8_t { Any, LeftConstant, RightConstant };

    [[nodiscard]] Operands operandsOf(const Step& step) const;
    void compute(const Step& step, Operands operands);
    template <typename Rule>
    void combine(const Step& step, Operands operands, Rule rule);
    /// Does a step that may jump, and gives the next one.
    std::int32_t control(const Step& step, std::int32_t place);
    std::int32_t choose(const Step& step, std::int32_t place);

    const VrexExprProgram& m_program;
    VrexExprDoubles& m_doubles;
    std::vector<VrexVariable> m_cells;      ///< Of the registers that are not variables.
    std::vector<VrexVariable*> m_addresses; ///< Of all registers.
    VrexVariable* const* m_registers;       ///< Register 0 in `m_addresses`.
    std::vector<Operands> m_operands;       ///< Of each step that makes a value.
    VrexExprCalls m_calls;
};
