#pragma once

#include <string>
#include <vector>

#include "data/base/VrexErrorCode.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

/// A second, slow statement of what the validator of constraint requests admits, in words and by search, for
/// geometries that are present and have identifiers of their own.
namespace nsPreValidatorModel {

using Types = std::vector<VrexGeometry3DType>;

struct Verdict {
    VrexErrorCode code = VrexErrorCode::VREX_NO_ERROR; ///< `VREX_NO_ERROR`: accepted.
    std::string text;
    unsigned level = 2; ///< Of the line in the log.

    bool accepted() const { return code == VrexErrorCode::VREX_NO_ERROR; }
};

Verdict constraint(VrexConstraint3DType kind, const Types& types, VrexGeometryComponentType component1,
                   VrexGeometryComponentType component2);
Verdict fixation(VrexFixation3DType kind, VrexGeometry3DType type);
Verdict component(VrexGeometry3DType type, VrexGeometryComponentType component);
/// As which kind a component is matched.
VrexGeometry3DType converted(VrexGeometry3DType type, VrexGeometryComponentType component);

/// The whole message of a recorder of solver 7 without a trace.
std::string recorded(const Verdict& verdict);

/// How many combinations each list has, and how many it is said to have.
struct ListSize {
    const char* kind;
    std::size_t parsed;
    std::size_t stated;
};
std::vector<ListSize> listSizes();

} // namespace nsPreValidatorModel
