#pragma once

#include <cmath>

#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"

/// The values of vectors and quaternions of differentiable scalars, for composites in one step.
namespace nsVectorValues {

inline VrexVector3DT<double> toValues(const VrexVector3DT<VrexVariable>& v) {
    return {v.x().value(), v.y().value(), v.z().value()};
}

inline VrexQuaternionT<double> toValues(const VrexQuaternionT<VrexVariable>& q) {
    return VrexQuaternionT<double>::makeFromScalarAndVector(q.scalar().value(), toValues(q.vector()));
}

inline bool hasLog(const VrexVector3DT<VrexVariable>& v) {
    return v.x().hasLog() || v.y().hasLog() || v.z().hasLog();
}

inline bool hasLog(const VrexQuaternionT<VrexVariable>& q) {
    return q.scalar().hasLog() || hasLog(q.vector());
}

inline bool isFinite(const VrexVector3DT<double>& v) {
    return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

inline bool isFinite(const VrexQuaternionT<double>& q) {
    return std::isfinite(q.scalar()) && isFinite(q.vector());
}

/// The factors of a component of the cross product, left * right - otherLeft * otherRight, as it reads them.
struct CrossFactors {
    const VrexVariable& left;
    const VrexVariable& right;
    const VrexVariable& otherLeft;
    const VrexVariable& otherRight;
};

inline CrossFactors crossFactors(const VrexVector3DT<VrexVariable>& a, const VrexVector3DT<VrexVariable>& b,
                                 int component) {
    switch (component) {
    case 0:
        return {a.y(), b.z(), b.y(), a.z()};
    case 1:
        return {b.x(), a.z(), a.x(), b.z()};
    default:
        return {b.y(), a.x(), b.x(), a.y()};
    }
}

} // namespace nsVectorValues
