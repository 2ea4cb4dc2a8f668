#include "solver/VrexContactHelp.h"

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "solver/VrexParametricPath.h"

namespace {

using Point = VrexVector3DT<double>;
using Parameter = VrexVector2DT<double>;

std::optional<Parameter>& parameterOf(VrexConstraint3D& constraint, std::uint32_t number) {
    return number == 1 ? constraint.helpParam1() : constraint.helpParam2();
}

bool isHeld(const VrexConstraint3D& constraint, std::uint32_t number) {
    return number == 1 ? constraint.fixHelpParameter1() : constraint.fixHelpParameter2();
}

std::optional<Point> pointAt(VrexGeometry3D* entity, const Parameter& parameter) {
    if (auto* const curve = dynamic_cast<VrexParametricCurve3D*>(entity)) {
        return curve->evaluate(parameter.x(), 0).front();
    }
    auto* const surface = dynamic_cast<VrexParametricSurface3D*>(entity);
    return surface != nullptr ? std::optional(surface->evaluate(parameter.x(), parameter.y(), 0)[0])
                              : std::nullopt;
}

/// Whether a point of contact on what is bound runs by the entity's own parameters.
bool runsByParameters(const VrexConstraint3D& constraint, std::uint32_t number) {
    const auto entity = constraint.geometry(number);
    return entity != nullptr &&
           constraint.getGeomComponentType(number) == VrexGeometryComponentType::UNKNOWN &&
           (entity->type() == VrexGeometry3DType::ELLIPSE || nsParametricPath::isKnown(entity->type()));
}

} // namespace

VrexContactHelp VrexContactHelp::of(VrexConstraint3D& constraint, std::uint32_t number) {
    const auto& parameter = parameterOf(constraint, number);
    VrexContactHelp help;
    help.constraint = &constraint;
    help.number = number;
    help.point = number == 1 ? constraint.helpPoint1() : constraint.helpPoint2();
    if (!parameter.has_value()) {
        return help;
    }
    if (!help.point.has_value()) {
        help.point = pointAt(constraint.geometry(number).get(), *parameter);
    }
    if (runsByParameters(constraint, number)) {
        help.parameter = parameter;
        help.isHeld = ::isHeld(constraint, number);
    }
    return help;
}

bool VrexContactHelp::asksTooMuch(VrexConstraint3D& constraint) {
    for (const std::uint32_t number : {1U, 2U}) {
        const bool canHold =
            parameterOf(constraint, number).has_value() && runsByParameters(constraint, number);
        if (::isHeld(constraint, number) && !canHold) {
            return true;
        }
    }
    return false;
}

void VrexContactHelp::write(const std::array<double, 2>& values, std::size_t count) const {
    Parameter& parameter = parameterOf(*constraint, number).value();
    parameter.x() = values[0];
    if (count == 2) {
        parameter.y() = values[1];
    }
}
