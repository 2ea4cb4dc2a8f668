#include <cmath>

#include "data/VrexVariableFusion.h"
#include "data/VrexVector3DT.h"
#include "data/VrexVectorValues.h"

// The operations of VrexVector3DT<VrexVariable> that build one store for each result instead of one for each
// operator. Each gives the value of the formula for doubles, the keys in the order in which the formula reads
// its operands, and the derivatives by its partial derivatives. Operands that log, and results that are not
// finite, take the formula by plain operators: logs need every step, and infinite operands turn derivatives
// by absent keys into NaN there.

using nsVariableFusion::linearCombination;
using nsVectorValues::crossFactors;
using nsVectorValues::hasLog;
using nsVectorValues::isFinite;
using nsVectorValues::toValues;

using Variable = VrexVariable;
using Vector = VrexVector3DT<VrexVariable>;
using Values = VrexVector3DT<double>;

template <>
Variable Vector::dotProduct(const Vector& o) const {
    const Values a = toValues(*this);
    const Values b = toValues(o);
    const double value = a.dotProduct(b);
    if (hasLog(*this) || hasLog(o) || !std::isfinite(value)) [[unlikely]] {
        return nsVectorFormulas::dotProduct(*this, o);
    }
    return linearCombination(
        value, {{m_x, b.x()}, {o.m_x, a.x()}, {m_y, b.y()}, {o.m_y, a.y()}, {m_z, b.z()}, {o.m_z, a.z()}});
}

template <>
Vector Vector::crossProduct(const Vector& o) const {
    const Values value = toValues(*this).crossProduct(toValues(o));
    if (hasLog(*this) || hasLog(o) || !isFinite(value)) [[unlikely]] {
        return nsVectorFormulas::crossProduct(*this, o);
    }
    return {PerIndex(), [&](int component) {
                const auto [left, right, otherLeft, otherRight] = crossFactors(*this, o, component);
                return linearCombination(value[component], {{left, right.value()},
                                                            {right, left.value()},
                                                            {otherLeft, -otherRight.value()},
                                                            {otherRight, -otherLeft.value()}});
            }};
}

template <>
Variable Vector::magnitudeSquared() const {
    const Values v = toValues(*this);
    const double value = v.magnitudeSquared();
    if (hasLog(*this) || !std::isfinite(value)) [[unlikely]] {
        return nsVectorFormulas::magnitudeSquared(*this);
    }
    return linearCombination(value, {{m_x, 2.0 * v.x()}, {m_y, 2.0 * v.y()}, {m_z, 2.0 * v.z()}});
}

template <>
Variable Vector::magnitude() const {
    const Values v = toValues(*this);
    const double value = v.magnitude();
    if (hasLog(*this) || !std::isfinite(value)) [[unlikely]] {
        return nsVectorFormulas::magnitude(*this);
    }
    return linearCombination(value, {{m_x, v.x() / value}, {m_y, v.y() / value}, {m_z, v.z() / value}});
}

template <>
Variable Vector::distanceTo(const Vector& o) const {
    const Values difference = toValues(*this) - toValues(o);
    const double value = difference.magnitude();
    if (hasLog(*this) || hasLog(o) || !std::isfinite(value)) [[unlikely]] {
        return nsVectorFormulas::distance(*this, o);
    }
    const Values unit = difference / value;
    return linearCombination(value, {{m_x, unit.x()},
                                     {o.m_x, -unit.x()},
                                     {m_y, unit.y()},
                                     {o.m_y, -unit.y()},
                                     {m_z, unit.z()},
                                     {o.m_z, -unit.z()}});
}

// Component i is v_i / m with the derivative (d_ij - n_i n_j) / m by v_j, where n = v / m.
template <>
Vector Vector::makeNormalized(double eps, const Vector& fallback) const {
    const Values v = toValues(*this);
    const double length = v.magnitude();
    if (hasLog(*this) || !std::isfinite(length)) [[unlikely]] {
        return nsVectorFormulas::makeNormalized(*this, eps, fallback);
    }
    if (!(length > eps)) {
        return fallback;
    }
    const Values n = v / length;
    const auto by = [&n, length](int i, int j) { return ((i == j ? 1.0 : 0.0) - n[i] * n[j]) / length; };
    return {PerIndex(), [&](int i) {
                const int j = i == 0 ? 1 : 0;
                const int k = i == 2 ? 1 : 2;
                return linearCombination(
                    n[i], {{(*this)[i], by(i, i)}, {(*this)[j], by(i, j)}, {(*this)[k], by(i, k)}});
            }};
}

template <>
Vector Vector::sphericalAnglesToCartesian(const Variable& polar, const Variable& azimuthal) {
    const Values::Angle p(polar.value());
    const Values::Angle a(azimuthal.value());
    const Values value = Values::getRotatedZBasisVector(p, a);
    if (polar.hasLog() || azimuthal.hasLog() || !isFinite(value)) [[unlikely]] {
        return getRotatedZBasisVector(Angle(polar), Angle(azimuthal));
    }
    return {linearCombination(value.x(), {{polar, p.cosine * a.cosine}, {azimuthal, -p.sine * a.sine}}),
            linearCombination(value.y(), {{polar, p.cosine * a.sine}, {azimuthal, p.sine * a.cosine}}),
            linearCombination(value.z(), {{polar, -p.sine}})};
}

template <>
std::tuple<Vector, Vector, Vector> Vector::getRotatedBasisVectors(const Variable& polar,
                                                                  const Variable& azimuthal) {
    const Values::Angle p(polar.value());
    const Values::Angle a(azimuthal.value());
    const Values x = Values::getRotatedXBasisVector(p, a);
    const Values y = Values::getRotatedYBasisVector(p, a);
    if (polar.hasLog() || azimuthal.hasLog() || !isFinite(x) || !isFinite(y)) [[unlikely]] {
        const Angle polarAngle(polar);
        const Angle azimuthalAngle(azimuthal);
        return {getRotatedXBasisVector(polarAngle, azimuthalAngle),
                getRotatedYBasisVector(polarAngle, azimuthalAngle),
                getRotatedZBasisVector(polarAngle, azimuthalAngle)};
    }
    // As the operators differentiate the formulas, so that what cancels there cancels alike.
    const double t = p.cosine * a.cosine;
    const double u = p.cosine * a.sine;
    const double byAzimuthalXX = -u * a.cosine - a.sine * t + (a.cosine * a.sine + a.cosine * a.sine);
    const double byAzimuthalXY = -u * a.sine + a.cosine * t - (a.cosine * a.cosine - a.sine * a.sine);
    const double byAzimuthalYY = t * a.sine + a.cosine * u - (a.sine * a.cosine + a.sine * a.cosine);
    const double byPolarXY = -p.sine * a.cosine * a.sine;
    const auto combine = [&](double value, double byPolar, double byAzimuthal) {
        return linearCombination(value, {{polar, byPolar}, {azimuthal, byAzimuthal}});
    };
    return {Vector(combine(x.x(), -p.sine * a.cosine * a.cosine, byAzimuthalXX),
                   combine(x.y(), byPolarXY, byAzimuthalXY),
                   combine(x.z(), -p.cosine * a.cosine, p.sine * a.sine)),
            Vector(combine(y.x(), byPolarXY, byAzimuthalXY),
                   combine(y.y(), -p.sine * a.sine * a.sine, byAzimuthalYY),
                   combine(y.z(), -p.cosine * a.sine, -p.sine * a.cosine)),
            sphericalAnglesToCartesian(polar, azimuthal)};
}
