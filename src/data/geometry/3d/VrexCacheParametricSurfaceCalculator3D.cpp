#include "data/geometry/3d/VrexCacheParametricSurfaceCalculator3D.h"

#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"
#include "data/geometry/3d/VrexCacheBuckets.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

VrexCacheParametricSurfaceCalculator3D::VrexCacheParametricSurfaceCalculator3D(
    std::shared_ptr<VrexParametricSurfaceCalculator3D> calculator, double tolerance)
    : m_calculator(std::move(calculator)),
      m_samples(nsCalculator::CACHE_BUCKETS, VrexParameterHash{}, IsNear{tolerance}),
      m_normals(nsCalculator::CACHE_BUCKETS, VrexParameterHash{}, IsNear{tolerance}) {
    if (m_calculator == nullptr) {
        VREX_RAISE(std::invalid_argument, "A cache needs a calculator.");
    }
}

VrexCacheParametricSurfaceCalculator3D::Entry&
VrexCacheParametricSurfaceCalculator3D::findSample(const Key& key) const {
    if (!isFindable(key)) {
        m_unfindable = Entry{};
        return m_unfindable;
    }
    return m_samples[key];
}

const VrexSurfaceSample<VrexVector3DT<double>>&
VrexCacheParametricSurfaceCalculator3D::calculate(double u, double v, int order) const {
    Entry& entry = findSample({u, v});
    if (entry.order < order) {
        // Into the entry only when it succeeded: a throw must not leave a zero sample marked as valid.
        entry.sample = m_calculator->calculate(u, v, order);
        entry.order = order;
    }
    return entry.sample;
}

const VrexVector3DT<double>& VrexCacheParametricSurfaceCalculator3D::calculateNormal(double u,
                                                                                     double v) const {
    const Key key(u, v);
    const auto known = m_normals.find(key);
    if (known != m_normals.end()) {
        return known->second;
    }
    const VrexVector3DT<double> normal = m_calculator->calculateNormal(u, v);
    if (!isFindable(key)) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::UNORDERED_MAP_KEY);
    }
    return m_normals.emplace(key, normal).first->second;
}
