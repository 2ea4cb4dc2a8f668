#include "solver/residuals/VrexTangencyResiduals.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/constraint/3d/VrexTangency3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexContactGap.h"
#include "solver/contacts/VrexContactHelp.h"
#include "solver/contacts/VrexContactPath.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/model/VrexSolverBuilder.h"

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

/// A tangency by two points of contact that meet.
class Contact {
public:
    Contact(VrexSolverBuilder& builder, VrexTangency3D& tangency, const VrexSolverCore& first,
            const VrexSolverCore& second, bool isSwapped = false)
        : m_builder(builder),
          m_first(nsContactPaths::on(builder, first, middleOf(second),
                                     VrexContactHelp::of(tangency, isSwapped ? 2 : 1))),
          m_second(nsContactPaths::on(builder, second, middleOf(first),
                                      VrexContactHelp::of(tangency, isSwapped ? 1 : 2))) {}

    void add() const {
        const std::size_t directions = m_second.parameterCount() == 1 ? 2 : m_first.parameterCount();
        const std::size_t count = 3 + directions;
        start(m_second.parameterCount() == 1 ? curveRows(VrexVector3DT<double>()) : surfaceRows(), count);
        const auto rows = m_second.parameterCount() == 1 ? curveRows(asideOfSecond()) : surfaceRows();
        nsContactPaths::settle({m_first, m_second}, count, rows);
        m_builder.add(count, rows);
    }

private:
    static VrexVector3DT<double> middleOf(const VrexSolverCore& core) {
        return core.hasShape() ? core.shape().frame().origin : VrexVector3DT<double>();
    }

    VrexVector3DT<double> asideOfSecond() const {
        return VrexSolverFrame::along({}, nsContactFormulas::valueOf(m_second.contact().tangents[0])).axes[0];
    }

    static void setMeeting(VrexVariable* rows, const VrexSolverContact& p, const VrexSolverContact& q,
                           double length) {
        const Vector gap = (q.point - p.point) / length;
        rows[0] = gap.x();
        rows[1] = gap.y();
        rows[2] = gap.z();
    }

    /// Across the second tangent in two directions, of which `aside` gives one; where it is none, as it
    /// comes.
    VrexSolverBuilder::Rows curveRows(const VrexVector3DT<double>& aside) const {
        return [first = m_first, second = m_second, aside, length = m_builder.length()](VrexVariable* rows) {
            const VrexSolverContact p = first.contact();
            const VrexSolverContact q = second.contact();
            setMeeting(rows, p, q, length);
            const Vector& tangent = q.tangents[0];
            const auto way = aside.magnitudeSquared() > 0.0
                                 ? aside
                                 : VrexSolverFrame::along({}, nsContactFormulas::valueOf(tangent)).axes[0];
            const Vector one = reachOf(tangent.crossProduct(nsContactFormulas::constant(way)), way).direction;
            rows[3] = p.tangents[0].dotProduct(one);
            rows[4] = p.tangents[0].dotProduct(tangent.crossProduct(one));
        };
    }

    VrexSolverBuilder::Rows surfaceRows() const {
        return [first = m_first, second = m_second, length = m_builder.length()](VrexVariable* rows) {
            const VrexSolverContact p = first.contact();
            const VrexSolverContact q = second.contact();
            setMeeting(rows, p, q, length);
            const Vector normal =
                reachOf(q.tangents[0].crossProduct(q.tangents[1]), VrexVector3DT<double>::OZ()).direction;
            for (std::size_t i = 0; i < first.parameterCount(); ++i) {
                rows[3 + i] = p.tangents[i].dotProduct(normal);
            }
        };
    }

    /// Where no help says otherwise the two are nearest to touching.
    void start(const VrexSolverBuilder::Rows& rows, std::size_t count) const {
        std::vector<VrexVariable> values(count);
        nsContactPaths::scan({m_first, m_second}, [&] {
            rows(values.data());
            double cost = 0.0;
            for (const VrexVariable& value : values) {
                cost += value.value() * value.value();
            }
            return cost;
        });
    }

    VrexSolverBuilder& m_builder;
    VrexContactPath m_first;
    VrexContactPath m_second;
};

/// Whether both need a point of contact of their own.
bool areBothTraced(const VrexSolverCore& first, const VrexSolverCore& second) {
    const auto isTraced = [](const VrexSolverCore& core) {
        return core.isCurve() || core.kind() == Kind::SURFACE;
    };
    return isTraced(first) && isTraced(second);
}

} // namespace

void nsTangencyResiduals::add(VrexSolverBuilder& builder, VrexTangency3D& tangency) {
    if (VrexContactHelp::asksTooMuch(tangency)) {
        builder.refuse("A help parameter that is held is not supported.");
        return;
    }
    const auto first = VrexSolverCore::of(builder, tangency.geometry(1), tangency.getGeomComponentType(1));
    const auto second = VrexSolverCore::of(builder, tangency.geometry(2), tangency.getGeomComponentType(2));
    if (!first.has_value() || !second.has_value() || !canTouch(*first, *second)) {
        builder.refuse("A tangency between such entities is not supported.");
        return;
    }
    if (!areBothTraced(*first, *second)) {
        const auto gap = VrexContactGap(builder, tangency, *first, *second, true).build();
        const double length = builder.length();
        builder.add(1, [gap, length](VrexVariable* rows) { rows[0] = gap() / length; });
        return;
    }
    const auto isRim = [&](const VrexSolverCore& core, std::uint32_t number) {
        return core.kind() == Kind::CIRCLE ||
               (core.kind() == Kind::ELLIPSE && !VrexContactHelp::of(tangency, number).parameter.has_value());
    };
    if (first->kind() == Kind::LINE && isRim(*second, 2)) {
        addLineAndRim(builder, first->shape(), *second);
    } else if (second->kind() == Kind::LINE && isRim(*first, 1)) {
        addLineAndRim(builder, second->shape(), *first);
    } else if (first->kind() == Kind::SURFACE) {
        Contact(builder, tangency, *second, *first, true).add(); // the surface comes second
    } else {
        Contact(builder, tangency, *first, *second).add();
    }
}
