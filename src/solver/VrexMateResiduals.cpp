#include "solver/VrexMateResiduals.h"

#include <cmath>
#include <utility>

#include "data/constraint/3d/VrexMate3D.h"

namespace {

using nsMateResiduals::Degree;
using Vector = VrexSolverShape::Vector;

/// The second connector as the first one sees it.
struct Joint {
    const VrexSolverShape* first;
    const VrexSolverShape* second;
    double sense; ///< -1 where the Z axes point opposite ways.

    VrexVariable shift(Vector axis) const { return axis.dotProduct(second->origin() - first->origin()); }
    /// Zero where the Z axes agree, and without bounds where they are opposite, so that a search turns them
    /// the right way round.
    VrexVariable tilt(const Vector& axis) const {
        const Vector z = second->axisZ() * sense;
        constexpr double least = 1e-3;
        return axis.dotProduct(z) * 2.0 / (first->axisZ().dotProduct(z) + (1.0 + least));
    }
    VrexVariable twist() const {
        const Vector x = second->axisX();
        return atan2(first->axisY().dotProduct(x), first->axisX().dotProduct(x));
    }
    /// Through the sine or the cosine, whichever tells small changes.
    VrexVariable swing() const {
        const Vector a = first->axisZ();
        const Vector b = second->axisZ() * sense;
        const Vector cross = a.crossProduct(b);
        constexpr double least = 1e-12;
        if (cross.magnitudeSquared().value() < least * least) {
            return a.dotProduct(b).value() > 0.0 ? VrexVariable(0.0) : VrexVariable(M_PI);
        }
        return atan2(cross.magnitude(), a.dotProduct(b));
    }
    VrexVariable measure(Degree degree) const {
        switch (degree) {
        case Degree::SHIFT_X:
            return shift(first->axisX());
        case Degree::SHIFT_Y:
            return shift(first->axisY());
        case Degree::SHIFT_Z:
            return shift(first->axisZ());
        case Degree::TILT_X:
            return tilt(first->axisX());
        case Degree::TILT_Y:
            return tilt(first->axisY());
        case Degree::TWIST:
            return twist();
        case Degree::SWING:
            return swing();
        }
        return {};
    }
};

bool isShift(Degree degree) {
    return degree == Degree::SHIFT_X || degree == Degree::SHIFT_Y || degree == Degree::SHIFT_Z;
}

/// An angle that passes a half turn goes on growing: of its turns the one next to `known`.
VrexVariable nearTo(VrexVariable angle, double known) {
    constexpr double turn = 2.0 * M_PI;
    angle += turn * std::round((known - angle.value()) / turn);
    return angle;
}

/// The free degree as the mate counts it.
VrexSolverBuilder::Measure measureOf(const Joint& joint, Degree degree, double known) {
    return [joint, degree, known] {
        const VrexVariable value = joint.measure(degree);
        return degree == Degree::TWIST ? nearTo(value, known) : value;
    };
}

std::optional<Joint> jointOf(const VrexSolverBuilder& builder, const VrexMate3D& mate) {
    const auto& connectors = mate.getGeometries();
    if (connectors.size() < 2) {
        return std::nullopt;
    }
    const Joint joint{builder.shape(connectors[0]), builder.shape(connectors[1]),
                      mate.alignment() == VrexConstraintAlignment::Negative ? -1.0 : 1.0};
    return joint.first != nullptr && joint.second != nullptr ? std::optional(joint) : std::nullopt;
}

void addHeld(VrexSolverBuilder& builder, const Joint& joint, std::vector<Degree> held) {
    if (held.empty()) {
        return;
    }
    const std::size_t count = held.size();
    builder.add(count, [joint, held = std::move(held), length = builder.length()](VrexVariable* rows) {
        for (std::size_t i = 0; i < held.size(); ++i) {
            const VrexVariable value = joint.measure(held[i]);
            rows[i] = isShift(held[i]) ? value / length : value;
        }
    });
}

} // namespace

void nsMateResiduals::add(VrexSolverBuilder& builder, VrexMate3D& mate, std::vector<Degree> held,
                          const std::vector<Degree>& free) {
    const auto joint = jointOf(builder, mate);
    if (!joint.has_value()) {
        builder.refuse("A mate needs two connectors.");
        return;
    }
    addHeld(builder, *joint, std::move(held));
    for (std::size_t i = 0; i < free.size(); ++i) {
        VrexMateDimension3D& dimension = mate.getDimension(i);
        const auto measure = measureOf(*joint, free[i], dimension.value);
        const double unit = isShift(free[i]) ? builder.length() : 1.0;
        if (dimension.fixed()) {
            builder.addTarget(
                measure, [value = dimension.value] { return VrexVariable(value); }, unit);
        } else {
            builder.addLimits(dimension.limits, measure, unit);
        }
        builder.addResult([&dimension, measure] { dimension.value = measure().value(); });
    }
}
