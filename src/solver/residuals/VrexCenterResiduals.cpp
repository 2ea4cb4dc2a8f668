#include "solver/residuals/VrexCenterResiduals.h"

#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverDirections.h"

namespace {

using Vector = VrexSolverShape::Vector;

VrexGeometry3DType typeOf(const VrexConstraint3D& constraint, std::size_t index) {
    const auto known = std::dynamic_pointer_cast<VrexGeometry3D>(constraint.getGeometries()[index]);
    return known != nullptr ? known->type() : VrexGeometry3DType::UNKNOWN;
}

bool isPointLike(VrexGeometry3DType type) {
    return type == VrexGeometry3DType::POINT || type == VrexGeometry3DType::SPHERE;
}

bool hasCenter(VrexGeometry3DType type) {
    switch (type) {
        using enum VrexGeometry3DType;
    case POINT:
    case SPHERE:
    case CIRCLE:
    case CONE:
    case ELLIPSE:
    case TORUS:
        return true;
    default:
        return false;
    }
}

void write(const Vector& v, VrexVariable* rows) {
    rows[0] = v.x();
    rows[1] = v.y();
    rows[2] = v.z();
}

void addSamePoint(VrexSolverBuilder& builder, const VrexSolverShape& first, const VrexSolverShape& second) {
    builder.add(3, [&first, &second, length = builder.length()](VrexVariable* rows) {
        write((second.origin() - first.origin()) / length, rows);
    });
}

void addOnAxis(VrexSolverBuilder& builder, const VrexSolverShape& axis, const VrexSolverShape& point) {
    builder.add(2, [&axis, &point, length = builder.length()](VrexVariable* rows) {
        const Vector arm = (point.origin() - axis.origin()) / length;
        rows[0] = axis.axisX().dotProduct(arm);
        rows[1] = axis.axisY().dotProduct(arm);
    });
}

void addSameAxis(VrexSolverBuilder& builder, const VrexSolverShape& first, const VrexSolverShape& second,
                 VrexConstraintAlignment alignment) {
    const double cosine = first.frame().axes[2].dotProduct(second.frame().axes[2]);
    const double sense = nsSolverDirections::senseOf(alignment, cosine);
    builder.add(4, [&first, &second, sense, length = builder.length()](VrexVariable* rows) {
        const Vector direction = second.axisZ() * sense;
        const Vector arm = (second.origin() - first.origin()) / length;
        rows[0] = nsSolverDirections::tilt(first, direction, 0);
        rows[1] = nsSolverDirections::tilt(first, direction, 1);
        rows[2] = first.axisX().dotProduct(arm);
        rows[3] = first.axisY().dotProduct(arm);
    });
}

/// The entity by its centre or by its axis; the axis of a plane is none.
const VrexSolverShape* coreOf(const VrexSolverBuilder& builder, const VrexConstraint3D& constraint,
                              std::size_t index) {
    const auto& geometry = constraint.getGeometries()[index];
    const VrexGeometry3DType type = typeOf(constraint, index);
    if (isPointLike(type)) {
        return builder.shape(geometry);
    }
    const bool hasNone = type == VrexGeometry3DType::PLANE || type == VrexGeometry3DType::SWEEP_SURFACE;
    return hasNone ? nullptr : nsSolverDirections::directed(builder, geometry);
}

void addMidOfPoints(VrexSolverBuilder& builder, const VrexSolverShape& first, const VrexSolverShape& second,
                    const VrexSolverShape& middle) {
    builder.add(3, [&first, &second, &middle, length = builder.length()](VrexVariable* rows) {
        write((middle.origin() - (first.origin() + second.origin()) * 0.5) / length, rows);
    });
}

void addMidOfPlanes(VrexSolverBuilder& builder, const VrexSolverShape& first, const VrexSolverShape& second,
                    const VrexSolverShape& middle, VrexConstraintAlignment alignment) {
    const double cosine = first.frame().axes[2].dotProduct(second.frame().axes[2]);
    const double sense = nsSolverDirections::senseOf(alignment, cosine);
    builder.add(1, [&first, &second, &middle, sense, length = builder.length()](VrexVariable* rows) {
        const VrexVariable above = first.axisZ().dotProduct(middle.origin() - first.origin());
        const VrexVariable beyond = second.axisZ().dotProduct(middle.origin() - second.origin());
        rows[0] = (above + beyond * sense) * 0.5 / length;
    });
}

} // namespace

void nsCenterResiduals::add(VrexSolverBuilder& builder, VrexConcentricity3D& concentricity) {
    const bool hasTwo = concentricity.getGeometries().size() >= 2;
    const VrexSolverShape* const first = hasTwo ? coreOf(builder, concentricity, 0) : nullptr;
    const VrexSolverShape* const second = hasTwo ? coreOf(builder, concentricity, 1) : nullptr;
    if (first == nullptr || second == nullptr) {
        builder.refuse("What this constraint centres has neither centre nor axis.");
        return;
    }
    const bool isFirstPoint = isPointLike(typeOf(concentricity, 0));
    const bool isSecondPoint = isPointLike(typeOf(concentricity, 1));
    if (isFirstPoint && isSecondPoint) {
        addSamePoint(builder, *first, *second);
    } else if (isFirstPoint) {
        addOnAxis(builder, *second, *first);
    } else if (isSecondPoint) {
        addOnAxis(builder, *first, *second);
    } else {
        addSameAxis(builder, *first, *second, concentricity.alignment());
    }
}

void nsCenterResiduals::add(VrexSolverBuilder& builder, VrexIncidenceToCenter3D& incidence) {
    const auto& geometries = incidence.getGeometries();
    const bool hasTwo =
        geometries.size() >= 2 && hasCenter(typeOf(incidence, 0)) && hasCenter(typeOf(incidence, 1));
    const VrexSolverShape* const first = hasTwo ? builder.shape(geometries[0]) : nullptr;
    const VrexSolverShape* const second = hasTwo ? builder.shape(geometries[1]) : nullptr;
    if (first == nullptr || second == nullptr) {
        builder.refuse("What this constraint joins has no centre.");
        return;
    }
    addSamePoint(builder, *first, *second);
}

void nsCenterResiduals::add(VrexSolverBuilder& builder, VrexMidPoint3D& midPoint) {
    const auto& geometries = midPoint.getGeometries();
    const bool hasAll = geometries.size() >= 3;
    const VrexSolverShape* const first = hasAll ? builder.shape(geometries[0]) : nullptr;
    const VrexSolverShape* const second = hasAll ? builder.shape(geometries[1]) : nullptr;
    const VrexSolverShape* const middle = hasAll ? builder.shape(geometries[2]) : nullptr;
    const bool isKnown = first != nullptr && second != nullptr && middle != nullptr &&
                         typeOf(midPoint, 2) == VrexGeometry3DType::POINT &&
                         typeOf(midPoint, 0) == typeOf(midPoint, 1);
    if (isKnown && typeOf(midPoint, 0) == VrexGeometry3DType::POINT) {
        addMidOfPoints(builder, *first, *second, *middle);
    } else if (isKnown && typeOf(midPoint, 0) == VrexGeometry3DType::PLANE) {
        addMidOfPlanes(builder, *first, *second, *middle, midPoint.alignment());
    } else {
        builder.refuse("A middle is that of two points or of two planes.");
    }
}
