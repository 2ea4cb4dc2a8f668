#include "solver/contacts/VrexContactHelp.h"

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/contacts/VrexParametricPath.h"

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

/// Whether parameters of the entity begin at a place of its own; those about an axis alone do not.
bool hasOwnParameters(VrexGeometry3D* entity) {
    if (const auto* const spin = dynamic_cast<const VrexSpinSurface3D*>(entity)) {
        return hasOwnParameters(spin->getProfileCurve().get());
    }
    if (const auto* const sweep = dynamic_cast<const VrexSweepSurface3D*>(entity)) {
        return hasOwnParameters(sweep->getProfileCurve().get());
    }
    return entity != nullptr &&
           (entity->type() == VrexGeometry3DType::ELLIPSE || nsParametricPath::isKnown(entity->type()));
}

/// Whether a point of contact on what is bound runs by them.
bool runsByParameters(const VrexConstraint3D& constraint, std::uint32_t number) {
    return constraint.getGeomComponentType(number) == VrexGeometryComponentType::UNKNOWN &&
           hasOwnParameters(constraint.geometry(number).get());
}

} // namespace

VrexContactHelp VrexContactHelp::of(VrexConstraint3D& constraint, std::uint32_t number) {
    const auto& given = parameterOf(constraint, number);
    VrexContactHelp help;
    help.constraint = &constraint;
    help.number = number;
    help.point = number == 1 ? constraint.helpPoint1() : constraint.helpPoint2();
    if (!given.has_value()) {
        return help;
    }
    if (!help.point.has_value()) {
        help.point = pointAt(constraint.geometry(number).get(), *given);
    }
    if (runsByParameters(constraint, number)) {
        help.parameter = given;
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
    Parameter& solved = parameterOf(*constraint, number).value();
    solved.x() = values[0];
    if (count == 2) {
        solved.y() = values[1];
    }
}
