#include "solver/VrexDirectionResiduals.h"

#include <cmath>
#include <numbers>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "solver/VrexDimensionResiduals.h"
#include "solver/VrexSolverBuilder.h"
#include "solver/VrexSolverDirections.h"

namespace {

constexpr double TURN = 2.0 * std::numbers::pi;

struct Directions {
    const VrexSolverShape* first = nullptr;
    const VrexSolverShape* second = nullptr;

    double cosine() const { return first->frame().axes[2].dotProduct(second->frame().axes[2]); }
};

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
    return true;
}

void addParallel(VrexSolverBuilder& builder, const Directions& directions, double sense) {
    builder.add(2, [directions, sense](VrexVariable* rows) {
        const auto direction = directions.second->axisZ() * sense;
        rows[0] = nsSolverDirections::tilt(*directions.first, direction, 0);
        rows[1] = nsSolverDirections::tilt(*directions.first, direction, 1);
    });
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
    const Fold fold(angle.value());
    const double wanted = fold.fold(angle.value());
    const double cosine = std::clamp(directions.cosine(), -1.0, 1.0);
    const double sense = senseOf(angle, wanted, cosine);
    const auto measure = [directions, sense, fold] {
        const auto direction = directions.second->axisZ() * sense;
        return nsSolverDirections::angleTo(*directions.first, direction) * fold.sign + fold.shift;
    };
    const bool isNumber = builder.model().isNumber(angle);
    if (isNumber && isParallel(wanted)) {
        addParallel(builder, directions, wanted < 0.5 * std::numbers::pi ? sense : -sense);
        builder.addLimits(angle.getLimits(), measure, 1.0);
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
    nsDimensionResiduals::add(
        builder, angle,
        [measured, sense, value] { return nsSolverDirections::nearTo(measured() * sense, value); }, 1.0);
}

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexParallelism3D& parallelism) {
    Directions directions;
    if (read(builder, parallelism, directions)) {
        addParallel(builder, directions,
                    nsSolverDirections::senseOf(parallelism.alignment(), directions.cosine()));
    }
}

void nsDirectionResiduals::add(VrexSolverBuilder& builder, VrexPerpendicularity3D& perpendicularity) {
    Directions directions;
    if (read(builder, perpendicularity, directions)) {
        builder.add(1, [directions](VrexVariable* rows) {
            rows[0] = directions.first->axisZ().dotProduct(directions.second->axisZ());
        });
    }
}
