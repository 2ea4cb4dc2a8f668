#pragma once

#include <array>

#include "data/VrexQuaternionT.h"
#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"

/// Where something stands: an origin and three unit axes at right angles, right-handed.
struct VrexSolverFrame {
    VrexVector3DT<double> origin;
    std::array<VrexVector3DT<double>, 3> axes{VrexVector3DT<double>::OX(), VrexVector3DT<double>::OY(),
                                              VrexVector3DT<double>::OZ()};

    /// At `origin`, the axes those of space.
    static VrexSolverFrame at(const VrexVector3DT<double>& origin);
    /// With `z`, a unit vector, as the third axis; the two others are any.
    static VrexSolverFrame along(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& z);
    static VrexSolverFrame turned(const VrexVector3DT<double>& origin,
                                  const VrexQuaternionT<double>& rotation);

    /// This frame's coordinates of `outer`, which both are given in the same space.
    VrexVector3DT<double> coordinatesOf(const VrexVector3DT<double>& point) const;
    VrexVector3DT<double> componentsOf(const VrexVector3DT<double>& vector) const;
    VrexVector3DT<double> pointAt(const VrexVector3DT<double>& coordinates) const;
    VrexVector3DT<double> vectorOf(const VrexVector3DT<double>& components) const;
    /// `inner`, given in this frame's coordinates, in space.
    VrexSolverFrame compose(const VrexSolverFrame& inner) const;
    /// `outer`, given in space, in this frame's coordinates.
    VrexSolverFrame localOf(const VrexSolverFrame& outer) const;
    /// A unit quaternion.
    VrexQuaternionT<double> rotation() const;
    /// The motion that takes `start` to this frame.
    VrexTransformation3DT<double> motionFrom(const VrexSolverFrame& start) const;
};
