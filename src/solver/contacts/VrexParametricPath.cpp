#include "solver/contacts/VrexParametricPath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/model/VrexSolverParameter.h"

namespace {

using Vector = VrexSolverShape::Vector;
using Range = VrexContactPath::Range;
using Interval = std::pair<std::optional<double>, std::optional<double>>;
using nsContactFormulas::constant;
using nsContactFormulas::reachOf;

constexpr Range FULL_TURN{0.0, 2.0 * std::numbers::pi};

/// A point of a curve and its derivative by the parameter.
struct CurvePoint {
    Vector point;
    Vector slope;
};

/// A curve as a function of its parameter.
struct Curve {
    std::function<CurvePoint(const VrexVariable&)> at;
    Range range{};
    bool isClosed = false;
};

/// A point of a surface and its derivatives by both parameters.
struct SurfacePoint {
    Vector point;
    std::array<Vector, 2> slopes;
};

struct Surface {
    std::function<SurfacePoint(const VrexVariable&, const VrexVariable&)> at;
    std::array<Range, 2> ranges{};
    std::array<bool, 2> areClosed{};
    bool isLengthV = false;
};

/// Where there is no end, one that is far: `reach` from the other or from zero.
Range rangeOf(const Interval& interval, double reach) {
    const double low = interval.first.value_or(interval.second.value_or(0.0) - reach);
    return {low, interval.second.value_or(interval.first.value_or(0.0) + reach)};
}

/// The positions of control points as parameters of a calculator; empty where a point is not there.
class Controls {
public:
    explicit Controls(const VrexSolverBuilder& builder) : m_builder(builder) {}

