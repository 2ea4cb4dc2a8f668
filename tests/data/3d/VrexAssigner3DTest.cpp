#include "data/3d/VrexAssigner3D.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "support/AnyGeometry.h"
#include "support/LogCapture.h"
#include "support/Poses.h"

namespace {

using nsPoses::parametersOf;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;
using testing::ThrowsMessage;
using Geometry = std::shared_ptr<VrexGeometry3D>;

/// Directions pass through two angles, rotations through two axes.
constexpr double ULPS = 1e-14;
const VrexAssigner3D assign;

/// What an assignment has to leave alone in every target.
struct Identity {
    explicit Identity(VrexBaseGeometry& target)
        : id(target.getID()),
          label(target.label()),
          dirty(target.isDirty()),
          changeStatus(target.getChangeStatus()),
          geometries(target.getGeometries()),
          variables(target.getVariables()) {}
    bool operator==(const Identity&) const = default;

    std::uint64_t id;
    std::string label;
    bool dirty;
    VrexGeometryChangeStatus changeStatus;
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexGeometryVariable>> variables;
};

/// Gives what an assignment has to leave alone other values than those of a sample.
void markIdentity(VrexBaseGeometry& object, std::uint64_t id) {
    object.setID(id);
    object.label() = std::to_string(id).insert(0, "object ");
    object.setDirty(id % 2 == 0);
    object.setChangeStatus(id % 2 == 0 ? VrexGeometryChangeStatus::Fixed : VrexGeometryChangeStatus::Changed);
}

/// The parameters in front of position and orientation, and which of them are lengths or angles.
template <class Shape>
constexpr int SIZES = 0;
template <>
constexpr int SIZES<VrexCircle3D> = 1;
template <>
constexpr int SIZES<VrexSphere3D> = 1;
template <>
constexpr int SIZES<VrexCylinder3D> = 1;
template <>
constexpr int SIZES<VrexCone3D> = 1;
template <>
constexpr int SIZES<VrexTorus3D> = 2;
template <>
constexpr int SIZES<VrexEllipse3D> = 2;
template <>
constexpr int SIZES<VrexPattern3D> = 1;

/// The parameters; of the two quaternions of an ellipse's rotation always the same one.
template <class Shape>
std::vector<double> stateOf(const std::shared_ptr<Shape>& shape) {
    auto state = parametersOf(shape);
    if constexpr (std::is_same_v<Shape, VrexEllipse3D>) {
        if (state[VrexEllipse3D::SCALAR] < 0.0) {
            std::transform(state.begin() + VrexEllipse3D::SCALAR, state.end(),
                           state.begin() + VrexEllipse3D::SCALAR, std::negate<>());
        }
    }
    return state;
}

/// A sample of another place, orientation and size, trimmed otherwise.
template <class Shape>
std::shared_ptr<Shape> makeOther() {
    auto other = makeSample<Shape>();
    VrexGeometryTransformation3DVisitor visitor(nsPoses::someMotion().transformation(), false);
    other->accept(visitor);
    for (int slot = 0; slot < SIZES<Shape>; ++slot) {
        VrexVariableDescriptor size(other, static_cast<std::uint32_t>(slot), nullptr);
        size.setValue(size.getValue() + 0.5);
    }
    if constexpr (std::is_base_of_v<VrexParametricCurve3D, Shape>) {
        other->start() = 0.0625;
        other->end() = 1.0;
    } else if constexpr (std::is_base_of_v<VrexParametricSurface3D, Shape>) {
        other->startU() = 0.0625;
        other->endV() = 1.0;
    }
    if constexpr (requires { other->setAllowRadiusSignChange(true); }) {
        other->setAllowRadiusSignChange({});
    }
    other->biasData() = VrexGeometryBiasData3D{{{3, 0.5}}, {}};
    other->status() = VrexGeometryStatus::Underdefined;
    return other;
}

template <class Shape>
void expectTrimOfSample(Shape& shape) {
    const auto sample = makeSample<Shape>();
    if constexpr (std::is_base_of_v<VrexParametricCurve3D, Shape>) {
        EXPECT_EQ(shape.start(), sample->start());
        EXPECT_EQ(shape.end(), sample->end());
    } else if constexpr (std::is_base_of_v<VrexParametricSurface3D, Shape>) {
        EXPECT_EQ(shape.startU(), sample->startU());
        EXPECT_EQ(shape.endU(), sample->endU());
        EXPECT_EQ(shape.startV(), sample->startV());
        EXPECT_EQ(shape.endV(), sample->endV());
    }
    if constexpr (requires { shape.getAllowRadiusSignChange(); }) {
        EXPECT_EQ(shape.getAllowRadiusSignChange(), sample->getAllowRadiusSignChange());
    }
    EXPECT_FALSE(shape.biasData().has_value());
}

/// The kinds of which every parameter is taken over, and their trims are not.
template <class Shape>
class VrexAssigner3DShapes : public testing::Test {};
using Shapes =
    testing::Types<VrexPoint3D, VrexLine3D, VrexPlane3D, VrexCircle3D, VrexSphere3D, VrexCylinder3D,
                   VrexCone3D, VrexTorus3D, VrexEllipse3D, VrexRigidSet3D, VrexPattern3D>;
TYPED_TEST_SUITE(VrexAssigner3DShapes, Shapes);

TYPED_TEST(VrexAssigner3DShapes, TakesParametersAndStatusAndNothingElse) {
    const auto source = makeOther<TypeParam>();
    const auto target = makeSample<TypeParam>();
    markIdentity(*source, 1);
    markIdentity(*target, 2);
    const Identity before(*target);
    const auto sourceBefore = parametersOf(source);
    ASSERT_NE(parametersOf(target), sourceBefore);

    assign(*source, *target);

    EXPECT_THAT(stateOf(target), Pointwise(DoubleNear(ULPS), stateOf(source)));
    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
    EXPECT_EQ(Identity(*target), before);
    expectTrimOfSample(*target);
    EXPECT_EQ(parametersOf(source), sourceBefore);
}

TYPED_TEST(VrexAssigner3DShapes, AssigningToItselfChangesNoMoreThanTheLastDigits) {
    const auto object = makeOther<TypeParam>();
    const auto before = stateOf(object);
    assign(*object, *object);
    EXPECT_THAT(stateOf(object), Pointwise(DoubleNear(ULPS), before));
}

TYPED_TEST(VrexAssigner3DShapes, SnapshotsOfTheTargetStay) {
    const auto target = makeSample<TypeParam>();
    const auto before = parametersOf(target);
    target->backup();
    assign(*makeOther<TypeParam>(), *target);
    target->restore();
    EXPECT_EQ(parametersOf(target), before);
}

/// The kinds of which the status alone is taken over.
template <class Shape>
class VrexAssigner3DStatusOnly : public testing::Test {};
using StatusOnly =
    testing::Types<VrexArrayPattern3D, VrexSpinSurface3D, VrexSweepSurface3D, VrexEqualDimensionElement3D>;
TYPED_TEST_SUITE(VrexAssigner3DStatusOnly, StatusOnly);

TYPED_TEST(VrexAssigner3DStatusOnly, TakesTheStatusAndNothingElse) {
    const auto source = makeOther<TypeParam>();
    VrexVariableDescriptor(source, 0, nullptr).setValue(8.0); // of those that have a parameter
    const auto target = makeSample<TypeParam>();
    markIdentity(*target, 2);
    const Identity before(*target);
    const auto parametersBefore = parametersOf(target);

    assign(*source, *target);

    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
    EXPECT_EQ(parametersOf(target), parametersBefore);
    EXPECT_EQ(Identity(*target), before);
    expectTrimOfSample(*target);
    for (const auto& part : before.geometries) {
        EXPECT_THAT(before.geometries, testing::Contains(part));
    }
}

TEST(VrexAssigner3D, VariableTakesValueAndStatus) {
    const auto source = VrexGeometryVariable::create(7.5);
    source->status() = VrexGeometryStatus::Overdefined;
    const auto target = makeSample<VrexGeometryVariable>();
    markIdentity(*target, 2);
    const Identity before(*target);
    assign(*source, *target);
    EXPECT_EQ(target->getValue(), 7.5);
    EXPECT_EQ(target->status(), VrexGeometryStatus::Overdefined);
    EXPECT_EQ(Identity(*target), before);
}

TEST(VrexAssigner3D, PointOntoALineLeavesTheLineAndWritesTheLog) {
    const auto line = makeSample<VrexLine3D>();
    const auto before = parametersOf(line);
    const LogCapture log;
    assign(*makeOther<VrexPoint3D>(), *line);
    EXPECT_EQ(parametersOf(line), before);
    EXPECT_EQ(line->status(), VrexGeometryStatus::Unknown);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text, "VrexAssigner3D : types should be the same!");
}

