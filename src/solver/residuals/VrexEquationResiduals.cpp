#include "solver/residuals/VrexEquationResiduals.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <vector>

#include "data/constraint/equation/VrexBaseEquation.h"
#include "solver/model/VrexSolverNames.h"
#include "solver/model/VrexSolverParameter.h"

namespace {

using Measure = VrexSolverBuilder::Measure;

/// What strict inequalities keep away from zero: well above the tolerance, well below what anyone measures.
constexpr double STRICT_MARGIN = 1e-9;

/// An equation with the parameters that it reads.
class Function {
public:
    Function(VrexBaseEquation& equation, std::vector<Measure> parameters)
        : m_equation(&equation), m_parameters(std::move(parameters)) {}

    /// The function sees parameters as independent, since a callback with a gradient of its own takes each
    /// for one unknown; the chain rule leads from them to the unknowns.
    VrexVariable operator()() const {
        std::vector<VrexVariable> seeds;
        std::vector<VrexVariable> values;
        for (std::size_t i = 0; i < m_parameters.size(); ++i) {
            values.push_back(m_parameters[i]());
            seeds.emplace_back(values.back().value());
            seeds.back().derivatives().append(i, 1.0);
        }
        const VrexVariable known = evaluate(seeds);
        VrexVariable result(known.value());
        for (const auto& slope : known.derivatives()) {
            if (slope.key < values.size()) {
                VrexVariable& share = values[static_cast<std::size_t>(slope.key)];
                share.setValue(0.0);
                result += share * slope.value;
            }
        }
        return result;
    }

private:
    VrexVariable evaluate(const std::vector<VrexVariable>& arguments) const {
        try {
            return m_equation->evaluate(arguments);
        } catch (const std::exception& error) {
            throw std::runtime_error(
                nsSolverNames::nameOf(*m_equation).append(" failed: ").append(error.what()));
        } catch (...) {
            throw std::runtime_error(nsSolverNames::nameOf(*m_equation).append(" failed."));
        }
    }

    VrexBaseEquation* m_equation;
    std::vector<Measure> m_parameters;
};

/// What one unit of a row is of the function: the length of the gradient, as the bodies' unknowns count.
double unitOf(const VrexVariable& value, double length) {
    double squares = 0.0;
    for (const auto& slope : value.derivatives()) {
        squares += slope.value * slope.value;
    }
    // A function that happens to be level where it starts is not thereby steep.
    const double least = 1e-3 * std::min(1.0, length);
    return std::isfinite(squares) ? std::max(std::sqrt(squares), least) : 1.0;
}

/// Only what is above 0 counts.
VrexVariable excess(const VrexVariable& value) { return value > 0.0 ? value : VrexVariable(); }

using Condition = VrexVariable (*)(const VrexVariable& value);

Condition conditionOf(VrexEquationConditionType type) {
    switch (type) {
    case VrexEquationConditionType::equalToZero:
    case VrexEquationConditionType::dragTowardsZero:
        return [](const VrexVariable& value) { return value; };
    case VrexEquationConditionType::lessThanZero:
        return [](const VrexVariable& value) { return excess(value + STRICT_MARGIN); };
    case VrexEquationConditionType::lessEqualZero:
        return [](const VrexVariable& value) { return excess(value); };
    case VrexEquationConditionType::greaterThanZero:
        return [](const VrexVariable& value) { return excess(STRICT_MARGIN - value); };
    case VrexEquationConditionType::greaterEqualZero:
        return [](const VrexVariable& value) { return excess(-value); };
    default:
        return nullptr;
    }
}

} // namespace

void nsEquationResiduals::add(VrexSolverBuilder& builder, VrexBaseEquation& equation) {
    const Condition condition = conditionOf(equation.conditionType());
    if (condition == nullptr) {
        builder.refuse("The condition of this equation is unknown.");
        return;
    }
    std::vector<Measure> parameters;
    for (const VrexVariableDescriptor& descriptor : equation.descriptors()) {
        parameters.push_back(nsSolverParameter::measureOf(builder, descriptor));
        if (!parameters.back()) {
            builder.refuse("The parameter " + descriptor.variableName() + " cannot be followed.");
            return;
        }
    }
    const Function function(equation, std::move(parameters));
    const VrexVariable start = function();
    builder.requireFinite(start.value());
    const double unit = unitOf(start, builder.length());
    const VrexSolverBuilder::Rows rows = [function, condition, unit](VrexVariable* row) {
        row[0] = condition(function() / unit);
    };
    switch (equation.conditionType()) {
    case VrexEquationConditionType::dragTowardsZero:
        return builder.addWish(1, rows);
    case VrexEquationConditionType::equalToZero:
        return builder.add(1, rows);
    default:
        return builder.addOneSided(rows);
    }
}
