#pragma once

#include <cmath>
#include <memory>

#include "solver/Mechanism.h"

/// A four-bar in the plane XY: ground pivots at (0, 0) and (4, 0), crank 1, coupler 3.5, rocker 2.5.
struct FourBar : Mechanism {
    static constexpr double GROUND = 4.0, CRANK = 1.0, COUPLER = 3.5, ROCKER = 2.5;

    /// With the crank at this angle, the open branch.
    explicit FourBar(double crankAngle) {
        const Vector a = crankTip(crankAngle);
        const Vector b = couplerTip(crankAngle);
        const auto base = ground();
        crank = body();
        coupler = body();
        rocker = body();
        input = hinge(base, crank, {0.0, 0.0, 0.0});
        hinge(crank, coupler, a);
        hinge(coupler, rocker, b);
        output = hinge(base, rocker, {GROUND, 0.0, 0.0});
    }

    static Vector crankTip(double crankAngle) {
        return {CRANK * std::cos(crankAngle), CRANK * std::sin(crankAngle), 0.0};
    }
    /// Where the circles about the crank's end and the right pivot meet, above.
    static Vector couplerTip(double crankAngle) {
        const Vector a = crankTip(crankAngle);
        const Vector pivot{GROUND, 0.0, 0.0};
        const double d = (pivot - a).magnitude();
        const double along = (COUPLER * COUPLER - ROCKER * ROCKER + d * d) / (2.0 * d);
        const double up = std::sqrt(COUPLER * COUPLER - along * along);
        const Vector u = (pivot - a) / d;
        return a + u * along + Vector(-u.y(), u.x(), 0.0) * up;
    }
    static double rockerAngle(double crankAngle) {
        const Vector b = couplerTip(crankAngle);
        return std::atan2(b.y(), b.x() - GROUND);
    }
    static double couplerAngle(double crankAngle) {
        const Vector along = couplerTip(crankAngle) - crankTip(crankAngle);
        return std::atan2(along.y(), along.x());
    }

    std::shared_ptr<VrexRigidSet3D> crank;
    std::shared_ptr<VrexRigidSet3D> coupler;
    std::shared_ptr<VrexRigidSet3D> rocker;
    std::shared_ptr<VrexRevoluteMate3D> input;
    std::shared_ptr<VrexRevoluteMate3D> output;
};