    void add(const std::shared_ptr<VrexPoint3D>& point) {
        m_shapes.push_back(m_builder.shape(point));
        m_isComplete = m_isComplete && m_shapes.back() != nullptr;
    }
    bool isComplete() const { return m_isComplete && !m_shapes.empty(); }
    const std::vector<const VrexSolverShape*>& shapes() const { return m_shapes; }
    /// Good until the next call. A scan asks a thousand times, so that the list is made once.
    std::function<const std::vector<VrexVariable>&()> parameters() const {
        const auto list = std::make_shared<std::vector<VrexVariable>>(3 * m_shapes.size());
        return [shapes = m_shapes, list]() -> const std::vector<VrexVariable>& {
            auto place = list->begin();
            for (const VrexSolverShape* const shape : shapes) {
                const Vector position = shape->origin();
                *place++ = position.x();
                *place++ = position.y();
                *place++ = position.z();
            }
            return *list;
        };
    }

private:
    const VrexSolverBuilder& m_builder;
    std::vector<const VrexSolverShape*> m_shapes;
    bool m_isComplete = true;
};

using Value = std::function<VrexVariable()>;

/// What reads the parameter that a descriptor names, or a number that stays; empty for one that cannot be
/// followed.
Value valueOf(const VrexSolverBuilder& builder, const VrexVariableDescriptor& descriptor) {
    const auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(descriptor.object());
    const VrexSolverShape* const known = builder.shape(geometry);
    if (known == nullptr || known->isFixed()) {
        return [value = descriptor.getValue()] { return VrexVariable(value); };
    }
    return nsSolverParameter::measureOf(builder, descriptor);
}

/// The parameters of an evaluated shape that stands at the origin: its slots, then its descriptors. Empty
/// where a descriptor names a parameter that cannot be followed.
template <class Shape>
std::function<std::vector<VrexVariable>()> localParameters(const VrexSolverBuilder& builder,
                                                           const Shape& shape) {
    std::vector<Value> values;
    for (const VrexVariableDescriptor& descriptor : shape.descriptors()) {
        values.push_back(valueOf(builder, descriptor));
        if (values.back() == nullptr) {
            return {};
        }
    }
    return [values] {
        std::vector<VrexVariable> result(static_cast<std::size_t>(Shape::PARAMETERS_AMOUNT));
        result[static_cast<std::size_t>(Shape::SCALAR)] = 1.0;
        for (const auto& value : values) {
            result.push_back(value());
        }
        return result;
    };
}

Vector inFrame(const VrexSolverShape& shape, const Vector& components) {
    return shape.axisX() * components.x() + shape.axisY() * components.y() + shape.axisZ() * components.z();
}

Curve circleOf(const VrexSolverShape& shape, std::size_t sizeOfY) {
    const auto at = [&shape, sizeOfY](const VrexVariable& t) {
        const Vector x = shape.axisX() * shape.size(0);
        const Vector y = shape.axisY() * shape.size(sizeOfY);
        return CurvePoint{shape.origin() + x * cos(t) + y * sin(t), y * cos(t) - x * sin(t)};
    };
    return {at, FULL_TURN, true};
}

std::optional<Curve> splineOf(const VrexSolverBuilder& builder, const VrexSpline3D& spline) {
    Controls controls(builder);
    for (const auto& [point, weight] : spline.controlPoints()) {
        controls.add(point);
    }
    if (!controls.isComplete()) {
        return std::nullopt;
    }
    const auto at = [calculator = VrexParametricCurveCalculator3D::create(spline),
                     parameters = controls.parameters()](const VrexVariable& t) {
        const auto sample = calculator->calculate(parameters(), VrexVariable(t), 1);
        return CurvePoint{sample[0], sample[1]};
    };
    return Curve{at, rangeOf(spline.interval(), 0.0), spline.periodic()};
}

std::optional<Curve> evaluatedOf(const VrexSolverBuilder& builder, const VrexEvaluatedCurve3D& curve,
                                 const VrexSolverShape& shape) {
    const auto parameters = localParameters(builder, curve);
    if (!parameters) {
        return std::nullopt;
    }
    const auto at = [calculator = VrexParametricCurveCalculator3D::create(curve), parameters,
                     &shape](const VrexVariable& t) {
        const auto sample = calculator->calculate(parameters(), t, 1);
        return CurvePoint{shape.origin() + inFrame(shape, sample[0]), inFrame(shape, sample[1])};
    };
    return Curve{at, rangeOf(curve.interval(), FULL_TURN.high), false};
}

std::optional<Curve> curveOf(const VrexSolverBuilder& builder,
                             const std::shared_ptr<VrexGeometry3D>& entity) {
    if (const auto spline = std::dynamic_pointer_cast<VrexSpline3D>(entity)) {
        return splineOf(builder, *spline);
    }
    const VrexSolverShape* const shape = builder.shape(entity);
    if (shape == nullptr) {
        return std::nullopt;
    }
    if (const auto curve = std::dynamic_pointer_cast<VrexEvaluatedCurve3D>(entity)) {
        return evaluatedOf(builder, *curve, *shape);
    }
    if (entity->type() == VrexGeometry3DType::CIRCLE) {
        return circleOf(*shape, 0);
    }
    return entity->type() == VrexGeometry3DType::ELLIPSE ? std::optional(circleOf(*shape, 1)) : std::nullopt;
}

/// v turned about the unit vector `axis`; Rodrigues' formula.
Vector turned(const Vector& v, const Vector& axis, const VrexVariable& angle) {
    const Vector along = axis * axis.dotProduct(v);
    return along + (v - along) * cos(angle) + axis.crossProduct(v) * sin(angle);
}

std::optional<Surface> spinOf(const VrexSolverBuilder& builder, const VrexSpinSurface3D& surface) {
    const auto profile = curveOf(builder, surface.getProfileCurve());
    const VrexSolverShape* const line = builder.shape(surface.getAxisLine());
    if (!profile.has_value() || line == nullptr) {
        return std::nullopt;
    }
    const auto at = [curve = profile->at, line](const VrexVariable& u, const VrexVariable& v) {
        const CurvePoint c = curve(u);
        const Vector axis = line->axisZ();
        const Vector arm = turned(c.point - line->origin(), axis, v);
        return SurfacePoint{line->origin() + arm, {turned(c.slope, axis, v), axis.crossProduct(arm)}};
    };
    return Surface{at, {profile->range, FULL_TURN}, {profile->isClosed, true}, false};
}

std::optional<Surface> sweepOf(const VrexSolverBuilder& builder, const VrexSweepSurface3D& surface) {
    const auto profile = curveOf(builder, surface.getProfileCurve());
    const VrexSolverShape* const line = builder.shape(surface.getTrajectoryLine());
    if (!profile.has_value() || line == nullptr) {
        return std::nullopt;
    }
    const auto at = [curve = profile->at, line](const VrexVariable& u, const VrexVariable& v) {
        const CurvePoint c = curve(u);
        return SurfacePoint{c.point + line->axisZ() * v, {c.slope, line->axisZ()}};
    };
    const Interval trim = surface.intervalV();
    return Surface{at,
                   {profile->range, rangeOf(trim, 4.0 * builder.length())},
                   {profile->isClosed, !trim.first.has_value() && !trim.second.has_value()},
                   true};
}

/// A copy of a surface for times of rest, with control points of its own where those of the surface then are:
/// numbers alone are evaluated many times faster.
class RestingSurface {
public:
    RestingSurface(VrexNURBSSurface3D& surface, const std::vector<const VrexSolverShape*>& shapes)
        : m_shapes(shapes) {
        const auto copy = std::static_pointer_cast<VrexNURBSSurface3D>(surface.makeCopy());
        for (auto& row : copy->controlPoints()) {
            for (auto& control : row) {
                control.point = m_points.emplace_back(VrexPoint3D::create(0.0, 0.0, 0.0));
            }
        }
        m_calculator = VrexParametricSurfaceCalculator3D::create(*copy);
    }

