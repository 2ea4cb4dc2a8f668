#include "solver/model/VrexSolverDirections.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/model/VrexSolverBuilder.h"

namespace {

/// Below this the sine of an angle says nothing about a direction.
constexpr double LEAST_SINE = 1e-12;

constexpr double TURN = 2.0 * std::numbers::pi;
constexpr double INFINITE = std::numeric_limits<double>::infinity();

bool hasDirection(VrexGeometry3DType type) {
    switch (type) {
        using enum VrexGeometry3DType;
    case LINE:
    case PLANE:
    case CYLINDER:
    case CIRCLE:
    case CONE:
    case ELLIPSE:
    case TORUS:
        return true;
    default:
        return false;
    }
}

} // namespace

const VrexSolverShape* nsSolverDirections::directed(const VrexSolverBuilder& builder,
                                                    const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (const auto spin = std::dynamic_pointer_cast<VrexSpinSurface3D>(geometry)) {
        return builder.shape(spin->getAxisLine());
    }
    if (const auto sweep = std::dynamic_pointer_cast<VrexSweepSurface3D>(geometry)) {
        return builder.shape(sweep->getTrajectoryLine());
    }
    const auto known = std::dynamic_pointer_cast<VrexGeometry3D>(geometry);
    return known != nullptr && hasDirection(known->type()) ? builder.shape(geometry) : nullptr;
}

double nsSolverDirections::senseOf(VrexConstraintAlignment alignment, double cosine) {
    switch (alignment) {
    case VrexConstraintAlignment::Positive:
        return 1.0;
    case VrexConstraintAlignment::Negative:
        return -1.0;
    default:
        return cosine < 0.0 ? -1.0 : 1.0;
    }
}

double nsSolverDirections::sideOf(VrexConstraintOrientation orientation, double height) {
    switch (orientation) {
    case VrexConstraintOrientation::Positive:
        return 1.0;
    case VrexConstraintOrientation::Negative:
        return -1.0;
    default:
        return height < 0.0 ? -1.0 : 1.0;
    }
}

VrexVariable nsSolverDirections::nearTo(VrexVariable angle, double known) {
    angle += TURN * std::round((known - angle.value()) / TURN);
    return angle;
}

VrexVariable nsSolverDirections::within(const VrexDimensionLimits& limits, const VrexVariable& angle,
                                        double known) {
    VrexVariable result = nearTo(angle, known);
    const double low = limits.first.value_or(-INFINITE);
    const double high = limits.second.value_or(INFINITE);
    if (high - low >= TURN && low <= known && known <= high) {
        return result;
    }
    const double excess = std::max(low - result.value(), result.value() - high);
    if (!(excess > 0.0 && std::isfinite(excess))) {
        return result;
    }
    // Short of the limit by less than a turn, or past it and perhaps beyond the other one.
    const double turns = std::ceil(excess / TURN);
    const double shortBy = excess - (turns - 1.0) * TURN;
    const double beyondBy = TURN - shortBy - (high - low);
    const double way = result.value() < low ? TURN : -TURN;
    result += way * (beyondBy < shortBy ? turns : turns - 1.0);
    return result;
}

VrexVariable nsSolverDirections::tilt(const VrexSolverShape& shape, const Vector& direction, int index) {
    const VrexVariable along = shape.axisZ().dotProduct(direction);
    const VrexVariable component = (index == 0 ? shape.axisX() : shape.axisY()).dotProduct(direction);
    if (along.value() > 0.0) {
        return component * 2.0 / (along + 1.0);
    }
    VrexVariable across = shape.axisX().dotProduct(direction);
    const VrexVariable aside = shape.axisY().dotProduct(direction);
    // Opposite, where no way round is shorter than another, one is chosen.
    constexpr double least = 1e-3;
    if (std::hypot(across.value(), aside.value()) < least) {
        across += across.value() < 0.0 ? -least : least;
    }
    const VrexVariable sine = hypot(across, aside);
    return (index == 0 ? across : aside) / sine * (atan2(-along, sine) + 1.0) * 2.0;
}

VrexVariable nsSolverDirections::angleTo(const VrexSolverShape& shape, const Vector& direction) {
    const VrexVariable across = shape.axisX().dotProduct(direction);
    const VrexVariable aside = shape.axisY().dotProduct(direction);
    const VrexVariable along = shape.axisZ().dotProduct(direction);
    if (std::hypot(across.value(), aside.value()) < LEAST_SINE) {
        return along.value() > 0.0 ? across : std::numbers::pi - across;
    }
    return atan2(hypot(across, aside), along);
}

VrexVariable nsSolverDirections::angleAbout(const Vector& axis, const Vector& from, const Vector& to) {
    const VrexVariable sine = Vector::mixedProduct(from, to, axis);
    const VrexVariable cosine = from.dotProduct(to) - from.dotProduct(axis) * to.dotProduct(axis);
    if (std::hypot(sine.value(), cosine.value()) < LEAST_SINE) {
        return {};
    }
    return atan2(sine, cosine);
}
