#include "solver/residuals/VrexIncidenceResiduals.h"

#include <cmath>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexContactGap.h"
#include "solver/contacts/VrexContactHelp.h"
#include "solver/contacts/VrexContactPath.h"
#include "solver/contacts/VrexDirectionRows.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/residuals/VrexImageResiduals.h"

namespace {

using Kind = VrexSolverCore::Kind;
using Vector = VrexSolverShape::Vector;
using nsContactFormulas::reachFrom;
using nsContactFormulas::reachOf;

double signOf(double value) { return value < 0.0 ? -1.0 : 1.0; }

/// The rows of one incidence.
class Incidence {
public:
    Incidence(VrexSolverBuilder& builder, VrexIncidence3D& incidence, const VrexSolverCore& first,
              const VrexSolverCore& second)
        : m_builder(builder), m_incidence(incidence), m_first(first), m_second(second) {
        if (rankOf(second) < rankOf(first)) {
            std::swap(m_first, m_second);
            m_isSwapped = true;
        }
    }

    /// False where the one cannot lie in the other.
    bool add() {
        m_first.keepSigns(m_builder);
        m_second.keepSigns(m_builder);
        if (m_first.hasShape() && m_first.kind() == m_second.kind() &&
            m_first.hasOffset() == m_second.hasOffset()) {
            return addEqual();
        }
        if (!m_first.hasShape()) {
            return nsImageResiduals::addSame(m_builder, m_first.entity(), m_second.entity());
        }
        if (isBare(m_first, Kind::POINT)) {
            return m_second.hasShape() && !hasParameter() ? addPoint() : addPointOnPath();
        }
        if (isBare(m_first, Kind::LINE)) {
            return addLine();
        }
        if (isBare(m_first, Kind::CIRCLE)) {
            return addCircle();
        }
        if (m_first.kind() == Kind::ELLIPSE && m_second.kind() == Kind::PLANE) {
            addFlat();
            return true;
        }
        return false;
    }

private:
    static bool isBare(const VrexSolverCore& core, Kind kind) {
        return core.kind() == kind && !core.hasOffset();
    }
    /// What lies in what: points, lines, circles and ellipses, then the surfaces.
    static int rankOf(const VrexSolverCore& core) {
        return static_cast<int>(core.kind()) + (core.hasOffset() ? 10 : 0);
    }
    const VrexSolverShape* first() const { return &m_first.shape(); }
    const VrexSolverShape* second() const { return &m_second.shape(); }

    void addLength(const std::function<VrexVariable()>& value) {
        m_builder.add(
            1, [value, length = m_builder.length()](VrexVariable* rows) { rows[0] = value() / length; });
    }
    void addParallel() {
        const auto one = m_incidence.geometry(1);
        const auto other = m_incidence.geometry(2);
        if (!m_builder.model().isHeldParallel(*one, *other)) {
            nsDirectionRows::addParallel(m_builder, m_incidence, *first(), *second());
        }
    }
    /// The first origin lies on the core of the second.
    void addOriginOn(const VrexSolverCore& core) {
        const std::size_t count = nsContactFormulas::touchRows(core, first()->origin(), false).count;
        m_builder.add(count, [first = first(), core, count, length = m_builder.length()](VrexVariable* rows) {
            const auto touch = nsContactFormulas::touchRows(core, first->origin(), false);
            for (std::size_t i = 0; i < count; ++i) {
                rows[i] = touch.rows[i] / length;
            }
        });
    }
    void addOriginOnAxis() { addOriginOnAxis(*second()); }
    void addOriginOnAxis(const VrexSolverShape& axis) {
        m_builder.add(2, [first = first(), axis = &axis, length = m_builder.length()](VrexVariable* rows) {
            const Vector arm = (first->origin() - axis->origin()) / length;
            rows[0] = axis->axisX().dotProduct(arm);
            rows[1] = axis->axisY().dotProduct(arm);
        });
    }
    void addOriginOnOrigin() {
        m_builder.add(3,
                      [first = first(), second = second(), length = m_builder.length()](VrexVariable* rows) {
                          const Vector arm = (first->origin() - second->origin()) / length;
                          rows[0] = arm.x();
                          rows[1] = arm.y();
                          rows[2] = arm.z();
                      });
    }
    void addEqualSize(std::size_t index, double unit) {
        const double sense = signOf(first()->sizeValue(index) * second()->sizeValue(index));
        m_builder.add(1, [first = first(), second = second(), index, sense, unit](VrexVariable* rows) {
            rows[0] = (first->size(index) - second->size(index) * sense) / unit;
        });
    }
    /// In the plane of the second.
    void addFlat() {
        addParallel();
        addLength([first = first(), second = second()] {
            return second->axisZ().dotProduct(first->origin() - second->origin());
        });
    }

