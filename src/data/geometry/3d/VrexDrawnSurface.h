#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/VrexBaseGeometry.h"
#include "data/VrexCastList.h"
#include "data/VrexVariable.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"

/// Hidden: what the surfaces share that draw a profile curve about or along a line. Either may be null.
namespace nsDrawn {

inline int dofOf(const std::shared_ptr<VrexParametricCurve3D>& profile,
                 const std::shared_ptr<VrexLine3D>& line) {
    return (profile != nullptr ? profile->dof() : 0) + (line != nullptr ? line->dof() : 0);
}

/// The profile, then the line.
inline std::vector<std::shared_ptr<VrexBaseGeometry>>
geometriesOf(const std::shared_ptr<VrexParametricCurve3D>& profile, const std::shared_ptr<VrexLine3D>& line) {
    return keepOnly<VrexBaseGeometry>(std::vector<std::shared_ptr<VrexBaseGeometry>>{profile, line});
}

inline std::pair<std::optional<double>, std::optional<double>>
intervalOf(const std::shared_ptr<VrexParametricCurve3D>& profile) {
    if (profile == nullptr) {
        return {};
    }
    return profile->interval();
}

inline bool isMarkedChanged(const std::shared_ptr<const VrexBaseGeometry>& geometry) {
    return geometry != nullptr && geometry->getChangeStatus() == VrexGeometryChangeStatus::Changed;
}

/// Throws `std::invalid_argument` for a list with fewer parameters than the profile's calculator and the line
/// read together. Where it is a spline or evaluated, the profile has other ones than its own slots.
void requireParameters(const std::vector<VrexVariable>& parameters, const VrexParametricCurve3D& profile);

/// Where the slots of the line begin in a list of parameters that ends with them.
inline int firstLineSlot(const std::vector<VrexVariable>& parameters) {
    return static_cast<int>(parameters.size()) - VrexLine3D::PARAMETERS_AMOUNT;
}

} // namespace nsDrawn
