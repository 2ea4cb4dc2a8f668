#include <array>
#include <cmath>

#include "data/VrexQuaternionT.h"
#include "data/VrexVariableFusion.h"
#include "data/VrexVectorValues.h"

// The operations of VrexQuaternionT<VrexVariable> in one step, on the terms of VrexVectorsInOneStep.cpp.

using nsVariableFusion::linearCombination;
using nsVariableFusion::Term;
using nsVectorValues::crossFactors;
using nsVectorValues::hasLog;
using nsVectorValues::isFinite;
using nsVectorValues::toValues;

using Variable = VrexVariable;
using Vector = VrexVector3DT<VrexVariable>;
using Quaternion = VrexQuaternionT<VrexVariable>;
using VectorValues = VrexVector3DT<double>;
using QuaternionValues = VrexQuaternionT<double>;

namespace {

/// The partial derivatives of a rotated vector r: component i by component j of the vector and of the
/// quaternion's vector, and by the quaternion's scalar.
struct RotationDerivatives {
    std::array<VectorValues, 3> byVector;
    std::array<VectorValues, 3> byAxis;
    VectorValues byScalar;
};

/// The rows of the matrix of c v + s (w x v), for any v.
std::array<VectorValues, 3> makeRows(double c, double s, const VectorValues& w) {
    return {VectorValues(c, -s * w.z(), s * w.y()), VectorValues(s * w.z(), c, -s * w.x()),
            VectorValues(-s * w.y(), s * w.x(), c)};
}

/// Of r = (s² - u.u) v + 2 (u.v) u + 2 s (u x v), with q = (s, u).
RotationDerivatives differentiateRotation(const VectorValues& v, const QuaternionValues& q) {
    const VectorValues& u = q.vector();
    const double s = q.scalar();
    RotationDerivatives result{makeRows(s * s - u.magnitudeSquared(), 2.0 * s, u),
                               makeRows(2.0 * u.dotProduct(v), -2.0 * s, v),
                               (v * s + u.crossProduct(v)) * 2.0};
    for (int i = 0; i < 3; ++i) {
        result.byVector[i] += u * (2.0 * u[i]);
        result.byAxis[i] += v * (2.0 * u[i]) - u * (2.0 * v[i]);
    }
    return result;
}

/// Of r / n, with n = s² + u.u, where `rotated` is that quotient.
RotationDerivatives divideByNorm(const RotationDerivatives& unscaled, const QuaternionValues& q,
                                 const VectorValues& rotated) {
    const double n = q.normSquared();
    RotationDerivatives result = unscaled;
    result.byScalar = (unscaled.byScalar - rotated * (2.0 * q.scalar())) / n;
    for (int i = 0; i < 3; ++i) {
        result.byVector[i] /= n;
        result.byAxis[i] = (unscaled.byAxis[i] - q.vector() * (2.0 * rotated[i])) / n;
    }
    return result;
}

/// The operands of a rotation, by which the orders below name them.
enum Operand : std::size_t { S, I, J, K, X, Y, Z };
using Order = std::array<Operand, 7>;
/// The order in which the formula first reads the operands, for each component of the result.
constexpr std::array<Order, 3> ORDER_WITH_CONJUGATE{
    {{I, S, X, J, Y, K, Z}, {J, S, I, X, Y, K, Z}, {K, S, I, X, J, Y, Z}}};
constexpr std::array<Order, 3> ORDER_WITH_RECIPROCAL{
    {{I, S, J, K, X, Y, Z}, {J, S, I, K, X, Y, Z}, {K, S, I, J, X, Y, Z}}};

Variable combine(double value, const std::array<Term, 7>& terms, const Order& order) {
    return linearCombination(value, {terms[order[0]], terms[order[1]], terms[order[2]], terms[order[3]],
                                     terms[order[4]], terms[order[5]], terms[order[6]]});
}

} // namespace

template <>
Vector Quaternion::rotate(const Vector& v, const Quaternion& q, bool useReciprocal) {
    const VectorValues vector = toValues(v);
    const QuaternionValues turn = toValues(q);
    const VectorValues value = QuaternionValues::rotate(vector, turn, useReciprocal);
    if (hasLog(v) || hasLog(q) || !isFinite(value)) [[unlikely]] {
        return nsVectorFormulas::rotate(v, q, useReciprocal);
    }
    RotationDerivatives derivatives = differentiateRotation(vector, turn);
    if (useReciprocal) {
        derivatives = divideByNorm(derivatives, turn, value);
    }
    const auto& orders = useReciprocal ? ORDER_WITH_RECIPROCAL : ORDER_WITH_CONJUGATE;
    return {Vector::PerIndex(), [&](int i) {
                const auto row = static_cast<std::size_t>(i);
                const VectorValues& byU = derivatives.byAxis[row];
                const VectorValues& byV = derivatives.byVector[row];
                return combine(value[i],
                               {{{q.scalar(), derivatives.byScalar[i]},
                                 {q.i(), byU.x()},
                                 {q.j(), byU.y()},
                                 {q.k(), byU.z()},
                                 {v.x(), byV.x()},
                                 {v.y(), byV.y()},
                                 {v.z(), byV.z()}}},
                               orders[row]);
            }};
}

template <>
Quaternion Quaternion::operator*(const Quaternion& o) const {
    const QuaternionValues a = toValues(*this);
    const QuaternionValues b = toValues(o);
    const QuaternionValues value = a * b;
    if (hasLog(*this) || hasLog(o) || !isFinite(value)) [[unlikely]] {
        return nsVectorFormulas::product(*this, o);
    }
    const auto makeScalar = [&] {
        return linearCombination(value.scalar(), {{m_scalar, b.scalar()},
                                                  {o.m_scalar, a.scalar()},
                                                  {i(), -b.i()},
                                                  {o.i(), -a.i()},
                                                  {j(), -b.j()},
                                                  {o.j(), -a.j()},
                                                  {k(), -b.k()},
                                                  {o.k(), -a.k()}});
    };
    const auto makeComponent = [&](int c) {
        const auto [left, right, otherLeft, otherRight] = crossFactors(m_vector, o.m_vector, c);
        return linearCombination(value.vector()[c], {{o.m_vector[c], a.scalar()},
                                                     {m_scalar, b.vector()[c]},
                                                     {m_vector[c], b.scalar()},
                                                     {o.m_scalar, a.vector()[c]},
                                                     {left, right.value()},
                                                     {right, left.value()},
                                                     {otherLeft, -otherRight.value()},
                                                     {otherRight, -otherLeft.value()}});
    };
    return Quaternion(makeScalar, makeComponent);
}

template <>
Variable Quaternion::normSquared() const {
    const QuaternionValues q = toValues(*this);
    const double value = q.normSquared();
    if (hasLog(*this) || !std::isfinite(value)) [[unlikely]] {
        return nsVectorFormulas::normSquared(*this);
    }
    return linearCombination(
        value, {{m_scalar, 2.0 * q.scalar()}, {i(), 2.0 * q.i()}, {j(), 2.0 * q.j()}, {k(), 2.0 * q.k()}});
}
