#pragma once

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// Hidden: takes the control points of a geometry that are in `shared` out of it, and puts them back at the
/// end of the scope, thrown or not: whoever writes the geometry meanwhile leaves them alone.
class VrexSharedPointsAside {
public:
    using Shared = std::unordered_set<std::shared_ptr<VrexGeometry3D>>;

    // Delegates, so that what is out already comes back where there is no memory for the rest.
    VrexSharedPointsAside(VrexGeometry3D& geometry, const Shared& shared) : VrexSharedPointsAside() {
        if (auto* const spline = dynamic_cast<VrexSpline3D*>(&geometry)) {
            takeOut(spline->controlPoints(), shared);
        } else if (auto* const surface = dynamic_cast<VrexNURBSSurface3D*>(&geometry)) {
            for (auto& row : surface->controlPoints()) {
                takeOut(row, shared);
            }
        }
    }
    VrexSharedPointsAside(const VrexSharedPointsAside&) = delete;
    VrexSharedPointsAside& operator=(const VrexSharedPointsAside&) = delete;
    ~VrexSharedPointsAside() {
        for (auto& [place, point] : m_aside) {
            *place = std::move(point);
        }
    }

private:
    using Point = std::shared_ptr<VrexPoint3D>;

    VrexSharedPointsAside() = default;

    void takeOut(std::vector<VrexSpline3D::ControlPoint>& row, const Shared& shared) {
        for (VrexSpline3D::ControlPoint& controlPoint : row) {
            if (shared.contains(controlPoint.point)) {
                m_aside.emplace_back(&controlPoint.point, controlPoint.point);
                controlPoint.point.reset();
            }
        }
    }

    std::vector<std::pair<Point*, Point>> m_aside;
};
