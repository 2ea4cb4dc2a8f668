#pragma once

#include <cstddef>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "solver/system/VrexSolverBody.h"
#include "solver/system/VrexSolverFrame.h"

/// An entity as the residuals see it: a frame on a body, and sizes, each with its derivatives by the body's
/// unknowns at where the body stands now.
///
/// The third axis is the entity's own: a line's direction, a plane's normal, the axis of a circle or surface
/// of revolution, a joint axis. Sizes are the radius, or major and minor radius, or the half angle.
class VrexSolverShape {
public:
    using Vector = VrexVector3DT<VrexVariable>;

    /// `local` is the entity's frame in the coordinates of the body's, which has to outlive the shape.
    VrexSolverShape(const VrexSolverBody& body, const VrexSolverFrame& local)
        : m_body(&body), m_local(local) {}
    /// An entity of fixed sizes on a body that has none, a member of a rigid set.
    VrexSolverShape(const VrexSolverBody& body, const VrexSolverFrame& local, double size0, double size1)
        : m_body(&body), m_local(local), m_sizes{size0, size1}, m_hasOwnSizes(true) {}

    const VrexSolverBody& body() const { return *m_body; }
    bool isFixed() const { return m_body->isFixed(); }
    VrexSolverFrame frame() const { return m_body->frame().compose(m_local); }
    double sizeValue(std::size_t index) const { return m_hasOwnSizes ? m_sizes[index] : m_body->size(index); }

    Vector origin() const { return point(m_local.origin); }
    Vector axisX() const { return vector(m_local.axes[0]); }
    Vector axisY() const { return vector(m_local.axes[1]); }
    Vector axisZ() const { return vector(m_local.axes[2]); }
    VrexVariable size(std::size_t index) const;
    /// The point at these coordinates of the entity's frame.
    Vector pointAt(const VrexVector3DT<double>& coordinates) const {
        return point(m_local.pointAt(coordinates));
    }

private:
    Vector point(const VrexVector3DT<double>& local) const;
    Vector vector(const VrexVector3DT<double>& local) const;

    const VrexSolverBody* m_body;
    VrexSolverFrame m_local;
    double m_sizes[2] = {0.0, 0.0};
    bool m_hasOwnSizes = false;
};
