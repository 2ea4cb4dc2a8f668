#pragma once

#include <memory>

#include "data/VrexExpr.h"
#include "data/VrexExprCompiler.h"
#include "data/VrexExprProgram.h"
#include "data/VrexVariable.h"

class VrexExprDoubles;
class VrexExprVariables;

/// Hidden: a tree made flat, to be evaluated as often as needed; the results are those of the tree.
///
/// The variables of the tree must stay alive. One thread at a time.
class VrexExprSteps {
public:
    using Reading = VrexExprCompiler::Reading;

    explicit VrexExprSteps(const VrexExpr& root, Reading reading = Reading::Value);
    /// With values that are taken for granted.
    VrexExprSteps(const VrexExpr& root, const VrexExprCompiler::Known& known);
    ~VrexExprSteps();

    /// For a condition 1 or 0.
    [[nodiscard]] double eval();
    [[nodiscard]] VrexVariable evalVar();

private:
    VrexExprDoubles& doubles();

    VrexExprProgram m_program;
    std::unique_ptr<VrexExprDoubles> m_doubles;
    std::unique_ptr<VrexExprVariables> m_variables; ///< Made at their first use, as the doubles.
};