TEST(VrexAssigner3D, RigidSetKeepsItsMembersAsTheyAre) {
    const auto target = makeSample<VrexRigidSet3D>();
    const auto members = target->geometries();
    const auto before = parametersOf(members[0]);
    assign(*makeOther<VrexRigidSet3D>(), *target);
    EXPECT_EQ(target->geometries(), members);
    EXPECT_EQ(parametersOf(members[0]), before);
    EXPECT_EQ(members[0]->status(), VrexGeometryStatus::Unknown);
}

TEST(VrexAssigner3D, ConnectorTakesTheWholeTransformationAndKeepsItsOwner) {
    const auto source = makeSample<VrexConnector3D>();
    source->setTransformation({{9.0, 8.0, 7.0}, 2.0, 0.0, 0.0, 0.0}); // not of unit length, and stored so
    source->status() = VrexGeometryStatus::Underdefined;
    const auto target = makeSample<VrexConnector3D>();
    const auto owner = target->getRigidSet();
    assign(*source, *target);
    EXPECT_TRUE(target->getTransformation().isEqual(source->getTransformation(), 1e-300, 1e-300));
    EXPECT_EQ(target->getRigidSet(), owner);
    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
}

TEST(VrexAssigner3D, EllipseWithoutARightAngleFailsWithTheCenterTakenOver) {
    const auto source = makeOther<VrexEllipse3D>();
    for (std::uint32_t slot = VrexEllipse3D::SCALAR; slot <= VrexEllipse3D::K; ++slot) {
        VrexVariableDescriptor(source, slot, nullptr).setValue(0.0); // the axes turn to zero
    }
    const auto target = makeSample<VrexEllipse3D>();
    auto expected = parametersOf(target);
    for (int slot = VrexEllipse3D::X; slot <= VrexEllipse3D::Z; ++slot) {
        expected[slot] = parametersOf(source)[slot];
    }
    EXPECT_THAT([&] { assign(*source, *target); },
                ThrowsMessage<std::runtime_error>(
                    "VrexAssigner3DImpl : Ellipse normal and direction are not perpendicular"));
    EXPECT_EQ(parametersOf(target), expected);
    EXPECT_EQ(target->status(), VrexGeometryStatus::Unknown);
}

