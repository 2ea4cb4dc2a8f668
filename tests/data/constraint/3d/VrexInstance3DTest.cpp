#include "data/constraint/3d/VrexInstance3D.h"

#include <limits>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AnyGeometry.h"
#include "support/Poses.h"
#include "support/SamplesRelations.h"
#include "support/SmallStack.h"

namespace {

using nsPoses::expectNear;
using nsPoses::Motion;
using nsPoses::Vector;
using testing::ElementsAre;
using testing::ThrowsMessage;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Pattern = std::shared_ptr<VrexPattern3D>;

Pattern linear(const Vector& direction, double step) {
    return VrexPattern3D::create(VrexPattern3DType::Linear3D, VrexLine3D::create({7.0, 8.0, 9.0}, direction),
                                 step);
}

Pattern circular(const Vector& origin, const Vector& direction, double angle) {
    return VrexPattern3D::create(VrexPattern3DType::Circular3D, VrexLine3D::create(origin, direction), angle);
}

std::shared_ptr<VrexInstance3D> instanceOf(const std::vector<Pattern>& patterns,
                                           const std::vector<std::int32_t>& coefficients) {
    return VrexInstance3D::create(VrexPoint3D::create(1.0, 2.0, 3.0), makeSample<VrexPoint3D>(),
                                  VrexArrayPattern3D::create(patterns), coefficients);
}

bool areCompatible(const Geometry& first, const Geometry& second) {
    return VrexInstance3D::canCreate(VrexArrayPattern3D::create({}), first, second, {});
}

/// Where the instance's motion takes a position.
Vector movedBy(const VrexInstance3D& instance, const Vector& position) {
    const auto column = instance.getInstanceTransform() *
                        VrexTransformMatrix3D::Row{position.x(), position.y(), position.z(), 1.0};
    return {column[0], column[1], column[2]};
}

TEST(VrexInstance3D, HoldsFirstSecondAndArrayPatternAndCoefficients) {
    const auto first = makeSample<VrexLine3D>();
    const auto second = makeSample<VrexLine3D>();
    const auto array = makeSample<VrexArrayPattern3D>();
    const auto instance = VrexInstance3D::create(first, second, array, {3, -2});
    EXPECT_THAT(instance->getGeometries(), ElementsAre(first, second, array));
    EXPECT_EQ(instance->getArrayPattern(), array);
    EXPECT_THAT(instance->getCoefficients(), ElementsAre(3, -2));
    EXPECT_EQ(instance->type(), VrexConstraint3DType::Instance3D);
    EXPECT_EQ(instance->getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
    EXPECT_EQ(instance->getGeomComponentType(2), VrexGeometryComponentType::UNKNOWN);
    EXPECT_TRUE(instance->checkData());
}

TEST(VrexInstance3D, TakesAwayTheFreedomOfTheFirstLessOne) {
    EXPECT_EQ(makeSample<VrexInstance3D>()->doc(), 2);
    const auto ofSets = VrexInstance3D::create(makeSample<VrexRigidSet3D>(), makeSample<VrexRigidSet3D>(),
                                               VrexArrayPattern3D::create({}), {});
    EXPECT_EQ(ofSets->doc(), 5);
}

TEST(VrexInstance3D, CreateNeedsAllThreeAndACoefficientForEachPattern) {
    const auto point = makeSample<VrexPoint3D>();
    const auto array = makeSample<VrexArrayPattern3D>();
    EXPECT_NE(VrexInstance3D::create(point, point, array, {1, 2}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(nullptr, point, array, {1, 2}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(point, nullptr, array, {1, 2}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(nullptr, nullptr, array, {1, 2}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(point, point, nullptr, {1, 2}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(point, point, array, {1}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(point, point, array, {1, 2, 3}), nullptr);
    EXPECT_EQ(VrexInstance3D::create(point, makeSample<VrexLine3D>(), array, {1, 2}), nullptr);
}

TEST(VrexInstance3D, CheckDataFindsWhatNoLongerFits) {
    const auto instance = makeSample<VrexInstance3D>();
    instance->setCoefficients({1, 2, 3});
    EXPECT_FALSE(instance->checkData());
    instance->setCoefficients({1, 2});
    EXPECT_TRUE(instance->checkData());
    instance->getArrayPattern()->getPatterns().pop_back();
    EXPECT_FALSE(instance->checkData());

    const auto set = makeSample<VrexRigidSet3D>();
    const auto ofSets =
        VrexInstance3D::create(makeSample<VrexRigidSet3D>(), set, VrexArrayPattern3D::create({}), {});
    EXPECT_TRUE(ofSets->checkData());
    set->geometries().pop_back();
    EXPECT_FALSE(ofSets->checkData());
}

TEST(VrexInstance3D, CopyAndUpdateTakeTheCoefficients) {
    const auto instance = makeSample<VrexInstance3D>();
    const auto copy = std::dynamic_pointer_cast<VrexInstance3D>(instance->makeCopy());
    EXPECT_THAT(copy->getCoefficients(), ElementsAre(3, -2));
    EXPECT_EQ(copy->getGeometries(), instance->getGeometries());

    const auto other = makeSample<VrexInstance3D>();
    other->setCoefficients({8, 9});
    const auto arguments = instance->getGeometries();
    instance->updateFrom(other);
    EXPECT_THAT(instance->getCoefficients(), ElementsAre(8, 9));
    EXPECT_EQ(instance->getGeometries(), arguments);
}

TEST(VrexInstance3D, KindsAreCompatibleWithThemselvesAlone) {
    const std::vector<Geometry> all{
        makeSample<VrexPoint3D>(),        makeSample<VrexLine3D>(),
        makeSample<VrexPlane3D>(),        makeSample<VrexRigidSet3D>(),
        makeSample<VrexNURBSSurface3D>(), makeSample<VrexCylinder3D>(),
        makeSample<VrexSphere3D>(),       makeSample<VrexCircle3D>(),
        makeSample<VrexSpline3D>(),       makeSample<VrexCone3D>(),
        makeSample<VrexEllipse3D>(),      makeSample<VrexTorus3D>(),
        makeSample<VrexConnector3D>(),    makeSample<VrexSpinSurface3D>(),
        makeSample<VrexSweepSurface3D>(), makeSample<VrexEvaluatedSurface3D>(),
        makeSample<VrexPattern3D>(),      makeSample<VrexEvaluatedCurve3D>(),
        makeSample<VrexArrayPattern3D>(), makeSample<VrexEqualDimensionElement3D>()};
    for (const Geometry& first : all) {
        for (const Geometry& second : all) {
            EXPECT_EQ(areCompatible(first, second), first == second);
        }
    }
}

TEST(VrexInstance3D, SetsNeedCompatibleMembersPairByPair) {
    const auto setOf = [](std::vector<Geometry> members) {
        return VrexRigidSet3D::create(std::move(members));
    };
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    EXPECT_TRUE(areCompatible(setOf({point, line}), makeSample<VrexRigidSet3D>()));
    EXPECT_FALSE(areCompatible(setOf({point}), setOf({point, point})));
    EXPECT_FALSE(areCompatible(setOf({point, line}), setOf({line, point})));
    EXPECT_FALSE(areCompatible(setOf({line, setOf({point})}), setOf({line, setOf({line})})));
    EXPECT_TRUE(areCompatible(setOf({nullptr, point}), setOf({nullptr, point})));
    EXPECT_FALSE(areCompatible(setOf({nullptr, point}), setOf({point, point})));
    EXPECT_FALSE(areCompatible(setOf({point, point}), setOf({point, nullptr})));
    EXPECT_TRUE(areCompatible(setOf({}), setOf({})));
}

TEST(VrexInstance3D, SplinesNeedTheirKnotsWithinATrillionth) {
    const auto shifted = [](double shift) {
        auto spline = makeSample<VrexSpline3D>();
        spline->knots().front() += shift; // 0.0 before, so the shift is exact
        return spline;
    };
    const auto spline = makeSample<VrexSpline3D>();
    EXPECT_TRUE(areCompatible(spline, shifted(1e-13)));
    EXPECT_TRUE(areCompatible(spline, shifted(1e-12)));
    EXPECT_TRUE(areCompatible(spline, shifted(-1e-12)));
    EXPECT_FALSE(areCompatible(spline, shifted(1.0000001e-12)));
    EXPECT_FALSE(areCompatible(spline, shifted(1e-11)));
    EXPECT_FALSE(areCompatible(spline, shifted(std::numeric_limits<double>::quiet_NaN())));
    const auto notANumber = shifted(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(areCompatible(notANumber, notANumber));
}

TEST(VrexInstance3D, SplinesNeedAsManyKnotsAndControlPointsAndNothingElse) {
    const auto spline = makeSample<VrexSpline3D>();
    const auto other = makeSample<VrexSpline3D>();
    other->degree() = 3;
    other->periodic() = false;
    other->controlPoints()[0].weight = 99.0;
    other->setInterpolatedPoints({});
    EXPECT_TRUE(areCompatible(spline, other));
    other->knots().push_back(9.0);
    EXPECT_FALSE(areCompatible(spline, other));
    other->knots().pop_back();
    other->controlPoints().pop_back();
    EXPECT_FALSE(areCompatible(spline, other));
}

TEST(VrexInstance3D, NURBSSurfacesNeedTheirKnotsWithinTenEpsilonsAndAsManyRows) {
    const auto surface = makeSample<VrexNURBSSurface3D>();
    const auto shifted = [](double u, double v) {
        auto other = makeSample<VrexNURBSSurface3D>();
        other->uKnots()[0] += u; // 0.0 before
        other->vKnots()[0] += v; // -1.0 before
        return other;
    };
    EXPECT_TRUE(areCompatible(surface, shifted(2.220446049250313e-15, 0.0)));
    EXPECT_FALSE(areCompatible(surface, shifted(2.2204460492503136e-15, 0.0)));
    EXPECT_TRUE(areCompatible(surface, shifted(0.0, 2e-15)));
    EXPECT_FALSE(areCompatible(surface, shifted(0.0, -3e-15)));

    const auto shorterRow = makeSample<VrexNURBSSurface3D>();
    shorterRow->controlPoints()[1].pop_back();
    EXPECT_TRUE(areCompatible(surface, shorterRow));
    const auto fewerRows = makeSample<VrexNURBSSurface3D>();
    fewerRows->controlPoints().pop_back();
    EXPECT_FALSE(areCompatible(surface, fewerRows));
    const auto moreKnots = makeSample<VrexNURBSSurface3D>();
    moreKnots->vKnots().push_back(1.0);
    EXPECT_FALSE(areCompatible(surface, moreKnots));
}

TEST(VrexInstance3D, DrawnSurfacesNeedCompatibleProfiles) {
    const auto spin = [](std::shared_ptr<VrexParametricCurve3D> profile, bool withAxis) {
        return VrexSpinSurface3D::create(std::move(profile), withAxis ? makeSample<VrexLine3D>() : nullptr);
    };
    const auto sweep = [](std::shared_ptr<VrexParametricCurve3D> profile) {
        return VrexSweepSurface3D::create(std::move(profile), makeSample<VrexLine3D>(), {});
    };
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_TRUE(areCompatible(sweep(nullptr), sweep(nullptr)));
    EXPECT_TRUE(areCompatible(spin(nullptr, true), spin(nullptr, false)));
    EXPECT_TRUE(areCompatible(spin(circle, true), spin(makeSample<VrexCircle3D>(), true)));
    EXPECT_FALSE(areCompatible(spin(circle, true), spin(makeSample<VrexEllipse3D>(), true)));
    EXPECT_FALSE(areCompatible(sweep(circle), sweep(nullptr)));
    EXPECT_FALSE(areCompatible(sweep(nullptr), sweep(circle)));
    const auto longer = makeSample<VrexSpline3D>();
    longer->knots().push_back(9.0);
    EXPECT_FALSE(areCompatible(sweep(makeSample<VrexSpline3D>()), sweep(longer)));
}

template <class Evaluated>
void expectComparedByTextsAndDescriptors() {
    const auto variable = makeSample<VrexGeometryVariable>();
    using Descriptors = std::vector<VrexVariableDescriptor>;
    const auto make = [](const char* x, const Descriptors& descriptors) {
        return Evaluated::create({1.0, 2.0, 3.0}, VrexQuaternionT<double>::ONE(), descriptors, x, "2", "3");
    };
    const auto reference = make("r", {{variable, 0, "r"}});
    EXPECT_TRUE(areCompatible(reference, make("r", {{variable, 0, "r"}})));
    EXPECT_FALSE(areCompatible(reference, make("r ", {{variable, 0, "r"}})));
    EXPECT_FALSE(areCompatible(make("1", {{variable, 0, "r"}}), make("1", {{variable, 0, "s"}})));
    EXPECT_FALSE(areCompatible(reference, make("r", {{variable, 1, "r"}})));
    EXPECT_FALSE(areCompatible(reference, make("r", {{makeSample<VrexGeometryVariable>(), 0, "r"}})));
    EXPECT_FALSE(areCompatible(reference, make("r", {{variable, 0, "r"}, {variable, 0, "s"}})));
}

TEST(VrexInstance3D, EvaluatedShapesNeedEqualTextsAndDescriptors) {
    expectComparedByTextsAndDescriptors<VrexEvaluatedCurve3D>();
    expectComparedByTextsAndDescriptors<VrexEvaluatedSurface3D>();
}

TEST(VrexInstance3D, ClassesOfOthersAreComparedByKindUnlessTheKindHasParts) {
    const auto any = [](VrexGeometry3DType type) { return AnyGeometry::create(type, 1); };
    EXPECT_TRUE(areCompatible(any(VrexGeometry3DType::CONE), makeSample<VrexCone3D>()));
    EXPECT_FALSE(areCompatible(any(VrexGeometry3DType::RIGID_SET), makeSample<VrexRigidSet3D>()));
}

TEST(VrexInstance3D, SharedCircularAndDeepSetsAreComparedOnce) {
    Geometry shared1 = makeSample<VrexPoint3D>();
    Geometry shared2 = makeSample<VrexPoint3D>();
    for (int depth = 0; depth < 64; ++depth) { // 2^64 ways lead to the points
        shared1 = VrexRigidSet3D::create({shared1, shared1});
        shared2 = VrexRigidSet3D::create({shared2, shared2});
    }
    EXPECT_TRUE(areCompatible(shared1, shared2));

    const auto ring1 = VrexRigidSet3D::create({});
    const auto ring2 = VrexRigidSet3D::create({ring1});
    ring1->geometries().push_back(ring2);
    EXPECT_TRUE(areCompatible(ring1, ring2));
    ring1->geometries().clear();

    runOnSmallStack([] {
        Geometry deep1 = makeSample<VrexPoint3D>();
        Geometry deep2 = makeSample<VrexLine3D>();
        for (int depth = 0; depth < 100'000; ++depth) {
            deep1 = VrexRigidSet3D::create({deep1});
            deep2 = VrexRigidSet3D::create({deep2});
        }
        EXPECT_FALSE(areCompatible(deep1, deep2)); // they differ at the bottom
    });
}

TEST(VrexInstance3D, LinearStepsAddUp) {
    const auto one =
        instanceOf({linear({0.0, 0.0, 2.0}, 2.0)}, {3}); // the one axis that two angles give exactly
    EXPECT_EQ(one->getInstanceTransform(), VrexTransformMatrix3D::translate({0.0, 0.0, 6.0}));
    const auto three =
        instanceOf({linear({1.0, 0.0, 0.0}, 2.0), linear({0.0, 0.0, 1.0}, 0.5), linear({0.0, 1.0, 0.0}, 7.0)},
                   {3, -4, 0});
    expectNear(movedBy(*three, {1.0, 2.0, 3.0}), {7.0, 2.0, 1.0});
    const auto none = instanceOf({}, {});
    EXPECT_EQ(none->getInstanceTransform(), VrexTransformMatrix3D());
}

TEST(VrexInstance3D, CircularPatternAtTheEndTurnsWhatTheLinearOnesMoved) {
    const Vector origin{1.0, -1.0, 2.0};
    const Vector axis{0.0, 0.6, 0.8};
    const auto instance = instanceOf({linear({1.0, 0.0, 0.0}, 2.0), circular(origin, axis, 0.25)}, {3, -2});
    const Motion turn{Vector::ZERO(), -0.5, axis};
    const Vector position{4.0, 5.0, 6.0};
    const Vector stepped = position + Vector(6.0, 0.0, 0.0);
    expectNear(movedBy(*instance, position), origin + turn.turn(stepped - origin));
}

TEST(VrexInstance3D, CircularPatternInFrontSharesTheFirstCoefficient) {
    const Vector origin{0.0, 1.0, 0.0};
    const std::vector<Pattern> patterns{circular(origin, {0.0, 0.0, 1.0}, 0.25),
                                        linear({1.0, 0.0, 0.0}, 2.0)};
    const auto instance = instanceOf(patterns, {2, 5});
    const Motion turn{Vector::ZERO(), 0.5, {0.0, 0.0, 1.0}};
    const Vector position{4.0, 5.0, 6.0};
    const Vector stepped = position + Vector(4.0, 0.0, 0.0);
    expectNear(movedBy(*instance, position), origin + turn.turn(stepped - origin));
    EXPECT_EQ(instanceOf(patterns, {2, 99})->getInstanceTransform(), instance->getInstanceTransform());
}

TEST(VrexInstance3D, LastOfTwoCircularPatternsCountsAndMayNameALinearOne) {
    const Vector origin{7.0, 8.0, 9.0}; // of the line of the linear pattern
    const Vector direction{1.0, 0.0, 0.0};
    const auto instance =
        instanceOf({circular({0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, 0.25), linear(direction, 0.5),
                    circular({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 9.0)},
                   {4, 3, 77});
    // One linear pattern was counted, so the second pattern and coefficient give the turn: 3 times 0.5.
    const Motion turn{Vector::ZERO(), 1.5, direction};
    const Vector position{4.0, 5.0, 6.0};
    const Vector stepped = position + direction * 2.0;
    expectNear(movedBy(*instance, position), origin + turn.turn(stepped - origin));
}

TEST(VrexInstance3D, PatternsThatDoNotFitAreOutOfRange) {
    const auto shortList = instanceOf({linear({1.0, 0.0, 0.0}, 2.0)}, {3});
    shortList->setCoefficients({});
    EXPECT_THAT([&] { static_cast<void>(shortList->getInstanceTransform()); },
                ThrowsMessage<std::out_of_range>("invalid vector subscript"));
    const auto shortTurn = instanceOf({circular({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 0.25)}, {3});
    shortTurn->setCoefficients({});
    EXPECT_THAT([&] { static_cast<void>(shortTurn->getInstanceTransform()); },
                ThrowsMessage<std::out_of_range>("invalid vector subscript"));

    const auto nullPattern = instanceOf({linear({1.0, 0.0, 0.0}, 2.0), nullptr}, {3, 1});
    EXPECT_THAT([&] { static_cast<void>(nullPattern->getInstanceTransform()); },
                ThrowsMessage<std::out_of_range>("The array pattern has a null pattern."));
    for (const auto type : {VrexPattern3DType::Linear3D, VrexPattern3DType::Circular3D}) {
        const auto noAxis = instanceOf({VrexPattern3D::create(type, nullptr, 1.0)}, {1});
        EXPECT_THAT([&] { static_cast<void>(noAxis->getInstanceTransform()); },
                    ThrowsMessage<std::out_of_range>("A pattern of the array pattern has no axis line."));
        EXPECT_THROW(noAxis->satisfy(), std::out_of_range);
    }
}

} // namespace
