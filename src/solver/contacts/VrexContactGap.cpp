#include "solver/contacts/VrexContactGap.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexDirectionRows.h"
#include "solver/model/VrexSolverDirections.h"

namespace {

using Kind = VrexSolverCore::Kind;
using Vector = VrexSolverShape::Vector;
using nsContactFormulas::reachFrom;
using nsContactFormulas::reachOf;

/// Lower ones carry the point of contact, higher ones give the distance from themselves.
int rankOf(Kind kind) {
    switch (kind) {
    case Kind::ELLIPSE:
        return 0;
    case Kind::POINT:
        return 1;
    case Kind::CIRCLE:
        return 2;
    case Kind::LINE:
        return 3;
    case Kind::CONE:
        return 4;
    case Kind::PLANE:
        return 5;
    case Kind::CURVE:
    case Kind::SURFACE:
        return -1;
    }
    return 0;
}

/// Lines that stand so are parallel: what the sine of the angle can tell.
constexpr double PARALLEL = 1e-9;

} // namespace

VrexContactGap::VrexContactGap(VrexSolverBuilder& builder, VrexConstraint3D& constraint, VrexSolverCore first,
                               VrexSolverCore second, bool isTouch)
    : m_builder(builder),
      m_constraint(constraint),
      m_first{std::move(first), VrexContactHelp::of(constraint, 1)},
      m_second{std::move(second), VrexContactHelp::of(constraint, 2)},
      m_isTouch(isTouch) {
    if (rankOf(m_second.core.kind()) < rankOf(m_first.core.kind())) {
        std::swap(m_first, m_second);
    }
}

VrexContactGap::Measure VrexContactGap::build() {
    m_first.core.keepSigns(m_builder);
    m_second.core.keepSigns(m_builder);
    const Kind first = m_first.core.kind();
    switch (m_second.core.kind()) {
    case Kind::LINE:
        return first == Kind::LINE ? lines() : pathAndReach();
    case Kind::ELLIPSE:
    case Kind::CURVE:
    case Kind::SURFACE:
        return paths();
    case Kind::PLANE:
        switch (first) {
        case Kind::LINE:
            return lineAndPlane();
        case Kind::CIRCLE:
        case Kind::ELLIPSE:
            return m_first.help.parameter.has_value() ? pathAndReach() : rimAndPlane();
        case Kind::CONE:
            return coneAndPlane();
        case Kind::PLANE:
            return planes();
        default:
            return pathAndReach();
        }
    default:
        return pathAndReach();
    }
}

double VrexContactGap::sideOf(double height) const {
    return nsSolverDirections::sideOf(m_constraint.orientation(), height);
}

bool VrexContactGap::isHeldParallel() const {
    const auto first = m_constraint.geometry(1);
    const auto second = m_constraint.geometry(2);
    return m_builder.model().isHeldParallel(*first, *second);
}

/// Parallel lines have a distance of their own, which the one of skew lines does not tend to.
VrexContactGap::Measure VrexContactGap::lines() {
    const double sine = firstShape().frame().axes[2].crossProduct(secondShape().frame().axes[2]).magnitude();
    return isHeldParallel() || sine < PARALLEL || nsDirectionRows::isAsked(m_constraint) ? parallelLines()
                                                                                         : skewLines();
}

VrexContactGap::Measure VrexContactGap::parallelLines() {
    if (!isHeldParallel()) {
        nsDirectionRows::addParallel(m_builder, m_constraint, firstShape(), secondShape());
    }
    if (isBareTouch()) {
        m_builder.add(2, [first = &firstShape(), second = m_second.core,
                          length = m_builder.length()](VrexVariable* rows) {
            const auto touch = nsContactFormulas::touchRows(second, first->origin(), false);
            rows[0] = touch.rows[0] / length;
            rows[1] = touch.rows[1] / length;
        });
        return {};
    }
    return withSigns([first = &firstShape(), second = m_second.core.withoutOffset()] {
        return reachFrom(second, first->origin(), false).length;
    });
}

VrexContactGap::Measure VrexContactGap::skewLines() {
    const auto distance = [first = &firstShape(), second = &secondShape()] {
        const Vector across = first->axisZ().crossProduct(second->axisZ());
        return reachOf(across, first->frame().axes[0])
            .direction.dotProduct(second->origin() - first->origin());
    };
    const double side = distance().value() < 0.0 ? -1.0 : 1.0;
    return withSigns([distance, side] { return distance() * side; });
}