TEST(VrexAssigner3D, EvaluatedCurveTakesFrameTextsAndDescriptors) {
    const auto radius = VrexGeometryVariable::create(3.0);
    const auto source =
        VrexEvaluatedCurve3D::create({4.0, 5.0, 6.0}, nsPoses::someMotion().transformation().getRotation(),
                                     {{radius, 0, "radius"}}, "radius * t", "radius", "t^2");
    source->status() = VrexGeometryStatus::Underdefined;
    const auto target = makeSample<VrexEvaluatedCurve3D>();
    assign(*source, *target);
    EXPECT_EQ(parametersOf(target), parametersOf(source));
    EXPECT_EQ(target->getX(), "radius * t");
    EXPECT_EQ(target->getY(), "radius");
    EXPECT_EQ(target->getZ(), "t^2");
    ASSERT_EQ(target->descriptors().size(), 1U);
    EXPECT_EQ(target->descriptors()[0].object(), radius);
    EXPECT_EQ(target->getXParser().evaluate(std::vector<double>{2.0, 3.0}), 6.0);
    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
    expectTrimOfSample(*target);
}

TEST(VrexAssigner3D, EvaluatedSurfaceIsNotImplemented) {
    const auto target = makeSample<VrexEvaluatedSurface3D>();
    const auto before = parametersOf(target);
    EXPECT_THAT([&] { assign(*makeOther<VrexEvaluatedSurface3D>(), *target); },
                ThrowsMessage<std::runtime_error>("VrexAssigner3DImpl : Not implemented"));
    EXPECT_EQ(parametersOf(target), before);
}

TEST(VrexAssigner3D, ClassesOfOthersAreNotImplemented) {
    const auto other = AnyGeometry::create(VrexGeometry3DType::POINT, 1);
    const auto point = makeSample<VrexPoint3D>();
    const auto before = parametersOf(other);
    for (const auto& [source, target] : {std::pair<Geometry, Geometry>{other, point}, {point, other}}) {
        EXPECT_THAT([&] { assign(*source, *target); },
                    ThrowsMessage<std::runtime_error>("VrexAssigner3DImpl : Not implemented"));
    }
    EXPECT_EQ(parametersOf(other), before);
}

TEST(VrexAssigner3D, SplineTakesControlPointsAndWeightsAndKeepsTheRest) {
    const auto source = makeOther<VrexSpline3D>();
    source->controlPoints()[2].weight = 9.0;
    source->controlPoints()[3].point->status() = VrexGeometryStatus::Underdefined;
    source->knots()[0] = -1.0;
    source->controlPoints().push_back({VrexPoint3D::create(0.0, 0.0, 0.0), 1.0});
    const auto target = makeSample<VrexSpline3D>();
    const Identity before(*target);
    const auto knots = target->knots();
    const auto fitted = parametersOf(target->getInterpolatedPoints()[0]);
    assign(*source, *target);
    ASSERT_EQ(target->controlPoints().size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(parametersOf(target->controlPoints()[i].point),
                  parametersOf(source->controlPoints()[i].point));
        EXPECT_EQ(target->controlPoints()[i].weight, source->controlPoints()[i].weight);
        EXPECT_EQ(target->controlPoints()[i].point->status(), VrexGeometryStatus::Unknown);
    }
    EXPECT_EQ(parametersOf(target->getInterpolatedPoints()[0]), fitted);
    EXPECT_EQ(target->knots(), knots);
    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
    EXPECT_EQ(Identity(*target), before);
    expectTrimOfSample(*target);
}

