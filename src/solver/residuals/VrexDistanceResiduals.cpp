#include "solver/residuals/VrexDistanceResiduals.h"

#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>

#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexContactGap.h"
#include "solver/contacts/VrexContactHelp.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverDirections.h"
#include "solver/residuals/VrexDimensionResiduals.h"

namespace {

using Vector = VrexSolverShape::Vector;

void addAlong(VrexSolverBuilder& builder, const VrexDimension3D& distance,
              const std::function<Vector()>& direction) {
    const VrexSolverShape* const first = builder.shape(distance.geometry(1));
    const VrexSolverShape* const second = builder.shape(distance.geometry(2));
    if (first == nullptr || second == nullptr) {
        builder.refuse("A distance along a direction needs two points.");
        return;
    }
    const auto advance = [first, second, direction] {
        return direction().dotProduct(second->origin() - first->origin());
    };
    const double side = nsSolverDirections::sideOf(distance.orientation(), advance().value());
    nsDimensionResiduals::add(
        builder, distance, [advance, side] { return advance() * side; }, builder.length());
}

} // namespace

void nsDistanceResiduals::add(VrexSolverBuilder& builder, VrexDistance3D& distance) {
    if (VrexContactHelp::asksTooMuch(distance)) {
        builder.refuse("A help parameter that is held is not supported.");
        return;
    }
    const auto first = VrexSolverCore::of(builder, distance.geometry(1), distance.getGeomComponentType(1));
    const auto second = VrexSolverCore::of(builder, distance.geometry(2), distance.getGeomComponentType(2));
    if (!first.has_value() || !second.has_value()) {
        builder.refuse("A distance from such an entity is not supported.");
        return;
    }
    const bool isTouch = nsDimensionResiduals::isAlwaysZero(builder, distance);
    const auto gap = VrexContactGap(builder, distance, *first, *second, isTouch).build();
    nsDimensionResiduals::add(builder, distance, gap, builder.length());
}

void nsDistanceResiduals::add(VrexSolverBuilder& builder, VrexDirectionDistance3D& distance) {
    const auto direction = distance.getDirectionVector();
    const double length = direction.magnitude();
    if (!(length > 0.0 && std::isfinite(length))) {
        throw std::invalid_argument(std::string("DirectionDistance3D ")
                                        .append(std::to_string(distance.getID()))
                                        .append(" has a direction without length."));
    }
    addAlong(builder, distance,
             [unit = nsContactFormulas::constant(direction / length)] { return Vector(unit); });
}

void nsDistanceResiduals::add(VrexSolverBuilder& builder, VrexParallelDistance3D& distance) {
    const VrexSolverShape* const direction =
        nsSolverDirections::directed(builder, distance.getDirectionGeometry());
    if (direction == nullptr) {
        builder.refuse("The direction of such an entity is not supported.");
        return;
    }
    addAlong(builder, distance, [direction] { return direction->axisZ(); });
}
