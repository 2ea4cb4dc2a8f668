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

/// The operands of a rotation: the parts of the quaternion and of the vector.
enum Operand : std::size_t { S, I, J, K, X, Y, Z };
using Order = std::array<Operand, 7>;
/// The order in which the formula first reads the operands, for each component of the result.
constexpr std::array<Order, 3> ORDER_WITH_CONJUGATE{
    {{I, S, X, J, Y, K, Z}, {J, S, I, X, Y, K, Z}, {K, S, I, X, J, Y, Z}}};
constexpr std::array<Order, 3> ORDER_WITH_RECIPROCAL{
    {{I, S, J, K, X, Y, Z}, {J, S, I, K, X, Y, Z}, {K, S, I, J, X, Y, Z}}};

/// The partial derivatives of a rotated vector: by its component, then by operand.
using Rows = std::array<std::array<double, 7>, 3>;

/// Of r = (s² - u.u) v + 2 (u.v) u + 2 s (u x v), with the quaternion (s, u).
Rows differentiateRotation(const VectorValues& v, const QuaternionValues& q) {
    const double s = 2.0 * q.scalar();
    const double i = 2.0 * q.i();
    const double j = 2.0 * q.j();
    const double k = 2.0 * q.k();
    const double along = i * v.x() + j * v.y() + k * v.z();
    const double stretch = 0.5 * (s * q.scalar() - (i * q.i() + j * q.j() + k * q.k()));
    const double ij = i * q.j();
    const double ik = i * q.k();
    const double jk = j * q.k();
    const double xy = i * v.y() - j * v.x();
    const double xz = i * v.z() - k * v.x();
    const double yz = j * v.z() - k * v.y();
    const double sx = s * v.x();
    const double sy = s * v.y();
    const double sz = s * v.z();
    const double si = s * q.i();
    const double sj = s * q.j();
    const double sk = s * q.k();
    return {{{sx + yz, along, xy + sz, xz - sy, stretch + i * q.i(), ij - sk, ik + sj},
             {sy - xz, -xy - sz, along, yz + sx, ij + sk, stretch + j * q.j(), jk - si},
             {sz + xy, -xz + sy, -yz - sx, along, ik - sj, jk + si, stretch + k * q.k()}}};
}

/// Of r / n from those of r, with n = s² + u.u, where `rotated` is that quotient.
void divideByNorm(Rows& rows, const QuaternionValues& q, double n, const VectorValues& rotated) {
    const std::array<double, 7> byOperand{
        2.0 * q.scalar(), 2.0 * q.i(), 2.0 * q.j(), 2.0 * q.k(), 0.0, 0.0, 0.0};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t operand = 0; operand < byOperand.size(); ++operand) {
            double& entry = rows[row][operand];
            entry = (entry - rotated[static_cast<int>(row)] * byOperand[operand]) / n;
        }
    }
}

} // namespace

template <>
Vector Quaternion::rotate(const Vector& v, const Quaternion& q, bool useReciprocal) {
    const VectorValues vector = toValues(v);
    const QuaternionValues turn = toValues(q);
    const VectorValues value = QuaternionValues::rotate(vector, turn, useReciprocal);
    const double norm = turn.normSquared(); // infinite with a finite result too, where the reciprocal is 0
    if (hasLog(v) || hasLog(q) || !isFinite(value) || !std::isfinite(norm)) [[unlikely]] {
        return nsVectorFormulas::rotate(v, q, useReciprocal);
    }
    Rows rows = differentiateRotation(vector, turn);
    if (useReciprocal) {
        divideByNorm(rows, turn, norm, value);
    }
    const std::array<const Variable*, 7> operands{&q.scalar(), &q.i(), &q.j(), &q.k(),
                                                  &v.x(),      &v.y(), &v.z()};
    const auto& orders = useReciprocal ? ORDER_WITH_RECIPROCAL : ORDER_WITH_CONJUGATE;
    return {Vector::PerIndex(), [&](int component) {
                const auto& row = rows[static_cast<std::size_t>(component)];
                const Order& order = orders[static_cast<std::size_t>(component)];
                const auto term = [&](std::size_t i) { return Term{*operands[order[i]], row[order[i]]}; };
                return linearCombination(value[component],
                                         {term(0), term(1), term(2), term(3), term(4), term(5), term(6)});
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
    return Quaternion(PerPart(), makeScalar, makeComponent);
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
