#include "solver/VrexTangencyResiduals.h"

#include <algorithm>
#include <utility>

#include "data/constraint/3d/VrexTangency3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/VrexContactFormulas.h"
#include "solver/VrexContactGap.h"
#include "solver/VrexContactPath.h"
#include "solver/VrexSolverBuilder.h"
#include "solver/VrexSolverCore.h"

namespace {

using Kind = VrexSolverCore::Kind;
using Vector = VrexSolverShape::Vector;
using nsContactFormulas::reachOf;

/// Points, and lines and planes among themselves, touch in no direction of their own.
bool canTouch(const VrexSolverCore& first, const VrexSolverCore& second) {
    const auto isPoint = [](const VrexSolverCore& core) {
        return core.kind() == Kind::POINT && !core.hasOffset();
    };
    const auto isFlat = [](const VrexSolverCore& core) {
        return core.kind() == Kind::PLANE || (core.kind() == Kind::LINE && !core.hasOffset());
    };
    return !isPoint(first) && !isPoint(second) && !(isFlat(first) && isFlat(second));
}

void addLineAndRim(VrexSolverBuilder& builder, const VrexSolverShape& line, const VrexSolverCore& rim) {
    const std::size_t sizeOfY = rim.kind() == Kind::CIRCLE ? 0 : 1;
    const auto slack = [line = &line, rim = &rim.shape(), sizeOfY](double side) {
        const Vector across = rim->axisZ().crossProduct(line->axisZ());
        const Vector normal = reachOf(across, rim->frame().axes[0]).direction;
        const Vector half{normal.dotProduct(rim->axisX()) * rim->size(0),
                          normal.dotProduct(rim->axisY()) * rim->size(sizeOfY), 0.0};
        return normal.dotProduct(line->origin() - rim->origin()) * side -
               reachOf(half, {1.0, 0.0, 0.0}).length;
    };
    // At the side +1 and -1 the same length is taken off.
    const double side = slack(1.0).value() < slack(-1.0).value() ? -1.0 : 1.0;
    builder.add(
        3, [line = &line, rim = &rim.shape(), slack, side, length = builder.length()](VrexVariable* rows) {
            rows[0] = line->axisZ().dotProduct(rim->axisZ());
            rows[1] = rim->axisZ().dotProduct(line->origin() - rim->origin()) / length;
            rows[2] = slack(side) / length;
        });
}

void addCurves(VrexSolverBuilder& builder, const VrexTangency3D& tangency, const VrexSolverCore& first,
               const VrexSolverCore& second) {
    const VrexContactPath one = nsContactPaths::on(builder, first, second.shape().frame().origin);
    const VrexContactPath other = nsContactPaths::on(builder, second, first.shape().frame().origin);
    const double length = builder.length();
    const auto meet = [one, other, second, length](VrexVariable* rows) {
        const VrexSolverContact p = one.contact();
        const VrexSolverContact q = other.contact();
        const Vector gap = (q.point - p.point) / length;
        const Vector normal = second.shape().axisZ();
        rows[0] = gap.x();
        rows[1] = gap.y();
        rows[2] = gap.z();
        rows[3] = p.tangents[0].dotProduct(normal);
        rows[4] = p.tangents[0].dotProduct(normal.crossProduct(q.tangents[0]));
    };
    nsContactPaths::scan({one, other}, [&] {
        const auto p = nsContactFormulas::valueOf(one.contact().point);
        const auto q = nsContactFormulas::valueOf(other.contact().point);
        double cost = 0.0;
        if (tangency.helpPoint1().has_value()) {
            cost += (p - *tangency.helpPoint1()).magnitudeSquared();
        }
        if (tangency.helpPoint2().has_value()) {
            cost += (q - *tangency.helpPoint2()).magnitudeSquared();
        }
        if (cost > 0.0) {
            return cost;
        }
        VrexVariable values[5];
        meet(values);
        for (const VrexVariable& value : values) {
            cost += value.value() * value.value();
        }
        return cost;
    });
    nsContactPaths::settle({one, other}, 5, meet);
    builder.add(5, meet);
}

} // namespace

void nsTangencyResiduals::add(VrexSolverBuilder& builder, VrexTangency3D& tangency) {
    auto first = VrexSolverCore::of(builder, tangency.geometry(1), tangency.getGeomComponentType(1));
    auto second = VrexSolverCore::of(builder, tangency.geometry(2), tangency.getGeomComponentType(2));
    if (!first.has_value() || !second.has_value() || !canTouch(*first, *second)) {
        builder.refuse("A tangency between such entities is not supported.");
        return;
    }
    if (!first->isCurve() || !second->isCurve()) {
        const auto gap = VrexContactGap(builder, tangency, *first, *second, true).build();
        const double length = builder.length();
        builder.add(1, [gap, length](VrexVariable* rows) { rows[0] = gap() / length; });
        return;
    }
    if (second->kind() == Kind::LINE) {
        std::swap(first, second);
    }
    if (first->kind() == Kind::LINE) {
        addLineAndRim(builder, first->shape(), *second);
    } else {
        addCurves(builder, tangency, *first, *second);
    }
}
