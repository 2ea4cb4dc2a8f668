#include "solver/residuals/VrexMateResiduals.h"

#include <cmath>
#include <utility>

#include "data/constraint/3d/VrexMate3D.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/model/VrexSolverDirections.h"
#include "solver/model/VrexSolverNames.h"

namespace {

using nsMateResiduals::Degree;
using Vector = VrexSolverShape::Vector;

bool isShift(Degree degree) {
    return degree == Degree::SHIFT_X || degree == Degree::SHIFT_Y || degree == Degree::SHIFT_Z;
}

/// The second connector as the first one sees it.
struct Joint {
    const VrexSolverShape* first;
    const VrexSolverShape* second;
    double sense; ///< -1 where the Z axes point opposite ways.

    /// Both origins as seen from where the first one is now, in units. Apart from each other they have the
    /// derivatives of one body each, which a number holds without an allocation.
    struct Arms {
        Vector first;
        Vector second;
    };
    Arms arms(double unit) const {
        const Vector origin = first->origin();
        const Vector place = nsContactFormulas::constant(nsContactFormulas::valueOf(origin));
        return {(origin - place) / unit, (second->origin() - place) / unit};
    }
    Vector axisOf(Degree shift) const {
        return shift == Degree::SHIFT_X   ? first->axisX()
               : shift == Degree::SHIFT_Y ? first->axisY()
                                          : first->axisZ();
    }
    VrexVariable shift(Degree degree, const Arms& arms) const {
        const Vector axis = axisOf(degree);
        VrexVariable result = axis.dotProduct(arms.second);
        result -= axis.dotProduct(arms.first);
        return result;
    }
    VrexVariable tilt(int index) const {
        return nsSolverDirections::tilt(*first, second->axisZ() * sense, index);
    }
    VrexVariable twist() const {
        const Vector x = second->axisX();
        return atan2(first->axisY().dotProduct(x), first->axisX().dotProduct(x));
    }
    VrexVariable swing() const { return nsSolverDirections::angleTo(*first, second->axisZ() * sense); }
    VrexVariable turn(Degree degree) const {
        switch (degree) {
        case Degree::TILT_X:
            return tilt(0);
        case Degree::TILT_Y:
            return tilt(1);
        case Degree::TWIST:
            return twist();
        case Degree::SWING:
            return swing();
        default:
            return {};
        }
    }
    VrexVariable measure(Degree degree) const {
        return isShift(degree) ? shift(degree, arms(1.0)) : turn(degree);
    }
};

/// An angle is the same one a whole turn on, which may be where the limits are.
double countedValue(Degree degree, const VrexMateDimension3D& dimension) {
    return degree == Degree::TWIST
               ? nsSolverDirections::within(dimension.limits, dimension.value, dimension.value).value()
               : dimension.value;
}

/// The free degree as the mate counts it: an angle passes a half turn where the limits go on beyond it.
VrexSolverBuilder::Measure measureOf(const Joint& joint, Degree degree, const VrexMateDimension3D& known) {
    return [joint, degree, limits = known.limits, known = known.value] {
        const VrexVariable value = joint.measure(degree);
        return degree == Degree::TWIST ? nsSolverDirections::within(limits, value, known) : value;
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
        const Joint::Arms arms = joint.arms(length);
        for (std::size_t i = 0; i < held.size(); ++i) {
            rows[i] = isShift(held[i]) ? joint.shift(held[i], arms) : joint.turn(held[i]);
        }
    });
}

std::vector<Degree> heldBy(VrexConstraint3DType type) {
    using enum Degree;
    switch (type) {
    case VrexConstraint3DType::FastenedMate3D:
        return {SHIFT_X, SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y, TWIST};
    case VrexConstraint3DType::SliderMate3D:
        return {SHIFT_X, SHIFT_Y, TILT_X, TILT_Y, TWIST};
    case VrexConstraint3DType::RevoluteMate3D:
        return {SHIFT_X, SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y};
    case VrexConstraint3DType::CylinderMate3D:
        return {SHIFT_X, SHIFT_Y, TILT_X, TILT_Y};
    case VrexConstraint3DType::PinSlotMate3D:
        return {SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y};
    case VrexConstraint3DType::PlanarMate3D:
        return {SHIFT_Z, TILT_X, TILT_Y};
    case VrexConstraint3DType::ParallelMate3D:
        return {TILT_X, TILT_Y};
    case VrexConstraint3DType::BallMate3D:
        return {SHIFT_X, SHIFT_Y, SHIFT_Z};
    default:
        return {};
    }
}

