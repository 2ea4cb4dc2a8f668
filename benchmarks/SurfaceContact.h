#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/graph/VrexConnectedComponent.h"

/// A point at a distance from a wavy bicubic surface whose control points are free too.
class SurfaceContact {
public:
    SurfaceContact() : m_surface(numbered(VrexNURBSSurface3D::create(options()))) {
        const auto point = numbered(VrexPoint3D::create(0.4 * SIDE, 0.5 * SIDE, 2.0));
        m_component->addGeometry(m_surface);
        m_component->addGeometry(point);
        constexpr auto whole = VrexGeometryComponentType::UNKNOWN;
        m_component->addConstraint(numbered(VrexDistance3D::create(point, m_surface, 0.7, whole, whole)));
    }

    const std::shared_ptr<VrexConnectedComponent>& component() const { return m_component; }
    const VrexNURBSSurface3D& surface() const { return *m_surface; }

private:
    static constexpr int SIDE = 8;

    VrexNURBSSurface3D::VrexNURBSOptions options() {
        const std::vector<double> knots{0, 0, 0, 0, 1, 2, 3, 4, 5, 5, 5, 5};
        VrexNURBSSurface3D::VrexNURBSOptions result{3, 3, knots, knots, {}};
        for (int i = 0; i < SIDE; ++i) {
            auto& row = result.controlPoints.emplace_back();
            for (int j = 0; j < SIDE; ++j) {
                row.emplace_back(controlPoint(i, j), 1.0 + 0.1 * ((i + j) % 3));
            }
        }
        return result;
    }
    std::shared_ptr<VrexPoint3D> controlPoint(int i, int j) {
        auto point = numbered(VrexPoint3D::create(i, j, 0.3 * std::sin(1.3 * i) * std::cos(0.9 * j)));
        m_component->addGeometry(point);
        return point;
    }
    template <class Object>
    std::shared_ptr<Object> numbered(std::shared_ptr<Object> object) {
        object->setID(++m_lastId);
        return object;
    }

    std::uint64_t m_lastId = 0;
    std::shared_ptr<VrexConnectedComponent> m_component = std::make_shared<VrexConnectedComponent>();
    std::shared_ptr<VrexNURBSSurface3D> m_surface;
};