    bool addEqual() {
        const double length = m_builder.length();
        switch (m_first.kind()) {
        case Kind::POINT:
            addOriginOnOrigin();
            break;
        case Kind::LINE:
            addParallel();
            addOriginOnAxis();
            break;
        case Kind::PLANE:
            addFlat();
            return true;
        case Kind::CIRCLE:
            addOriginOnOrigin();
            addParallel();
            addEqualSize(0, length);
            break;
        case Kind::CONE: // has but one side of its apex
            addOriginOnOrigin();
            nsDirectionRows::addParallel(m_builder, 1.0, *first(), *second());
            addEqualSize(0, 1.0);
            break;
        case Kind::CURVE:
        case Kind::SURFACE:
            return false;
        case Kind::ELLIPSE:
            addOriginOnOrigin();
            addParallel();
            m_builder.add(1, [first = first(), second = second()](VrexVariable* rows) {
                rows[0] = first->axisX().dotProduct(second->axisY());
            });
            addEqualSize(0, length);
            addEqualSize(1, length);
            break;
        }
        if (m_first.hasOffset()) {
            addEqualSize(m_first.kind() == Kind::CIRCLE ? 1 : 0, length);
        }
        return true;
    }

    bool addPoint() {
        if (!m_second.hasOffset()) {
            addOriginOn(m_second);
            return true;
        }
        // A circle's far side counts where a torus is wider than its hole.
        const auto distance = [first = first(), second = m_second](bool isOpposite) {
            const VrexVariable radius = second.offset();
            return reachFrom(second, first->origin(), isOpposite).length - radius * signOf(radius.value());
        };
        const bool isOpposite = m_second.kind() == Kind::CIRCLE &&
                                std::abs(distance(true).value()) < std::abs(distance(false).value());
        addLength([distance, isOpposite] { return distance(isOpposite); });
        return true;
    }

    bool addPointOnPath() {
        const VrexSolverCore& one = m_isSwapped ? m_second : m_first; // as the help points are numbered
        const VrexSolverCore& other = m_isSwapped ? m_first : m_second;
        VrexContactGap(m_builder, m_incidence, one, other, true).build();
        return true;
    }

    /// Whether the place on the second has a parameter that the caller knows.
    bool hasParameter() const {
        return VrexContactHelp::of(m_incidence, m_isSwapped ? 1 : 2).parameter.has_value();
    }

    /// On a surface that a curve leaves behind a line is a copy of the trajectory, and a circle goes about
    /// the axis: each through one point of the profile.
    bool addDrawn(const std::shared_ptr<VrexGeometry3D>& profile, const VrexSolverShape* axis) {
        const auto curve = VrexSolverCore::of(m_builder, profile, VrexGeometryComponentType::UNKNOWN);
        if (!curve.has_value() || axis == nullptr) {
            return false;
        }
        nsDirectionRows::addParallel(m_builder, m_incidence, *first(), *axis);
        if (m_first.kind() == Kind::CIRCLE) {
            addOriginOnAxis(*axis);
        }
        const auto path =
            nsContactPaths::on(m_builder, *curve, {}, VrexContactHelp::of(m_incidence, m_isSwapped ? 1 : 2));
        const auto rows = [path, core = m_first, length = m_builder.length()](VrexVariable* values) {
            const auto touch = nsContactFormulas::touchRows(core, path.contact().point, false);
            values[0] = touch.rows[0] / length;
            values[1] = touch.rows[1] / length;
        };
        nsContactPaths::scan({path}, [&] {
            VrexVariable values[2];
            rows(values);
            return std::hypot(values[0].value(), values[1].value());
        });
        nsContactPaths::settle({path}, 2, rows);
        m_builder.add(2, rows);
        return true;
    }

    bool addLine() {
        switch (m_second.kind()) {
        case Kind::PLANE:
            addLineInPlane();
            return true;
        case Kind::LINE: // a cylinder
            addParallel();
            return addPoint();
        case Kind::CONE:
            return addGenerator();
        case Kind::SURFACE:
            if (const auto sweep = std::dynamic_pointer_cast<VrexSweepSurface3D>(m_second.entity())) {
                return addDrawn(sweep->getProfileCurve(), m_builder.shape(sweep->getTrajectoryLine()));
            }
            return false;
        default:
            return false;
        }
    }

    void addLineInPlane() {
        if (!m_builder.model().isHeldParallel(*m_incidence.geometry(1), *m_incidence.geometry(2))) {
            nsDirectionRows::addPerpendicular(m_builder, *first(), *second());
        }
        addOriginOn(m_second);
    }

    /// Through the apex, at the half angle to the axis.
    bool addGenerator() {
        const double sense = signOf(first()->frame().axes[2].dotProduct(second()->frame().axes[2]));
        m_builder.add(
            3, [line = first(), cone = second(), sense, length = m_builder.length()](VrexVariable* rows) {
                const Vector arm = (cone->origin() - line->origin()) / length;
                rows[0] = line->axisX().dotProduct(arm);
                rows[1] = line->axisY().dotProduct(arm);
                const Vector across = line->axisZ().crossProduct(cone->axisZ());
                const VrexVariable sine = reachOf(across, line->frame().axes[0]).length;
                const VrexVariable cosine = line->axisZ().dotProduct(cone->axisZ()) * sense;
                rows[2] = sine * cos(cone->size(0)) - cosine * sin(cone->size(0));
            });
        return true;
    }

