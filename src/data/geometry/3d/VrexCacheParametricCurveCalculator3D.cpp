#include "data/geometry/3d/VrexCacheParametricCurveCalculator3D.h"

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCacheBuckets.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

VrexCacheParametricCurveCalculator3D::VrexCacheParametricCurveCalculator3D(
    std::shared_ptr<VrexParametricCurveCalculator3D> calculator)
    : m_calculator(std::move(calculator)), m_entries(nsCalculator::CACHE_BUCKETS) {
    if (m_calculator == nullptr) {
        VREX_RAISE(std::invalid_argument, "A cache needs a calculator.");
    }
}

VrexCacheParametricCurveCalculator3D::Derivatives&
VrexCacheParametricCurveCalculator3D::find(double t) const {
    if (std::isnan(t)) {
        m_unfindable.clear();
        return m_unfindable;
    }
    return m_entries[t];
}

const std::vector<VrexVector3DT<double>>& VrexCacheParametricCurveCalculator3D::calculate(double t,
                                                                                          int order) const {
    Derivatives& entry = find(t);
    if (static_cast<std::int64_t>(entry.size()) <= order) {
        entry = m_calculator->calculate(t, order);
    }
    return entry;
}

double VrexCacheParametricCurveCalculator3D::curvature(double t) const {
    const Derivatives& derivatives = calculate(t, 2);
    const VrexVector3DT<double>& first = derivatives[1];
    const VrexVector3DT<double>& second = derivatives[2];
    return first.crossProduct(second).magnitude() / (first.magnitudeSquared() * first.magnitude());
}
