#include "tools/vrex/VrexObjectNames.h"

#include <fmt/format.h>

#include "data/VrexBaseObject.h"
#include "data/VrexEnumTable.h"
#include "data/VrexObjectType.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"

std::string_view nsVrexObjectNames::kindOf(const VrexBaseObject& object) {
    if (const auto* const geometry = dynamic_cast<const VrexGeometry3D*>(&object)) {
        return nsEnum::toText(geometry->type());
    }
    if (const auto* const constraint = dynamic_cast<const VrexConstraint3D*>(&object)) {
        return nsEnum::toText(constraint->type());
    }
    if (object.baseType() == VrexObjectType::Variable) {
        return "Variable";
    }
    return dynamic_cast<const VrexExpressionEquation*>(&object) != nullptr ? "ExpressionEquation"
                                                                           : "CallbackEquation";
}

std::string nsVrexObjectNames::nameOf(const VrexBaseObject& object) {
    return nameOf(kindOf(object), object.label(), std::to_string(object.getID()));
}

std::string nsVrexObjectNames::nameOf(std::string_view kind, std::string_view label, std::string_view id) {
    std::string name(kind);
    if (!label.empty()) {
        name += fmt::format(" \"{}\"", label);
    }
    if (!id.empty()) {
        name += fmt::format(" (id {})", id);
    }
    return name;
}

std::string nsVrexObjectNames::countOf(std::size_t count, std::string_view one, std::string_view several) {
    return fmt::format("{} {}", count, count == 1 ? one : several);
}
