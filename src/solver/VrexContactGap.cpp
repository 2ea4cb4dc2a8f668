#include "solver/VrexContactGap.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/VrexDirectionRows.h"

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
    }
    return 0;
}

/// Lines that stand so are parallel: what the sine of the angle can tell.
constexpr double PARALLEL = 1e-9;

} // namespace

VrexContactGap::VrexContactGap(VrexSolverBuilder& builder, const VrexConstraint3D& constraint,
                               VrexSolverCore first, VrexSolverCore second, bool isTouch)
    : m_builder(builder),
      m_constraint(constraint),
      m_first{first, constraint.helpPoint1()},
      m_second{second, constraint.helpPoint2()},
      m_isTouch(isTouch) {
    if (rankOf(m_second.core.kind()) < rankOf(m_first.core.kind())) {
        std::swap(m_first, m_second);
    }
}

VrexContactGap::Measure VrexContactGap::build() {
    const Kind first = m_first.core.kind();
    switch (m_second.core.kind()) {
    case Kind::LINE:
        return first == Kind::LINE ? lines() : pathAndReach();
    case Kind::ELLIPSE:
        return paths();
    case Kind::PLANE:
        switch (first) {
        case Kind::LINE:
            return lineAndPlane();
        case Kind::CIRCLE:
        case Kind::ELLIPSE:
            return rimAndPlane();
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

double VrexContactGap::sideOf(double value) const {
    switch (m_constraint.orientation()) {
    case VrexConstraintOrientation::Positive:
        return 1.0;
    case VrexConstraintOrientation::Negative:
        return -1.0;
    default:
        return value < 0.0 ? -1.0 : 1.0;
    }
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
    return withSigns(
        [first = &firstShape(), second = m_second.core.withoutOffset()] {
            return reachFrom(second, first->origin(), false).length;
        },
        false, {});
}

VrexContactGap::Measure VrexContactGap::skewLines() {
    const auto distance = [first = &firstShape(), second = &secondShape()] {
        const Vector across = first->axisZ().crossProduct(second->axisZ());
        return reachOf(across, first->frame().axes[0])
            .direction.dotProduct(second->origin() - first->origin());
    };
    const double side = distance().value() < 0.0 ? -1.0 : 1.0;
    return withSigns([distance, side] { return distance() * side; }, false, {});
}

VrexContactGap::Measure VrexContactGap::lineAndPlane() {
    if (!isHeldParallel()) {
        nsDirectionRows::addPerpendicular(m_builder, firstShape(), secondShape());
    }
    return withSigns([first = &firstShape(),
                      second = m_second.core] { return reachFrom(second, first->origin(), false).length; },
                     true, {});
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
    if (m_first.helpPoint.has_value()) {
        const auto arm = *m_first.helpPoint - rim->frame().origin;
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

double VrexContactGap::tangencyCost(const VrexSolverContact& contact, std::size_t parameters) const {
    const auto reach = reachFrom(m_second.core, contact.point, false);
    double least = INFINITY;
    for (const Signs& signs : candidates()) {
        const double gap = signs.core * reach.length.value() + signs.first * m_first.core.offset().value() +
                           signs.second * m_second.core.offset().value();
        least = std::min(least, gap * gap);
    }
    for (std::size_t i = 0; i < parameters; ++i) {
        const double slope = reach.direction.dotProduct(contact.tangents[i]).value() * m_builder.length();
        least += slope * slope;
    }
    return least;
}

/// Looks for the point of contact: at the help point, else where the two are nearest to touching.
void VrexContactGap::start(const VrexContactPath& path) {
    nsContactPaths::scan({path}, [&] {
        const VrexSolverContact contact = path.contact();
        if (m_first.helpPoint.has_value()) {
            return (nsContactFormulas::valueOf(contact.point) - *m_first.helpPoint).magnitudeSquared();
        }
        if (m_isTouch && !isBareTouch()) {
            return tangencyCost(contact, path.parameterCount());
        }
        return std::abs(reachFrom(m_second.core, contact.point, false).length.value());
    });
}

/// Whether the far side of the second, a circle, counts.
bool VrexContactGap::chooseOpposite(const VrexContactPath& path) {
    if (m_second.core.kind() != Kind::CIRCLE) {
        return false;
    }
    const VrexSolverContact contact = path.contact();
    const auto arm = nsContactFormulas::valueOf(contact.point) - secondShape().frame().origin;
    if (m_second.helpPoint.has_value()) {
        const auto axis = secondShape().frame().axes[2];
        const auto aside = arm - axis * axis.dotProduct(arm);
        return aside.dotProduct(*m_second.helpPoint - secondShape().frame().origin) < 0.0;
    }
    if (!m_isTouch) {
        return false;
    }
    const auto gap = [&](bool isOpposite) {
        const double distance = reachFrom(m_second.core, contact.point, isOpposite).length.value();
        const Signs signs = signsOf(distance, false, {});
        return std::abs(signs.core * distance + signs.first * m_first.core.offset().value() +
                        signs.second * m_second.core.offset().value());
    };
    return gap(true) < gap(false);
}

VrexContactGap::Measure VrexContactGap::pathAndReach() {
    const VrexContactPath path = nsContactPaths::on(m_builder, m_first.core, secondShape().frame().origin);
    start(path);
    const bool isOpposite = chooseOpposite(path);
    const auto reach = [path, second = m_second.core, isOpposite] {
        return reachFrom(second, path.contact().point, isOpposite);
    };
    const std::size_t count = path.parameterCount();
    if (isBareTouch()) {
        const double length = m_builder.length();
        const auto touch = [path, second = m_second.core, isOpposite, length](VrexVariable* rows) {
            const auto place = nsContactFormulas::touchRows(second, path.contact().point, isOpposite);
            for (std::size_t i = 0; i < place.count; ++i) {
                rows[i] = place.rows[i] / length;
            }
        };
        const std::size_t rows =
            nsContactFormulas::touchRows(m_second.core, path.contact().point, isOpposite).count;
        nsContactPaths::settle({path}, rows, touch);
        m_builder.add(rows, touch);
        return {};
    }
    if (count > 0) {
        const auto stay = [path, second = m_second.core, isOpposite, count](VrexVariable* rows) {
            const VrexSolverContact contact = path.contact();
            const Vector way = reachFrom(second, contact.point, isOpposite).direction;
            for (std::size_t i = 0; i < count; ++i) {
                rows[i] = way.dotProduct(contact.tangents[i]);
            }
        };
        nsContactPaths::settle({path}, count, stay);
        m_builder.add(count, stay);
    }
    std::array<std::optional<bool>, 2> isNear;
    const auto place = nsContactFormulas::valueOf(path.contact().point);
    const auto now = reach();
    const auto way = nsContactFormulas::valueOf(now.direction);
    if (m_first.helpPoint.has_value() && m_first.core.hasOffset()) {
        isNear[0] = (*m_first.helpPoint - place).dotProduct(way) * now.length.value() < 0.0;
    }
    if (m_second.helpPoint.has_value() && m_second.core.hasOffset()) {
        const auto foot = place - way * now.length.value();
        isNear[1] = (*m_second.helpPoint - foot).dotProduct(way) > 0.0;
    }
    const bool isSigned = m_second.core.kind() == Kind::PLANE || m_second.core.kind() == Kind::CONE;
    return withSigns([reach] { return reach().length; }, isSigned, isNear);
}

/// Both carry a point of contact: p - q is at a right angle to both, or they are one.
VrexContactGap::Measure VrexContactGap::paths() {
    const VrexContactPath first = nsContactPaths::on(m_builder, m_first.core, secondShape().frame().origin);
    const VrexContactPath second = nsContactPaths::on(m_builder, m_second.core, firstShape().frame().origin);
    nsContactPaths::scan({first, second}, [&] {
        const auto p = nsContactFormulas::valueOf(first.contact().point);
        const auto q = nsContactFormulas::valueOf(second.contact().point);
        double cost = m_first.helpPoint || m_second.helpPoint ? 0.0 : (p - q).magnitudeSquared();
        cost += m_first.helpPoint ? (p - *m_first.helpPoint).magnitudeSquared() : 0.0;
        return cost + (m_second.helpPoint ? (q - *m_second.helpPoint).magnitudeSquared() : 0.0);
    });
    const auto between = [first, second] { return second.contact().point - first.contact().point; };
    if (m_isTouch) {
        const auto meet = [between, length = m_builder.length()](VrexVariable* rows) {
            const Vector gap = between() / length;
            rows[0] = gap.x();
            rows[1] = gap.y();
            rows[2] = gap.z();
        };
        nsContactPaths::settle({first, second}, 3, meet);
        m_builder.add(3, meet);
        return {};
    }
    const auto fallback = firstShape().frame().axes[2];
    const auto stay = [first, second, fallback](VrexVariable* rows) {
        const VrexSolverContact p = first.contact();
        const VrexSolverContact q = second.contact();
        const Vector way = reachOf(q.point - p.point, fallback).direction;
        rows[0] = way.dotProduct(p.tangents[0]);
        rows[1] = way.dotProduct(q.tangents[0]);
    };
    nsContactPaths::settle({first, second}, 2, stay);
    m_builder.add(2, stay);
    return [between, fallback] { return reachOf(between(), fallback).length; };
}

std::vector<VrexContactGap::Signs> VrexContactGap::candidates() const {
    std::vector<Signs> result;
    const bool isInside = m_constraint.orientation() == VrexConstraintOrientation::Negative;
    const bool hasOffset = m_first.core.hasOffset() || m_second.core.hasOffset();
    if (!isInside || !hasOffset) {
        result.push_back({1.0, -1.0, -1.0});
    }
    if (m_constraint.orientation() == VrexConstraintOrientation::Positive) {
        return result;
    }
    if (m_first.core.hasOffset()) {
        result.push_back({-1.0, 1.0, -1.0});
    }
    if (m_second.core.hasOffset()) {
        result.push_back({-1.0, -1.0, 1.0});
    }
    return result;
}

VrexContactGap::Signs VrexContactGap::signsOf(double distance, bool isSigned,
                                              std::array<std::optional<bool>, 2> isNear) const {
    const double first = m_first.core.offset().value();
    const double second = m_second.core.offset().value();
    const auto gap = [&](const Signs& s) { return s.core * distance + s.first * first + s.second * second; };
    if (isSigned) {
        return {sideOf(distance), isNear[0].value_or(true) ? -1.0 : 1.0, -1.0};
    }
    if (isNear[0].has_value() || isNear[1].has_value()) {
        Signs signs{1.0, isNear[0].value_or(true) ? -1.0 : 1.0, isNear[1].value_or(true) ? -1.0 : 1.0};
        const bool areBoth = m_first.core.hasOffset() && m_second.core.hasOffset();
        const bool areOutside = areBoth && signs.first < 0.0 && signs.second < 0.0;
        return gap(signs) >= 0.0 || areOutside ? signs : Signs{-1.0, -signs.first, -signs.second};
    }
    const auto all = candidates();
    return *std::max_element(all.begin(), all.end(),
                             [&](const Signs& a, const Signs& b) { return gap(a) < gap(b); });
}

VrexContactGap::Measure VrexContactGap::withSigns(const Measure& distance, bool isSigned,
                                                  std::array<std::optional<bool>, 2> isNear) {
    const Signs signs = signsOf(distance().value(), isSigned, isNear);
    return [distance, signs, first = m_first.core, second = m_second.core] {
        VrexVariable gap = distance() * signs.core;
        gap += first.offset() * signs.first;
        gap += second.offset() * signs.second;
        return gap;
    };
}