    bool isAtRest() const { return rest() != 0; }
    SurfacePoint at(double u, double v) {
        follow();
        const auto sample = m_calculator->calculate(u, v, 1);
        return {constant(sample[0]),
                {constant(sample[sample.index(1, 0)]), constant(sample[sample.index(0, 1)])}};
    }

private:
    std::uint64_t rest() const { return m_shapes.front()->body().space().rest(); }
    void follow() {
        if (std::exchange(m_followed, rest()) != rest()) {
            for (std::size_t i = 0; i < m_points.size(); ++i) {
                m_points[i]->setPosition(m_shapes[i]->frame().origin);
            }
        }
    }

    std::vector<const VrexSolverShape*> m_shapes;
    std::vector<std::shared_ptr<VrexPoint3D>> m_points;
    std::shared_ptr<VrexParametricSurfaceCalculator3D> m_calculator;
    std::uint64_t m_followed = 0;
};

std::optional<Surface> nurbsOf(const VrexSolverBuilder& builder, VrexNURBSSurface3D& surface) {
    Controls controls(builder);
    for (const auto& row : surface.controlPoints()) {
        for (const auto& [point, weight] : row) {
            controls.add(point);
        }
    }
    if (!controls.isComplete()) {
        return std::nullopt;
    }
    const auto at = [calculator = VrexParametricSurfaceCalculator3D::create(surface),
                     parameters = controls.parameters(),
                     resting = std::make_shared<RestingSurface>(surface, controls.shapes())](
                        const VrexVariable& u, const VrexVariable& v) {
        if (resting->isAtRest()) {
            return resting->at(u.value(), v.value());
        }
        const auto sample = calculator->calculate(parameters(), u, v, 1);
        return SurfacePoint{sample[0], {sample[sample.index(1, 0)], sample[sample.index(0, 1)]}};
    };
    return Surface{at, {rangeOf(surface.intervalU(), 0.0), rangeOf(surface.intervalV(), 0.0)}, {}, false};
}

std::optional<Surface> evaluatedOf(const VrexSolverBuilder& builder, const VrexEvaluatedSurface3D& surface,
                                   const VrexSolverShape* shape) {
    const auto parameters = localParameters(builder, surface);
    if (!parameters || shape == nullptr) {
        return std::nullopt;
    }
    const auto at = [calculator = VrexParametricSurfaceCalculator3D::create(surface), parameters,
                     shape](const VrexVariable& u, const VrexVariable& v) {
        const auto sample = calculator->calculate(parameters(), u, v, 1);
        return SurfacePoint{
            shape->origin() + inFrame(*shape, sample[0]),
            {inFrame(*shape, sample[sample.index(1, 0)]), inFrame(*shape, sample[sample.index(0, 1)])}};
    };
    return Surface{
        at,
        {rangeOf(surface.intervalU(), FULL_TURN.high), rangeOf(surface.intervalV(), FULL_TURN.high)},
        {},
        false};
}

std::optional<Surface> surfaceOf(const VrexSolverBuilder& builder,
                                 const std::shared_ptr<VrexGeometry3D>& entity) {
    if (const auto nurbs = std::dynamic_pointer_cast<VrexNURBSSurface3D>(entity)) {
        return nurbsOf(builder, *nurbs);
    }
    if (const auto spin = std::dynamic_pointer_cast<VrexSpinSurface3D>(entity)) {
        return spinOf(builder, *spin);
    }
    if (const auto sweep = std::dynamic_pointer_cast<VrexSweepSurface3D>(entity)) {
        return sweepOf(builder, *sweep);
    }
    const auto evaluated = std::dynamic_pointer_cast<VrexEvaluatedSurface3D>(entity);
    return evaluated != nullptr ? evaluatedOf(builder, *evaluated, builder.shape(entity)) : std::nullopt;
}

/// The parameter stays on a curve that ends.
void addEnds(VrexSolverBuilder& builder, const VrexSolverShape& parameters, std::size_t index,
             const Range& range, bool isClosed) {
    if (!isClosed && range.high > range.low) {
        builder.addLimits(
            {range.low, range.high}, [&parameters, index] { return parameters.size(index); },
            range.high - range.low);
    }
}

VrexContactPath onCurve(VrexSolverBuilder& builder, const Curve& curve, const std::array<bool, 2>& isFree) {
    const auto help = builder.addHelp(isFree, {false, false});
    help.body->setSize(0, 0.5 * (curve.range.low + curve.range.high), false);
    addEnds(builder, *help.shape, 0, curve.range, curve.isClosed);
    const auto contact = [at = curve.at, parameter = help.shape] {
        const CurvePoint c = at(parameter->size(0));
        return VrexSolverContact{c.point, {reachOf(c.slope, {1.0, 0.0, 0.0}).direction, Vector()}, 1.0};
    };
    return {contact, help.body, {curve.range}};
}

VrexContactPath onSurface(VrexSolverBuilder& builder, const Surface& surface,
                          const std::array<bool, 2>& isFree) {
    const auto help = builder.addHelp(isFree, {false, surface.isLengthV});
    for (const std::size_t i : {0U, 1U}) {
        const Range& range = surface.ranges[i];
        help.body->setSize(i, 0.5 * (range.low + range.high), help.body->isLength(i));
        addEnds(builder, *help.shape, i, range, surface.areClosed[i]);
    }
    const auto contact = [at = surface.at, parameter = help.shape] {
        const SurfacePoint s = at(parameter->size(0), parameter->size(1));
        return VrexSolverContact{s.point,
                                 {reachOf(s.slopes[0], {1.0, 0.0, 0.0}).direction,
                                  reachOf(s.slopes[1], {0.0, 1.0, 0.0}).direction},
                                 1.0};
    };
    return {contact, help.body, {surface.ranges[0], surface.ranges[1]}};
}

} // namespace

bool nsParametricPath::isSurface(VrexGeometry3DType kind) {
    return kind == VrexGeometry3DType::NURBS_SURFACE || kind == VrexGeometry3DType::SPIN_SURFACE ||
           kind == VrexGeometry3DType::SWEEP_SURFACE || kind == VrexGeometry3DType::EVAL_SURFACE;
}

bool nsParametricPath::isKnown(VrexGeometry3DType kind) {
    return isSurface(kind) || kind == VrexGeometry3DType::SPLINE || kind == VrexGeometry3DType::EVAL_CURVE;
}

bool nsParametricPath::canRun(const VrexSolverBuilder& builder,
                              const std::shared_ptr<VrexGeometry3D>& entity) {
    return isSurface(entity->type()) ? surfaceOf(builder, entity).has_value()
                                     : curveOf(builder, entity).has_value();
}

VrexContactPath nsParametricPath::on(VrexSolverBuilder& builder,
                                     const std::shared_ptr<VrexGeometry3D>& entity,
                                     const VrexContactHelp& help) {
    return isSurface(entity->type()) ? onSurface(builder, surfaceOf(builder, entity).value(), help.areFree(2))
                                     : onCurve(builder, curveOf(builder, entity).value(), help.areFree(1));
}
