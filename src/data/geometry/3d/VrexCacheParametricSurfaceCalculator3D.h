#pragma once

#include <cmath>
#include <memory>
#include <unordered_map>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParameterHash.h"
#include "data/geometry/3d/VrexSurfaceSample.h"

class VrexParametricSurfaceCalculator3D;

/// Remembers what a calculator returned at each pair of parameters of a surface.
///
/// Two pairs are one key when each coordinate differs by strictly less than the tolerance and both fall into
/// one bucket of the table, which goes by the exact numbers: the tolerance does not widen the search. With a
/// tolerance of 0 nothing is ever found again.
///
/// A cache belongs to one state of its surface: nothing invalidates it, and the owner makes a new one when
/// the surface changes. It only grows. A copy takes the entries along. Constant members write to the cache
/// without a lock, so one thread at a time.
class VREX_DATA_EXPORT VrexCacheParametricSurfaceCalculator3D {
public:
    /// Throws `std::invalid_argument` without a calculator.
    VrexCacheParametricSurfaceCalculator3D(std::shared_ptr<VrexParametricSurfaceCalculator3D> calculator,
                                           double tolerance);

    /// The sample at (u, v), of at least `order`. A hit allocates nothing. The reference is good until a
    /// higher order is asked at these parameters. Parameters that equal no key, such as a NaN, are evaluated
    /// at each call.
    const VrexSurfaceSample<VrexVector3DT<double>>& calculate(double u, double v, int order) const;
    /// The calculator's normal at (u, v); the reference stays good. Throws `std::out_of_range` for parameters
    /// that equal no key, such as a NaN.
    const VrexVector3DT<double>& calculateNormal(double u, double v) const;

private:
    using Key = VrexVector2DT<double>;
    struct IsNear {
        double tolerance;
        bool operator()(const Key& a, const Key& b) const noexcept {
            return std::fabs(a.x() - b.x()) < tolerance && std::fabs(a.y() - b.y()) < tolerance;
        }
    };
    struct Entry {
        int order = -1; ///< -1 before anything was evaluated.
        VrexSurfaceSample<VrexVector3DT<double>> sample;
    };

    bool isFindable(const Key& key) const { return m_samples.key_eq()(key, key); }
    Entry& findSample(const Key& key) const;

    std::shared_ptr<VrexParametricSurfaceCalculator3D> m_calculator;
    mutable std::unordered_map<Key, Entry, VrexParameterHash, IsNear> m_samples;
    mutable std::unordered_map<Key, VrexVector3DT<double>, VrexParameterHash, IsNear> m_normals;
    mutable Entry m_unfindable; ///< Serves the parameters that equal no key.
};
