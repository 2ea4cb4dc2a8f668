#include "solver/contacts/VrexContactFormulas.h"

#include <stdexcept>

namespace {

using nsContactFormulas::Reach;
using nsContactFormulas::reachOf;
using nsContactFormulas::Vector;

/// Where a point is about an axis.
struct Cylindrical {
    Reach aside; ///< From the axis.
    VrexVariable height;
};

Cylindrical about(const VrexSolverShape& shape, const Vector& point) {
    const Vector arm = point - shape.origin();
    const Vector axis = shape.axisZ();
    VrexVariable height = arm.dotProduct(axis);
    return {reachOf(arm - axis * height, shape.frame().axes[0]), height};
}

/// The distance in a plane through the axis: `across` from it, `along` it.
Reach combine(const Cylindrical& place, const VrexVariable& across, const VrexSolverShape& shape) {
    const Vector way = place.aside.direction * across + shape.axisZ() * place.height;
    return reachOf(way, nsContactFormulas::valueOf(place.aside.direction));
}

Reach fromCone(const VrexSolverShape& shape, const Vector& point) {
    const Cylindrical place = about(shape, point);
    const VrexVariable cosine = cos(shape.size(0));
    const VrexVariable sine = abs(sin(shape.size(0))); // an angle below zero means the same cone
    if (place.height * cosine + place.aside.length * sine < 0.0) {
        return reachOf(point - shape.origin(), -shape.frame().axes[2]);
    }
    return {place.aside.length * cosine - place.height * sine,
            place.aside.direction * cosine - shape.axisZ() * sine};
}

} // namespace

Vector nsContactFormulas::constant(const VrexVector3DT<double>& v) { return {v.x(), v.y(), v.z()}; }

VrexVector3DT<double> nsContactFormulas::valueOf(const Vector& v) {
    return {v.x().value(), v.y().value(), v.z().value()};
}

Reach nsContactFormulas::reachOf(const Vector& v, const VrexVector3DT<double>& fallback) {
    // Below that the direction is noise whatever the unit: coordinates hold 16 digits.
    constexpr double least = 1e-150;
    if (v.magnitudeSquared().value() < least * least) {
        return {v.dotProduct(constant(fallback)), constant(fallback)};
    }
    const VrexVariable length = v.magnitude();
    return {length, v / length};
}

Reach nsContactFormulas::reachFrom(const VrexSolverCore& core, const Vector& point, bool isOpposite) {
    const VrexSolverShape& shape = core.shape();
    switch (core.kind()) {
    case VrexSolverCore::Kind::POINT:
        return reachOf(point - shape.origin(), shape.frame().axes[0]);
    case VrexSolverCore::Kind::LINE:
        return about(shape, point).aside;
    case VrexSolverCore::Kind::PLANE:
        return {shape.axisZ().dotProduct(point - shape.origin()), shape.axisZ()};
    case VrexSolverCore::Kind::CIRCLE: {
        const Cylindrical place = about(shape, point);
        return combine(place, place.aside.length - core.size(0) * (isOpposite ? -1.0 : 1.0), shape);
    }
    case VrexSolverCore::Kind::CONE:
        return fromCone(shape, point);
    case VrexSolverCore::Kind::ELLIPSE:
    case VrexSolverCore::Kind::CURVE:
    case VrexSolverCore::Kind::SURFACE:
        break;
    }
    throw std::logic_error("The distance from such a curve or surface has no closed form.");
}

nsContactFormulas::Rows nsContactFormulas::touchRows(const VrexSolverCore& core, const Vector& point,
                                                     bool isOpposite) {
    const VrexSolverShape& shape = core.shape();
    const Vector arm = point - shape.origin();
    switch (core.kind()) {
    case VrexSolverCore::Kind::POINT:
        return {{arm.x(), arm.y(), arm.z()}, 3};
    case VrexSolverCore::Kind::LINE:
        return {{shape.axisX().dotProduct(arm), shape.axisY().dotProduct(arm), {}}, 2};
    case VrexSolverCore::Kind::CIRCLE: {
        const Cylindrical place = about(shape, point);
        return {{place.aside.length - core.size(0) * (isOpposite ? -1.0 : 1.0), place.height, {}}, 2};
    }
    case VrexSolverCore::Kind::ELLIPSE: {
        // |(a cos t, b sin t) - place| along the ray from the centre, where t is the angle of the place after
        // the ellipse is stretched into a circle.
        const VrexVariable x = shape.axisX().dotProduct(arm);
        const VrexVariable y = shape.axisY().dotProduct(arm);
        const Reach stretched = reachOf({x / core.size(0), y / core.size(1), 0.0}, {1.0, 0.0, 0.0});
        return {{(stretched.length - 1.0) * core.size(1), shape.axisZ().dotProduct(arm), {}}, 2};
    }
    default:
        break;
    }
    return {{reachFrom(core, point, false).length, {}, {}}, 1};
}