/// What the dimensions of the mate are, by index.
std::vector<Degree> leftBy(VrexConstraint3DType type) {
    using enum Degree;
    switch (type) {
    case VrexConstraint3DType::SliderMate3D:
        return {SHIFT_Z};
    case VrexConstraint3DType::RevoluteMate3D:
        return {TWIST};
    case VrexConstraint3DType::CylinderMate3D:
        return {SHIFT_Z, TWIST};
    case VrexConstraint3DType::PinSlotMate3D:
        return {SHIFT_X, TWIST};
    case VrexConstraint3DType::PlanarMate3D:
        return {SHIFT_X, SHIFT_Y, TWIST};
    case VrexConstraint3DType::ParallelMate3D:
        return {SHIFT_X, SHIFT_Y, SHIFT_Z, TWIST};
    case VrexConstraint3DType::BallMate3D:
        return {SWING};
    default:
        return {};
    }
}

/// What differs in the last digits alone stays as it is, so that solving again changes nothing.
void write(VrexMateDimension3D& dimension, double value, double unit) {
    constexpr double lastDigits = 1e-12;
    if (!(std::abs(dimension.value - value) <= lastDigits * unit)) {
        dimension.value = value;
    }
}

void addDimension(VrexSolverBuilder& builder, const Joint& joint, Degree degree,
                  VrexMateDimension3D& dimension) {
    builder.requireFinite(dimension.value);
    const auto measure = measureOf(joint, degree, dimension);
    const double unit = isShift(degree) ? builder.length() : 1.0;
    if (dimension.fixed()) {
        const double value = countedValue(degree, dimension);
        builder.requireWithin(dimension.limits, value);
        builder.addTarget(
            measure, [value] { return VrexVariable(value); }, unit);
    } else {
        builder.addLimits(dimension.limits, measure, unit);
    }
    builder.addResult([&dimension, measure, unit] { write(dimension, measure().value(), unit); });
}

} // namespace

void nsMateResiduals::add(VrexSolverBuilder& builder, VrexMate3D& mate) {
    const auto joint = jointOf(builder, mate);
    if (!joint.has_value()) {
        builder.refuse("A mate needs two connectors.");
        return;
    }
    addHeld(builder, *joint, heldBy(mate.type()));
    const std::vector<Degree> left = leftBy(mate.type());
    for (std::size_t i = 0; i < left.size(); ++i) {
        addDimension(builder, *joint, left[i], mate.getDimension(i));
    }
}

std::optional<nsMateResiduals::Dimension> nsMateResiduals::dimension(VrexSolverBuilder& builder,
                                                                     VrexMate3D& mate, std::uint64_t index,
                                                                     const VrexSolverShape* counter) {
    const auto joint = jointOf(builder, mate);
    const std::vector<Degree> left = leftBy(mate.type());
    if (!joint.has_value() || index >= left.size()) {
        return std::nullopt;
    }
    const Degree degree = left[index];
    VrexMateDimension3D& dimension = mate.getDimension(index);
    if (degree != Degree::TWIST) {
        return Dimension{measureOf(*joint, degree, dimension), isShift(degree) ? builder.length() : 1.0,
                         false};
    }
    if (counter == nullptr) {
        const double now = measureOf(*joint, degree, dimension)().value();
        counter = &builder.model().addNumber(now, false);
    }
    builder.add(1, [joint = *joint, counter](VrexVariable* rows) {
        rows[0] = nsSolverDirections::nearTo(joint.twist(), counter->sizeValue(0)) - counter->size(0);
    });
    builder.addFinalResult([&dimension, counter] { write(dimension, counter->sizeValue(0), 1.0); });
    return Dimension{[counter] { return counter->size(0); }, 1.0, true};
}