TEST(VrexAssigner3D, NURBSSurfaceTakesTheNetRowByRow) {
    const auto source = makeOther<VrexNURBSSurface3D>();
    source->controlPoints()[1][2].weight = 9.0;
    const auto target = makeSample<VrexNURBSSurface3D>();
    const Identity before(*target);
    assign(*source, *target);
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const auto& expected = source->controlPoints()[i][j];
            const auto& actual = target->controlPoints()[i][j];
            EXPECT_EQ(parametersOf(actual.point), parametersOf(expected.point));
            EXPECT_EQ(actual.weight, expected.weight);
        }
    }
    EXPECT_EQ(target->status(), VrexGeometryStatus::Underdefined);
    EXPECT_EQ(Identity(*target), before);
    expectTrimOfSample(*target);
}

TEST(VrexAssigner3D, SourceWithFewerControlPointsIsRefusedBeforeAnyChange) {
    const auto spline = makeSample<VrexSpline3D>();
    const auto shorter = makeOther<VrexSpline3D>();
    shorter->controlPoints().pop_back();
    EXPECT_THAT([&] { assign(*shorter, *spline); },
                ThrowsMessage<std::out_of_range>("invalid vector subscript"));
    EXPECT_EQ(parametersOf(spline->controlPoints()[0].point),
              parametersOf(VrexPoint3D::create(1.0, 0.0, 0.5)));
    EXPECT_EQ(spline->status(), VrexGeometryStatus::Unknown);

    const auto net = makeSample<VrexNURBSSurface3D>();
    const auto fewerRows = makeOther<VrexNURBSSurface3D>();
    fewerRows->controlPoints().pop_back();
    const auto shorterRow = makeOther<VrexNURBSSurface3D>();
    shorterRow->controlPoints()[2].pop_back();
    for (const auto& source : {fewerRows, shorterRow}) {
        EXPECT_THAT([&] { assign(*source, *net); },
                    ThrowsMessage<std::out_of_range>("invalid vector subscript"));
        EXPECT_EQ(parametersOf(net->controlPoints()[0][0].point),
                  parametersOf(VrexPoint3D::create(0.0, 0.0, 0.0)));
    }
}

TEST(VrexAssigner3D, MissingControlPointsGiveAndTakeNothing) {
    const auto source = makeOther<VrexSpline3D>();
    source->controlPoints()[0] = {nullptr, 7.0};
    const auto target = makeSample<VrexSpline3D>();
    target->controlPoints()[1].point = nullptr;
    assign(*source, *target);
    EXPECT_EQ(parametersOf(target->controlPoints()[0].point),
              parametersOf(VrexPoint3D::create(1.0, 0.0, 0.5)));
    EXPECT_EQ(target->controlPoints()[0].weight, 7.0);
    EXPECT_EQ(target->controlPoints()[1].point, nullptr);
    EXPECT_EQ(parametersOf(target->controlPoints()[2].point), parametersOf(source->controlPoints()[2].point));
}

TEST(VrexAssigner3D, RotationThatDriftedIsNormalisedAndTheLogTells) {
    const auto target = makeSample<VrexRigidSet3D>();
    const auto source = makeSample<VrexRigidSet3D>();
    for (const auto& [slot, value] : {std::pair{VrexRigidSet3D::SCALAR, 1.2},
                                      {VrexRigidSet3D::I, 0.0},
                                      {VrexRigidSet3D::J, 1.6},
                                      {VrexRigidSet3D::K, 0.0}}) {
        VrexVariableDescriptor(source, static_cast<std::uint32_t>(slot), nullptr).setValue(value);
    }
    const LogCapture log;
    assign(*source, *target);
    EXPECT_DOUBLE_EQ(target->getRotation().scalar(), 0.6);
    EXPECT_DOUBLE_EQ(target->getRotation().j(), 0.8);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Object(0): a rotation of norm 2 is normalised.");
}

TEST(VrexAssigner3D, RotationThatIsNoNumberIsNotStored) {
    const auto target = makeSample<VrexRigidSet3D>();
    const auto before = parametersOf(target);
    const auto source = makeSample<VrexRigidSet3D>();
    VrexVariableDescriptor(source, VrexRigidSet3D::I, nullptr)
        .setValue(std::numeric_limits<double>::quiet_NaN());
    const LogCapture log;
    assign(*source, *target);
    EXPECT_EQ(parametersOf(target), before);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].text, "Object(0): a rotation of norm nan is not stored.");
}

} // namespace
