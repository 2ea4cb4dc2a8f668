#pragma once

#include <cmath>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexTransformation3DT.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"
#include "support/Samples.h"

/// Where entities are, and where a motion has to take them.
namespace nsPoses {

using Vector = VrexVector3DT<double>;
using Quaternion = VrexQuaternionT<double>;

/// Rounding of a few rotations of lengths up to 100.
constexpr double TOLERANCE = 1e-12;

inline void expectNear(const Vector& actual, const Vector& expected, double tolerance = TOLERANCE) {
    EXPECT_NEAR(actual.x(), expected.x(), tolerance);
    EXPECT_NEAR(actual.y(), expected.y(), tolerance);
    EXPECT_NEAR(actual.z(), expected.z(), tolerance);
}

/// A position, and the directions that hold an entity's orientation.
struct Pose {
    Vector position;
    std::vector<Vector> directions;
};

/// Reads the pose of an entity that has one of its own.
class PoseReader : public VrexVisitor3D {
public:
    std::optional<Pose> pose;

    void visitPoint3D(VrexPoint3D& point) override { pose = Pose{point.getPosition(), {}}; }
    void visitSphere3D(VrexSphere3D& sphere) override { pose = Pose{sphere.getCenter(), {}}; }
    void visitLine3D(VrexLine3D& line) override { pose = Pose{line.getOrigin(), {line.getDirection()}}; }
    void visitPlane3D(VrexPlane3D& plane) override { pose = Pose{plane.getOrigin(), {plane.getNormal()}}; }
    void visitCircle3D(VrexCircle3D& circle) override {
        pose = Pose{circle.getCenter(), {circle.getNormal()}};
    }
    void visitTorus3D(VrexTorus3D& torus) override { pose = Pose{torus.getCenter(), {torus.getNormal()}}; }
    void visitCone3D(VrexCone3D& cone) override { pose = Pose{cone.getOrigin(), {cone.getDirection()}}; }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        pose = Pose{cylinder.getOrigin(), {cylinder.getDirection()}};
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        pose = Pose{ellipse.getCenter(), {ellipse.getDirection(), ellipse.getNormal()}};
    }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override { readFrame(curve); }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override { readFrame(surface); }
    void visitRigidSet3D(VrexRigidSet3D& set) override { readFrame(set); }
    void visitConnector3D(VrexConnector3D& connector) override { readFrame(connector); }

private:
    template <class Framed>
    void readFrame(const Framed& framed) {
        const auto turned = [&framed](const Vector& v) {
            return Quaternion::rotate(v, framed.getRotation(), true);
        };
        pose = Pose{framed.getOrigin(), {turned(Vector::OX()), turned(Vector::OZ())}};
    }
};

/// Empty for an entity that is where others are.
inline std::optional<Pose> findPose(VrexGeometry3D& geometry) {
    PoseReader reader;
    geometry.accept(reader);
    return reader.pose;
}

/// Throws `std::bad_optional_access` where there is none.
inline Pose poseOf(VrexGeometry3D& geometry) { return findPose(geometry).value(); }

inline void expectPose(VrexGeometry3D& geometry, const Pose& expected) {
    const Pose actual = poseOf(geometry);
    expectNear(actual.position, expected.position);
    ASSERT_EQ(actual.directions.size(), expected.directions.size());
    for (std::size_t i = 0; i < expected.directions.size(); ++i) {
        expectNear(actual.directions[i], expected.directions[i]);
    }
}

/// A motion by the formula of Rodrigues, v cos(a) + (k x v) sin(a) + k (k . v) (1 - cos(a)), without
/// quaternions.
struct Motion {
    Vector translation;
    double angle;
    Vector axis; ///< Of unit length.

    Vector turn(const Vector& v) const {
        return v * std::cos(angle) + axis.crossProduct(v) * std::sin(angle) +
               axis * (axis.dotProduct(v) * (1.0 - std::cos(angle)));
    }
    Vector move(const Vector& position) const { return turn(position) + translation; }
    Pose operator()(const Pose& pose) const {
        Pose moved{move(pose.position), {}};
        for (const Vector& direction : pose.directions) {
            moved.directions.push_back(turn(direction));
        }
        return moved;
    }
    VrexTransformation3DT<double> transformation() const { return {translation, angle, axis}; }
};

/// Far from every axis.
inline Motion someMotion() { return {{3.0, -1.0, 2.5}, 0.875, {2.0 / 3.0, -1.0 / 3.0, 2.0 / 3.0}}; }

/// The first ten parameters; 0 for those that there are not.
inline std::vector<double> parametersOf(const std::shared_ptr<VrexBaseObject>& object) {
    std::vector<double> values;
    for (std::uint32_t slot = 0; slot < 10; ++slot) {
        values.push_back(VrexVariableDescriptor(object, slot, nullptr).getValue());
    }
    return values;
}

} // namespace nsPoses
