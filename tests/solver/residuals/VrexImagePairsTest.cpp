#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "solver/EntityReader.h"
#include "solver/FreeForms.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = VrexVector3DT<double>;
using Entity = std::shared_ptr<VrexGeometry3D>;
using Entities = std::vector<Entity>;
using nsFreeForms::Built;
constexpr double TOLERANCE = 1e-8;

/// Two steps along X and a turn about a line aside.
struct Array {
    Entities entities() const { return {along, about, linear, circular, both}; }

    std::shared_ptr<VrexLine3D> along = VrexLine3D::create({0, 0, 0}, {1, 0, 0});
    std::shared_ptr<VrexLine3D> about = VrexLine3D::create({0, -4, 0}, {0.1, 0.2, 1});
    std::shared_ptr<VrexPattern3D> linear = VrexPattern3D::create(VrexPattern3DType::Linear3D, along, 1.5);
    std::shared_ptr<VrexPattern3D> circular =
        VrexPattern3D::create(VrexPattern3DType::Circular3D, about, 0.4);
    std::shared_ptr<VrexArrayPattern3D> both = VrexArrayPattern3D::create({linear, circular});
};

std::shared_ptr<VrexInstance3D> instanceOf(const Entity& first, const Entity& second, const Array& array) {
    return VrexInstance3D::create(first, second, array.both, {2, 1});
}

std::vector<std::shared_ptr<VrexBaseConstraint>> held(const Entities& entities) {
    std::vector<std::shared_ptr<VrexBaseConstraint>> result;
    for (const Entity& entity : entities) {
        if (entity->type() != VrexGeometry3DType::ARRAY_PATTERN) {
            result.push_back(VrexFixation3D::create(entity, VrexFixation3DType::Complete3D));
        }
    }
    return result;
}

Vector imageOf(const Vector& point, const VrexInstance3D& instance) {
    const VrexTransformation3DT<double> motion(instance.getInstanceTransform());
    return VrexQuaternionT<double>::rotate(point, motion.getRotation(), false) + motion.getTranslation();
}

void move(const Entity& entity, const Vector& shift, double angle) {
    VrexGeometryTransformation3DVisitor visitor(
        VrexTransformation3DT<double>(
            shift, VrexQuaternionT<double>::makeFromAngleAndAxis(angle, {0.6, 0.0, 0.8}, 1e-6)),
        false);
    entity->accept(visitor);
}

Entities membersOf() {
    return {VrexPoint3D::create(1, 2, 3), VrexLine3D::create({0, 1, 0}, {1, 1, 0.3}),
            VrexCylinder3D::create({2, 0, 1}, {0.2, 0.4, 1}, 0.7),
            VrexEllipse3D::create({0, 0, 2}, {1, 0, 0.2}, {0, 1, 0}, 2.0, 1.0)};
}

struct Sets {
    explicit Sets(double angle) {
        move(second, {3, 1, -2}, angle);
        for (const Entities& part : {ones, others, Entities{first, second}, array.entities()}) {
            all.insert(all.end(), part.begin(), part.end());
        }
    }
    std::shared_ptr<VrexInstance3D> instance() const { return instanceOf(first, second, array); }
    VrexSolverComponentReport solve() const {
        auto constraints = held(array.entities());
        constraints.push_back(VrexFixation3D::create(first, VrexFixation3DType::Complete3D));
        constraints.push_back(instance());
        return solveOne(all, constraints);
    }

    Array array;
    Entities ones = membersOf();
    Entities others = membersOf();
    std::shared_ptr<VrexRigidSet3D> first = VrexRigidSet3D::create(ones);
    std::shared_ptr<VrexRigidSet3D> second = VrexRigidSet3D::create(others);
    Entities all;
};

TEST(VrexImagePairs, InstancesOfRigidSetsCarryTheirMembers) {
    for (const double angle : {0.0, 1.0, 2.5, 3.1}) {
        const Sets sets(angle);
        const auto report = sets.solve();
        ASSERT_EQ(reasonOf(report), "");
        ASSERT_TRUE(report.isConverged) << angle;
        EXPECT_TRUE(report.overConstrained.empty());
        EXPECT_EQ(report.freedom, 0U);
        const auto instance = sets.instance();
        for (std::size_t i = 0; i < sets.ones.size(); ++i) {
            if (sets.ones[i]->type() != VrexGeometry3DType::LINE &&
                sets.ones[i]->type() != VrexGeometry3DType::CYLINDER) {
                EXPECT_LT((imageOf(centerOf(sets.ones[i]), *instance) - centerOf(sets.others[i])).magnitude(),
                          TOLERANCE);
            }
        }
        EXPECT_EQ(sets.solve().iterations, 0);
    }
}

TEST(VrexImagePairs, DerivativesOfSetsMatchCentralDifferences) {
    const Sets sets(1.0);
    SolverProbe({sets.all.begin(), sets.all.end()}, {sets.instance()}).expectDerivativesMatch(1e-6);
}

TEST(VrexImagePairs, SetsThatAreNotCongruentAreNotSolved) {
    Sets sets(0.3);
    std::static_pointer_cast<VrexPoint3D>(sets.others[0])->setPosition({9, 9, 9});
    EXPECT_FALSE(sets.solve().isConverged);
}

