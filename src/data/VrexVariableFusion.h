#pragma once

#include <initializer_list>
#include <span>

#include "data/VrexVariable.h"

/// Composite operations as one step: one store is built instead of one for each operator.
///
/// A composite works out its value by the plain operators' order of operations, differentiates by hand, and
/// hands the partial derivatives by each operand to `linearCombination`. List the operands in the order in
/// which the plain operators meet them first: a key's place in the result is where it is met first. An
/// operand may stand in several terms. Operands without derivatives add nothing and may be listed.
///
/// Nothing is logged here: take the plain operators when `anyLog` says that an operand logs.
namespace nsVariableFusion {

/// An operand and the partial derivative of the result by it.
struct Term {
    const VrexVariable& operand;
    double factor;
};

/// A variable with `value` and, for each key of the terms, the sum of factor * entry in the order of the
/// terms; no log. The keys stand in the order in which the terms bring them. Allocates nothing while they fit
/// inside, and otherwise one block, exact unless the terms bring more than 255 entries of differing keys.
[[nodiscard]] VrexVariable linearCombination(double value, std::span<const Term> terms);

[[nodiscard]] inline VrexVariable linearCombination(double value, std::initializer_list<Term> terms) {
    return linearCombination(value, std::span<const Term>(terms.begin(), terms.size()));
}

template <typename... Variables>
[[nodiscard]] bool anyLog(const Variables&... variables) {
    return (variables.hasLog() || ...);
}

} // namespace nsVariableFusion