VrexContactGap::Measure VrexContactGap::lineAndPlane() {
    if (!isHeldParallel()) {
        nsDirectionRows::addPerpendicular(m_builder, firstShape(), secondShape());
    }
    return withSigns([first = &firstShape(), second = m_second.core] {
        return reachFrom(second, first->origin(), false).length;
    });
}

/// A circle or an ellipse reaches sqrt((a n.x)^2 + (b n.y)^2) to each side of its centre.
VrexContactGap::Measure VrexContactGap::rimAndPlane() {
    const VrexSolverShape* const rim = &firstShape();
    const std::size_t sizeOfY = m_first.core.kind() == Kind::CIRCLE ? 0 : 1;
    const auto height = [rim, second = m_second.core] {
        return reachFrom(second, rim->origin(), false).length;
    };
    const auto spread = [rim, plane = &secondShape(), sizeOfY] {
        const Vector normal = plane->axisZ();
        return reachOf({normal.dotProduct(rim->axisX()) * rim->size(0),
                        normal.dotProduct(rim->axisY()) * rim->size(sizeOfY), 0.0},
                       {1.0, 0.0, 0.0})
            .length;
    };
    const double side = sideOf(height().value());
    double near = -1.0;
    double tube = -1.0;
    if (m_first.help.point.has_value()) {
        const auto arm = *m_first.help.point - rim->frame().origin;
        near = tube = secondShape().frame().axes[2].dotProduct(arm) * side > 0.0 ? 1.0 : -1.0;
    } else if (m_isTouch && m_first.core.hasOffset()) {
        const double center = side * height().value();
        const double reach = spread().value();
        const double radius = m_first.core.offset().value();
        tube = std::abs(center - reach - radius) <= std::abs(center - reach + radius) ? -1.0 : 1.0;
    }
    return [height, spread, side, near, tube, core = m_first.core] {
        return height() * side + spread() * near + core.offset() * tube;
    };
}

/// The plane's normal is that of the cone along a generator, k (cos(alpha) e - sin(alpha) z).
VrexContactGap::Measure VrexContactGap::coneAndPlane() {
    const VrexSolverShape* const cone = &firstShape();
    const VrexSolverShape* const plane = &secondShape();
    const auto tilt = [cone, plane](double sense) {
        return plane->axisZ().dotProduct(cone->axisZ()) + sin(cone->size(0)) * sense;
    };
    const auto height = [cone, second = m_second.core] {
        return reachFrom(second, cone->origin(), false).length;
    };
    double sense = -sideOf(height().value());
    const bool isAsked = m_constraint.orientation() == VrexConstraintOrientation::Positive ||
                         m_constraint.orientation() == VrexConstraintOrientation::Negative;
    if (m_isTouch && !isAsked) {
        sense = std::abs(tilt(1.0).value()) <= std::abs(tilt(-1.0).value()) ? 1.0 : -1.0;
    }
    m_builder.add(1, [tilt, sense](VrexVariable* rows) { rows[0] = tilt(sense); });
    return [height, sense] { return height() * -sense; };
}

VrexContactGap::Measure VrexContactGap::planes() {
    if (!isHeldParallel()) {
        nsDirectionRows::addParallel(m_builder, m_constraint, firstShape(), secondShape());
    }
    const auto height = [first = m_first.core, second = &secondShape()] {
        return reachFrom(first, second->origin(), false).length;
    };
    const double side = sideOf(height().value());
    return [height, side] { return height() * side; };
}

bool VrexContactGap::isBareTouch() const {
    const Kind second = m_second.core.kind();
    return m_isTouch && !m_first.core.hasOffset() && !m_second.core.hasOffset() && second != Kind::PLANE &&
           second != Kind::CONE;
}

/// Chooses the signs for a distance between cores that has no point of contact.
VrexContactGap::Measure VrexContactGap::withSigns(const Measure& distance) const {
    const double now = distance().value();
    const double radius1 = m_first.core.offset().value();
    const double radius2 = m_second.core.offset().value();
    const auto all = VrexContactSigns::candidates(m_first.core, m_second.core, m_constraint.orientation());
    const auto signs = *std::max_element(all.begin(), all.end(), [&](const auto& a, const auto& b) {
        return a.gap(now, radius1, radius2) < b.gap(now, radius1, radius2);
    });
    return [distance, signs, first = m_first.core, second = m_second.core] {
        return signs.gap(distance(), first.offset(), second.offset());
    };
}
