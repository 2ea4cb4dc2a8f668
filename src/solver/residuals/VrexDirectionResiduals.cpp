#include "solver/residuals/VrexDirectionResiduals.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexDirectionRows.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverDirections.h"
#include "solver/residuals/VrexDimensionResiduals.h"

namespace {

constexpr double TURN = 2.0 * std::numbers::pi;

/// Two directions, and whether they are those of a plane and of what runs straight, so that being parallel
/// and being perpendicular change places.
struct Directions {
    const VrexSolverShape* first = nullptr;
    const VrexSolverShape* second = nullptr;
    bool isCrossed = false;

    double cosine() const { return first->frame().axes[2].dotProduct(second->frame().axes[2]); }
};

VrexGeometry3DType typeOf(const VrexBaseGeometry& geometry) {
    const auto* const known = dynamic_cast<const VrexGeometry3D*>(&geometry);
    return known != nullptr ? known->type() : VrexGeometry3DType::UNKNOWN;
}

bool runsStraight(VrexGeometry3DType type) {
    switch (type) {
        using enum VrexGeometry3DType;
    case LINE:
    case CYLINDER:
    case CONE:
    case SPIN_SURFACE:
    case SWEEP_SURFACE:
        return true;
    default:
        return false;
    }
}

bool isCrossed(VrexGeometry3DType first, VrexGeometry3DType second) {
    return (first == VrexGeometry3DType::PLANE && runsStraight(second)) ||
           (second == VrexGeometry3DType::PLANE && runsStraight(first));
}

/// The first two entities; refuses and says false where either has no direction.
bool read(VrexSolverBuilder& builder, const VrexConstraint3D& constraint, Directions& directions) {
    const auto& geometries = constraint.getGeometries();
    if (geometries.size() >= 2) {
        directions.first = nsSolverDirections::directed(builder, geometries[0]);
        directions.second = nsSolverDirections::directed(builder, geometries[1]);
    }
    if (directions.first == nullptr || directions.second == nullptr) {
        builder.refuse("What this constraint compares has no direction.");
        return false;
    }
    directions.isCrossed = isCrossed(typeOf(*geometries[0]), typeOf(*geometries[1]));
    return true;
}

void addParallel(VrexSolverBuilder& builder, const VrexConstraint& constraint, const Directions& directions) {
    nsDirectionRows::addParallel(builder, constraint, *directions.first, *directions.second);
}

void addPerpendicular(VrexSolverBuilder& builder, const Directions& directions) {
    nsDirectionRows::addPerpendicular(builder, *directions.first, *directions.second);
}

/// An angle of vectors has no sign and is at most a half turn; a value that is beyond counts it in another
/// way: value = sign * angle + shift.
struct Fold {
    explicit Fold(double value)
        : sign(std::remainder(value, TURN) < 0.0 ? -1.0 : 1.0), shift(value - std::remainder(value, TURN)) {}
    double sign;
    double shift;

    double fold(double value) const { return sign * (value - shift); }
};

double senseOf(const VrexAngle3D& angle, double wanted, double cosine) {
    switch (angle.alignment()) {
    case VrexConstraintAlignment::Negative:
        return -1.0;
    case VrexConstraintAlignment::Any:
        return std::abs(std::acos(-cosine) - wanted) < std::abs(std::acos(cosine) - wanted) ? -1.0 : 1.0;
    default:
        return 1.0;
    }
}

/// At 0 and at a half turn the angle has no derivative, and holding it takes two degrees of freedom.
bool isParallel(double angle) { return std::sin(angle) < 1e-9; }

} // namespace

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexAngle3D& angle) {
    Directions directions;
    if (!read(builder, angle, directions)) {
        return;
    }
    // Above a plane an angle is what is missing to a right one from its normal.
    const double turned = directions.isCrossed ? -1.0 : 1.0;
    const double offset = directions.isCrossed ? 0.5 * std::numbers::pi : 0.0;
    const Fold fold(offset + turned * angle.value());
    const double wanted = fold.fold(offset + turned * angle.value());
    const double sense = senseOf(angle, wanted, std::clamp(directions.cosine(), -1.0, 1.0));
    const auto measure = [directions, sense, fold, turned, offset] {
        const auto direction = directions.second->axisZ() * sense;
        const VrexVariable between = nsSolverDirections::angleTo(*directions.first, direction);
        return (between * fold.sign + (fold.shift - offset)) * turned;
    };
    if (builder.model().isNumber(angle) && isParallel(wanted)) {
        nsDirectionRows::addParallel(builder, wanted < 0.5 * std::numbers::pi ? sense : -sense,
                                     *directions.first, *directions.second);
        nsDimensionResiduals::add(builder, angle, {}, 1.0);
        return;
    }
    nsDimensionResiduals::add(builder, angle, measure, 1.0);
}

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexPlanarAngle3D& angle) {
    Directions directions;
    if (!read(builder, angle, directions)) {
        return;
    }
    const auto& geometries = angle.getGeometries();
    const VrexSolverShape* const third =
        geometries.size() >= 3 ? nsSolverDirections::directed(builder, geometries[2]) : nullptr;
    if (third == nullptr) {
        builder.refuse("What this angle is measured about has no direction.");
        return;
    }
    const auto measured = [directions, third] {
        return nsSolverDirections::angleAbout(third->axisZ(), directions.first->axisZ(),
                                              directions.second->axisZ());
    };
    const double value = angle.value();
    const double now = measured().value();
    double sense = 1.0;
    if (angle.orientation() == VrexConstraintOrientation::Negative) {
        sense = -1.0;
    } else if (angle.orientation() != VrexConstraintOrientation::Positive) {
        const auto missing = [&](double way) { return std::abs(std::remainder(way * now - value, TURN)); };
        sense = missing(-1.0) < missing(1.0) ? -1.0 : 1.0;
    }
    const auto wanted = nsDimensionResiduals::valueOf(builder, angle);
    nsDimensionResiduals::add(
        builder, angle,
        [measured, sense, wanted] {
            return nsSolverDirections::nearTo(measured() * sense, wanted().value());
        },
        1.0);
}

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexParallelism3D& parallelism) {
    Directions directions;
    if (read(builder, parallelism, directions)) {
        directions.isCrossed ? addPerpendicular(builder, directions)
                             : addParallel(builder, parallelism, directions);
    }
}

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexPerpendicularity3D& perpendicularity) {
    Directions directions;
    if (read(builder, perpendicularity, directions)) {
        directions.isCrossed ? addParallel(builder, perpendicularity, directions)
                             : addPerpendicular(builder, directions);
    }
}
