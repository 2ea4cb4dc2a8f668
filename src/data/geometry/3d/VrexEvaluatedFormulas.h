#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVar.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/equation/VrexExpressionParser.h"
#include "data/geometry/3d/VrexCalculatorInput.h"

/// Hidden: what the calculators of evaluated curves and surfaces share, for both scalars.
namespace nsEvaluated {

/// The frame that turns and moves what the expressions give.
template <typename T>
struct Frame {
    VrexVector3DT<T> origin;
    VrexQuaternionT<T> rotation;
};

template <class Shape>
Frame<double> frameOf(const Shape& shape) {
    return {shape.getOrigin(), shape.getRotation()};
}

template <class Shape>
Frame<VrexVariable> frameOf(const std::vector<VrexVariable>& parameters) {
    return {nsCalculator::getVector(parameters, Shape::X),
            nsCalculator::getRotation(parameters, Shape::SCALAR)};
}

/// Appends the values of the parameters that the descriptors of `shape` name.
template <class Shape>
void appendDescriptorValues(const Shape& shape, std::vector<double>& values) {
    for (const VrexVariableDescriptor& descriptor : shape.descriptors()) {
        values.push_back(descriptor.getValue());
    }
}

/// The same from the list of parameters, where they follow the slots of the shape; checks its length.
template <class Shape>
void appendDescriptorValues(const Shape& shape, const std::vector<VrexVariable>& parameters,
                            std::vector<VrexVariable>& values) {
    const std::size_t count = shape.descriptors().size();
    nsCalculator::requireParameters(parameters, Shape::PARAMETERS_AMOUNT + count);
    const auto first = parameters.begin() + Shape::PARAMETERS_AMOUNT;
    values.insert(values.end(), first, first + static_cast<std::ptrdiff_t>(count));
}

/// An expression that was refused may still have the variables of former descriptors. It must not be given
/// values that are not meant for it. One that is missing has no tree, which the parser tells by itself.
inline void requireBound(const VrexExpressionParser& parser, std::size_t count) {
    const std::size_t bound = parser.getVariables().size();
    if (bound != count && !parser.getExpression().empty()) {
        VREX_RAISE(std::runtime_error, "The expression has " + std::to_string(bound) +
                                           " variables, and the shape has " + std::to_string(count) + ".");
    }
}

/// (X, Y, Z) by `evaluate(parser)`, turned.
template <typename T, class Shape, class Evaluate>
VrexVector3DT<T> turned(const Shape& shape, const VrexQuaternionT<T>& rotation, const Evaluate& evaluate) {
    // One after the other, in this order.
    const T x = evaluate(shape.getXParser());
    const T y = evaluate(shape.getYParser());
    const T z = evaluate(shape.getZParser());
    return VrexQuaternionT<T>::rotate({x, y, z}, rotation, false);
}

template <class Shape>
void requireBound(const Shape& shape, std::size_t count) {
    requireBound(shape.getXParser(), count);
    requireBound(shape.getYParser(), count);
    requireBound(shape.getZParser(), count);
}

// The operations of the parser by the scalar of the values.

inline double value(VrexExpressionParser& parser, const std::vector<double>& values) {
    return parser.evaluate(values);
}
inline VrexVariable value(VrexExpressionParser& parser, const std::vector<VrexVariable>& values) {
    return parser.evaluateVar(values);
}
inline double derivative(VrexExpressionParser& parser, const std::vector<double>& values,
                         const std::shared_ptr<VrexVar>& by, std::uint64_t order) {
    return parser.evaluateDeriv(values, by, order);
}
inline VrexVariable derivative(VrexExpressionParser& parser, const std::vector<VrexVariable>& values,
                               const std::shared_ptr<VrexVar>& by, std::uint64_t order) {
    return parser.evaluateDerivVar(values, by, order);
}
inline double derivative(VrexExpressionParser& parser, const std::vector<double>& values,
                         const std::vector<std::shared_ptr<VrexVar>>& by, const std::vector<int>& orders) {
    return parser.evaluateDerivBySeveralVars(values, by, orders);
}
inline VrexVariable derivative(VrexExpressionParser& parser, const std::vector<VrexVariable>& values,
                               const std::vector<std::shared_ptr<VrexVar>>& by,
                               const std::vector<int>& orders) {
    return parser.evaluateDerivVarBySeveralVars(values, by, orders);
}

} // namespace nsEvaluated