    bool addCircle() {
        switch (m_second.kind()) {
        case Kind::PLANE:
            addFlat();
            return true;
        case Kind::POINT:
            return addCircleOnSphere();
        case Kind::LINE:
            addParallel();
            addOriginOnAxis();
            addEqualSize(0, m_builder.length());
            return true;
        case Kind::CONE:
            return addCircleOnCone();
        case Kind::CIRCLE:
            return isMeridian() ? addMeridian() : addCircleOfLatitude();
        case Kind::SURFACE:
            if (const auto spin = std::dynamic_pointer_cast<VrexSpinSurface3D>(m_second.entity())) {
                return addDrawn(spin->getProfileCurve(), m_builder.shape(spin->getAxisLine()));
            }
            return false;
        default:
            return false;
        }
    }

    bool addCircleOnCone() {
        addParallel();
        addOriginOnAxis();
        const auto height = [circle = first(), cone = second()] {
            return cone->axisZ().dotProduct(circle->origin() - cone->origin());
        };
        const auto radius = [circle = m_first] { return circle.size(0); };
        addLength([height, radius, cone = second()] {
            return radius() * cos(cone->size(0)) - height() * abs(sin(cone->size(0)));
        });
        // Along the generator, from the apex on.
        const auto reach = [height, radius, cone = second()] {
            return height() * cos(cone->size(0)) + radius() * abs(sin(cone->size(0)));
        };
        m_builder.addLimits({0.0, {}}, reach, m_builder.length());
        return true;
    }

    bool addCircleOnSphere() {
        m_builder.add(3, [circle = first(), sphere = second(), length = m_builder.length(),
                          sense = signOf(second()->sizeValue(0))](VrexVariable* rows) {
            const Vector arm = circle->origin() - sphere->origin();
            rows[0] = circle->axisX().dotProduct(arm) / length;
            rows[1] = circle->axisY().dotProduct(arm) / length;
            const Vector rim{circle->size(0), circle->axisZ().dotProduct(arm), 0.0};
            rows[2] = (reachOf(rim, {1.0, 0.0, 0.0}).length - sphere->size(0) * sense) / length;
        });
        return true;
    }

    bool isMeridian() const {
        if (m_incidence.getIncidenceType() == VrexIncidence3DType::AroundSpine) {
            return true;
        }
        return std::abs(first()->frame().axes[2].dotProduct(second()->frame().axes[2])) < M_SQRT1_2;
    }

    bool addMeridian() {
        addOriginOn(m_second.withoutOffset());
        m_builder.add(2, [circle = first(), torus = second()](VrexVariable* rows) {
            const Vector arm = circle->origin() - torus->origin();
            const Vector axis = torus->axisZ();
            const Vector aside = arm - axis * axis.dotProduct(arm);
            rows[0] = circle->axisZ().dotProduct(axis);
            rows[1] = circle->axisZ().dotProduct(reachOf(aside, torus->frame().axes[0]).direction);
        });
        const double sense = signOf(first()->sizeValue(0) * second()->sizeValue(1));
        addLength(
            [circle = first(), torus = second(), sense] { return circle->size(0) - torus->size(1) * sense; });
        return true;
    }

    bool addCircleOfLatitude() {
        addParallel();
        addOriginOnAxis();
        const double sense = signOf(second()->sizeValue(1));
        addLength([circle = first(), torus = second(), sense] {
            const Vector place{circle->size(0) - torus->size(0),
                               torus->axisZ().dotProduct(circle->origin() - torus->origin()), 0.0};
            return reachOf(place, {1.0, 0.0, 0.0}).length - torus->size(1) * sense;
        });
        return true;
    }

    VrexSolverBuilder& m_builder;
    VrexIncidence3D& m_incidence;
    VrexSolverCore m_first;
    VrexSolverCore m_second;
    bool m_isSwapped = false;
};

/// `ToSpine` binds the spine, whatever the component says.
VrexGeometryComponentType componentOf(const VrexIncidence3D& incidence, std::uint32_t number) {
    const auto entity = incidence.geometry(number);
    const bool isSpine = incidence.getIncidenceType() == VrexIncidence3DType::ToSpine && entity != nullptr &&
                         entity->type() == VrexGeometry3DType::TORUS;
    return isSpine ? VrexGeometryComponentType::SPINE : incidence.getGeomComponentType(number);
}

} // namespace

void nsIncidenceResiduals::add(VrexSolverBuilder& builder, VrexIncidence3D& incidence) {
    if (VrexContactHelp::asksTooMuch(incidence)) {
        builder.refuse("A help parameter that is held is not supported.");
        return;
    }
    const auto first = VrexSolverCore::of(builder, incidence.geometry(1), componentOf(incidence, 1));
    const auto second = VrexSolverCore::of(builder, incidence.geometry(2), componentOf(incidence, 2));
    if (!first.has_value() || !second.has_value() || !Incidence(builder, incidence, *first, *second).add()) {
        builder.refuse("An incidence between such entities is not supported.");
    }
}
