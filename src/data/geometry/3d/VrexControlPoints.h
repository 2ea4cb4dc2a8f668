#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// Hidden: what the entities with control points do with them.
namespace nsControlPoint {

/// Whether a control point is another object than before, or was changed by the last solve.
inline bool isPointChanged(const VrexSpline3D::ControlPoint& now, const VrexSpline3D::ControlPoint& before) {
    return now.point != before.point ||
           (now.point != nullptr && now.point->getChangeStatus() == VrexGeometryChangeStatus::Changed);
}

/// Appends the points of a row of control points; nulls are left out.
inline void appendPoints(const std::vector<VrexSpline3D::ControlPoint>& controlPoints,
                         std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries) {
    for (const VrexSpline3D::ControlPoint& controlPoint : controlPoints) {
        if (controlPoint.point != nullptr) {
            geometries.push_back(controlPoint.point);
        }
    }
}

/// The columns of a net: the length of its first row, 0 without rows.
inline std::size_t countColumns(const std::vector<std::vector<VrexSpline3D::ControlPoint>>& rows) {
    return rows.empty() ? 0 : rows.front().size();
}

/// Rows times columns of a net.
inline std::size_t countPoints(const std::vector<std::vector<VrexSpline3D::ControlPoint>>& rows) {
    return rows.size() * countColumns(rows);
}

} // namespace nsControlPoint