TEST(VrexImagePairs, SetsWithoutMembersFollowByTheirFrames) {
    const Array array;
    const auto first = VrexRigidSet3D::create({});
    const auto second = VrexRigidSet3D::create({});
    move(second, {1, 2, 3}, 2.0);
    auto all = array.entities();
    all.insert(all.end(), {first, second});
    auto constraints = held(array.entities());
    const auto instance = instanceOf(first, second, array);
    constraints.push_back(instance);
    const auto report = solveOne(all, constraints);
    ASSERT_TRUE(report.isConverged) << reasonOf(report);
    EXPECT_EQ(report.freedom, 6U);
    EXPECT_LT((imageOf(first->getOrigin(), *instance) - second->getOrigin()).magnitude(), TOLERANCE);
}

/// Two of one make, the second one elsewhere and out of shape.
struct Copies {
    explicit Copies(nsFreeForms::Maker make) : first(make()), second(make()) {
        for (const Built& built : {first, second}) {
            const auto some = nsFreeForms::allOf(built);
            all.insert(all.end(), some.begin(), some.end());
        }
        const auto moved = nsFreeForms::allOf(second);
        disturb({moved.begin(), moved.end()}, {}, 0.2, 5);
    }
    Built first;
    Built second;
    Entities all;
};

TEST(VrexImagePairs, InstancesOfFreeFormsArePointByPointTheImages) {
    for (const auto& [name, make] : nsFreeForms::MAKERS) {
        SCOPED_TRACE(name);
        const Copies copies(make);
        const Array array;
        const auto instance = instanceOf(copies.first.entity, copies.second.entity, array);
        Entities all = copies.all;
        for (const Entity& entity : array.entities()) {
            all.push_back(entity);
        }
        SolverProbe({all.begin(), all.end()}, {instance}).expectDerivativesMatch(1e-5);
        auto constraints = held(array.entities());
        constraints.push_back(instance);
        const auto report = solveOne(all, constraints);
        ASSERT_EQ(reasonOf(report), "");
        ASSERT_TRUE(report.isConverged);
        EXPECT_TRUE(report.overConstrained.empty());
        const double parameters[] = {0.4, 0.7};
        const auto image = imageOf(nsFreeForms::pointsOf(*copies.first.entity).at(parameters), *instance);
        const auto point = nsFreeForms::pointsOf(*copies.second.entity).at(parameters);
        if (copies.first.entity->type() != VrexGeometry3DType::SWEEP_SURFACE &&
            copies.first.entity->type() != VrexGeometry3DType::SPIN_SURFACE) {
            EXPECT_LT((image - point).magnitude(), TOLERANCE);
        }
    }
}

TEST(VrexImagePairs, DrawnSurfacesMirrorByTheirParts) {
    for (const auto make : {nsFreeForms::spin, nsFreeForms::sweep}) {
        const Copies copies(make);
        const auto plane = VrexPlane3D::create({5, 0, 0}, {1, 0.2, 0});
        Entities all = copies.all;
        all.push_back(plane);
        const auto symmetry = VrexSymmetry3D::create(copies.first.entity, copies.second.entity, plane);
        SolverProbe({all.begin(), all.end()}, {symmetry}).expectDerivativesMatch(1e-5);
        const auto report = solveOne(all, {symmetry});
        ASSERT_EQ(reasonOf(report), "");
        ASSERT_TRUE(report.isConverged);
        EXPECT_TRUE(report.overConstrained.empty());
        for (std::size_t i = 0; i < copies.first.parts.size(); ++i) {
            if (copies.first.parts[i]->type() == VrexGeometry3DType::POINT) {
                const Vector p = centerOf(copies.first.parts[i]);
                const Vector normal = plane->getNormal();
                const Vector image = p - normal * (2.0 * normal.dotProduct(p - plane->getOrigin()));
                EXPECT_LT((image - centerOf(copies.second.parts[i])).magnitude(), TOLERANCE);
            }
        }
    }
}

TEST(VrexImagePairs, WhatCannotBeAnImageIsRefused) {
    const Array array;
    const auto weighted = nsFreeForms::spline();
    const auto spline = nsFreeForms::spline();
    std::static_pointer_cast<VrexSpline3D>(weighted.entity)->controlPoints()[1].weight = 9.0;
    Entities all = nsFreeForms::allOf(weighted);
    for (const Entities& part : {nsFreeForms::allOf(spline), array.entities()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    EXPECT_EQ(reasonOf(solveOne(all, {instanceOf(weighted.entity, spline.entity, array)})),
              "An instance is supported between two entities of the same make only.");
    const auto plane = VrexPlane3D::create({0, 0, 0}, {1, 0, 0});
    const auto one = nsFreeForms::helix().entity;
    const auto other = nsFreeForms::helix().entity;
    EXPECT_EQ(reasonOf(solveOne({one, other, plane}, {VrexSymmetry3D::create(one, other, plane)})),
              "A mirror image is supported between two entities of the same make only.");
}

} // namespace
