#pragma once

#include <memory>
#include <random>

#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"

/// Numbers and entities drawn at random, the same in each run.
class RandomShapes {
public:
    double number(double lowest, double highest) {
        return std::uniform_real_distribution<double>(lowest, highest)(m_engine);
    }
    VrexVector3DT<double> point() { return {number(-2.0, 2.0), number(-2.0, 2.0), number(-2.0, 2.0)}; }
    /// Away from the Z axis, where the two angles of a direction are no smooth function.
    VrexVector3DT<double> direction() {
        return VrexVector3DT<double>::sphericalAnglesToCartesian(number(0.3, 2.8), number(-3.0, 3.0));
    }
    VrexQuaternionT<double> rotation() {
        return VrexQuaternionT<double>::makeFromAngleAndAxis(number(-3.0, 3.0), direction(), 1e-6);
    }
    std::shared_ptr<VrexLine3D> line() { return VrexLine3D::create(point(), direction()); }
    std::shared_ptr<VrexCircle3D> circle() {
        return VrexCircle3D::create(point(), direction(), number(0.5, 2.0));
    }

private:
    std::mt19937 m_engine{20'260};
};
