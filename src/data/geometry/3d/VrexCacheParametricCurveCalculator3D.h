#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParameterHash.h"

class VrexParametricCurveCalculator3D;

/// Remembers what a calculator returned at each parameter of a curve.
///
/// A cache belongs to one state of its curve: nothing invalidates it, and the owner makes a new one when the
/// curve changes. It only grows. A copy takes the entries along. Constant members write to the cache without
/// a lock, so one thread at a time.
class VREX_DATA_EXPORT VrexCacheParametricCurveCalculator3D {
public:
    /// Throws `std::invalid_argument` without a calculator.
    explicit VrexCacheParametricCurveCalculator3D(
        std::shared_ptr<VrexParametricCurveCalculator3D> calculator);

    /// The point at `t` and at least `order` derivatives: an earlier request of a higher order is returned in
    /// full length. A hit allocates nothing. The reference is good until a higher order is asked at this
    /// parameter. A NaN is no key and is evaluated at each call.
    const std::vector<VrexVector3DT<double>>& calculate(double t, int order) const;
    /// |d1 x d2| / |d1|^3 with the first two derivatives by t; not finite where the first one vanishes.
    double curvature(double t) const;

private:
    using Derivatives = std::vector<VrexVector3DT<double>>;

    Derivatives& find(double t) const;

    std::shared_ptr<VrexParametricCurveCalculator3D> m_calculator;
    mutable std::unordered_map<double, Derivatives, VrexParameterHash> m_entries;
    mutable Derivatives m_unfindable; ///< Serves the parameters that equal no key.
};
