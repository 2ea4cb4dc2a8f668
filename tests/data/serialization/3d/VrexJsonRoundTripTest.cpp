// What holds of every system that is written as a document and read again.

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

#include "support/DocumentTexts.h"
#include "support/GermanLocale.h"
#include "support/JsonDifference.h"
#include "support/ObjectGraph.h"
#include "support/RandomFields.h"
#include "support/RandomSystems.h"
#include "support/RandomTurns.h"
#include "support/WrittenDocuments.h"

using nsDocumentTexts::constraintOf;
using nsDocumentTexts::geometryOf;
using nsDocumentTexts::readJson;
using nsDocumentTexts::written;

namespace {

using Directions = RandomFields::Directions;

/// What directions and rotations lose on the way through angles and back.
constexpr double DIRECTION_TOLERANCE = 1e-12;
constexpr int SYSTEMS = randomTurns(10'000);

/// Takes away what a document does not keep.
class LostFields : public VrexVisitor3D {
public:
    void visitCylinder3D(VrexCylinder3D& cylinder) override { openUp(cylinder); }
    void visitTorus3D(VrexTorus3D& torus) override { openUp(torus); }
    void visitSpline3D(VrexSpline3D& spline) override { spline.start() = spline.end() = std::nullopt; }

private:
    static void openUp(VrexParametricSurface3D& surface) {
        surface.startU() = surface.endU() = surface.startV() = surface.endV() = std::nullopt;
    }
};

class Systems {
public:
    explicit Systems(Directions directions) : m_directions(directions) {}

    /// One of which a document keeps all.
    VrexImmutableSystem3D next() {
        auto system = m_systems.next();
        m_fields = RandomFields(m_directions);
        system.accept(m_fields);
        LostFields lost;
        system.accept(lost);
        return system;
    }

private:
    RandomSystems m_systems{RandomSystems::Style::Writable};
    Directions m_directions;
    RandomFields m_fields{m_directions};
};

ObjectGraph graphOf(const VrexImmutableSystem3D& system) {
    return ObjectGraph(system.geometries(), system.variables(), system.constraints(), system.equations(),
                       system.referenceGeometries());
}

void addClasses(const VrexImmutableSystem3D& system, std::set<std::string>& classes) {
    const auto graph = graphOf(system);
    for (const auto& object : graph.objects()) {
        const VrexBaseObject& known = *object;
        classes.insert(typeid(known).name());
    }
}

TEST(VrexJsonRoundTrip, DocumentsComeBackAsTheyAre) {
    const JsonDifference difference(DIRECTION_TOLERANCE);
    Systems systems(Directions::Any);
    std::set<std::string> classes;
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto json = written(system);
        const auto again = readJson(json);
        ASSERT_EQ(difference.find(json, written(again)), "");
        ASSERT_EQ(again.linearTolerance(), system.linearTolerance());
        ASSERT_EQ(again.angularTolerance(), system.angularTolerance());
        ASSERT_EQ(written(system).dump(), json.dump());
        if (i < 1'000) {
            addClasses(system, classes);
        }
    }
    EXPECT_EQ(classes.size(), 59U); // 20 of entities, 36 of constraints, 2 of equations, the variable.
}

TEST(VrexJsonRoundTrip, EveryFieldOfEveryObjectComesBackToTheBit) {
    Systems systems(Directions::Exact);
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto again = readJson(written(system));
        const auto before = graphOf(system);
        const auto after = graphOf(again);
        ASSERT_EQ(after.text(), before.text());
        ASSERT_EQ(after.countShared(before), 0U);
    }
}

TEST(VrexJsonRoundTrip, TextsComeBackByteForByte) {
    const GermanLocale german;
    ASSERT_TRUE(GermanLocale::isSet());
    Systems systems(Directions::Exact);
    VrexSystem3DSerializer serializer({.writeRegularStatus = true});
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        ASSERT_TRUE(serializer.serialize(systems.next()));
        const std::string text(serializer.jsonStream());
        ASSERT_EQ(serializer.jsonToStream(LumoJson::parse(text)), text);
        if (i < 100) {
            keepWritten(text);
        }
        ASSERT_TRUE(serializer.serialize(readJson(LumoJson::parse(text))));
        ASSERT_EQ(serializer.jsonStream(), text);
    }
}

/// Checks that identifiers rise by one from `next` on; returns the one behind the last.
template <class List>
std::uint64_t expectRising(const List& objects, std::uint64_t next) {
    for (const auto& object : objects) {
        EXPECT_EQ(object->getID(), next++);
    }
    return next;
}

TEST(VrexJsonRoundTrip, WithoutIdentifiersFreshOnesAreGiven) {
    Systems systems(Directions::Exact);
    const VrexSerializationParameters parameters{.ignoreObjectIds = true};
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto json = written(systems.next(), parameters);
        VrexIDGenerator generator(1000);
        VrexSystem3DDeserializer deserializer(generator, parameters);
        VrexImmutableSystem3D again;
        ASSERT_TRUE(deserializer.deserialize(json, again));
        ASSERT_EQ(written(again, parameters).dump(), json.dump());
        std::uint64_t next = expectRising(again.geometries(), 1000);
        next = expectRising(again.variables(), next);
        next = expectRising(again.constraints(), next);
        next = expectRising(again.equations(), next);
        EXPECT_EQ(generator.getNext(), next);
    }
}

TEST(VrexJsonRoundTrip, CopiesAreWrittenAlike) {
    Systems systems(Directions::Any);
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        ASSERT_EQ(written(system.deepCopy()).dump(), written(system).dump());
    }
}

TEST(VrexJsonRoundTrip, DragsComeBackWithThoseByMatrixFirst) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    VrexTransform3D drags;
    drags.applyTranslation(point, {1.0, 2.0, 3.0});
    drags.applyTransformation(line, VrexTransformMatrix3D::makeFromQuaternion(
                                        VrexQuaternionT<double>::makeFromAngleAndAxis(0.5, {1, 2, 2}, 1e-6)));
    drags.applyTransformParameters(line, VrexDragParameter3DType::Radius3D, 5.0);
    const VrexImmutableSystem3D system({point, line}, {}, {}, {}, 1, 1, drags, {});
    const auto again = readJson(written(system));
    const auto& transforms = again.transform().transformations();
    ASSERT_EQ(transforms.size(), 2U);
    EXPECT_EQ(transforms[0].geometry, again.geometries()[1]);
    EXPECT_EQ(transforms[0].matrix, drags.transformations()[1].matrix);
    EXPECT_EQ(transforms[1].geometry, again.geometries()[0]);
    EXPECT_EQ(transforms[1].matrix, drags.transformations()[0].matrix);
    EXPECT_EQ(again.transform().transformParameters().at(0).value, 5.0);
}

TEST(VrexJsonRoundTrip, SeveralDragsOfAnEntityBecomeOne) {
    const auto point = makeSample<VrexPoint3D>();
    VrexTransform3D drags;
    ASSERT_TRUE(drags.setTransforms({{point, VrexTransformMatrix3D::translate({1.0, 2.0, 3.0})},
                                     {point, VrexTransformMatrix3D::translate({0.5, 0.0, 0.0})}}));
    const auto again = readJson(written({{point}, {}, {}, {}, 1, 1, drags, {}}));
    ASSERT_EQ(again.transform().transformations().size(), 1U);
    EXPECT_EQ(again.transform().transformations()[0].matrix,
              VrexTransformMatrix3D::translate({1.5, 2.0, 3.0}));
}

/// What is written and read, of the first geometry.
template <class Geometry>
std::shared_ptr<VrexGeometry3D> reread(const std::shared_ptr<Geometry>& geometry) {
    return readJson(written({VrexImmutableSystem3D::OrderGeometriesAndConstraints(),
                             {geometry},
                             {},
                             {},
                             {},
                             1,
                             1,
                             {},
                             {}}))
        .geometries()
        .back();
}

template <class Geometry>
std::shared_ptr<Geometry> rereadAs(const std::shared_ptr<Geometry>& geometry) {
    return std::dynamic_pointer_cast<Geometry>(reread(geometry));
}

TEST(VrexJsonRoundTrip, SomeRangesAreLost) {
    const auto spline = rereadAs(makeSample<VrexSpline3D>());
    EXPECT_FALSE(spline->start() || spline->end());
    const auto cylinder = rereadAs(makeSample<VrexCylinder3D>());
    EXPECT_FALSE(cylinder->startU() || cylinder->endU() || cylinder->startV() || cylinder->endV());
    const auto torus = rereadAs(makeSample<VrexTorus3D>());
    EXPECT_FALSE(torus->startU() || torus->endU() || torus->startV() || torus->endV());
}

TEST(VrexJsonRoundTrip, WhatIsReadIsDirtyAndHasNoSnapshot) {
    const auto point = makeSample<VrexPoint3D>();
    point->backup();
    point->setDirty(false);
    point->biasData() = VrexGeometryBiasData3D();
    const auto again = rereadAs(point);
    EXPECT_TRUE(again->isDirty());
    EXPECT_FALSE(again->checkChanged(0.0, 0.0)); // True for every point with a snapshot.
    EXPECT_FALSE(again->biasData().has_value());
}

TEST(VrexJsonRoundTrip, TheDistanceOfAPlaneFollowsFromItsOrigin) {
    const auto plane = makeSample<VrexPlane3D>();
    auto descriptor = VrexVariableDescriptor(plane, VrexPlane3D::DIST, "d");
    const double distance = descriptor.getValue();
    descriptor.setValue(100.0);
    EXPECT_NEAR(VrexVariableDescriptor(reread(plane), VrexPlane3D::DIST, "d").getValue(), distance, 1e-12);
}

TEST(VrexJsonRoundTrip, TheLengthOfAConnectorsRotationIsLost) {
    const auto connector = VrexConnector3D::create(nullptr);
    connector->setTransformation({{1, 2, 3}, 3.0, 0.0, 0.0, 4.0});
    EXPECT_NEAR(rereadAs(connector)->getRotation().norm(), 1.0, 1e-12);
}

TEST(VrexJsonRoundTrip, RegularConstraintsNeedToBeAskedFor) {
    const auto line = makeSample<VrexLine3D>();
    const auto parallelism = VrexParallelism3D::create(line, line);
    parallelism->status() = VrexConstraintStatus::Regular;
    parallelism->setParent(parallelism);
    const VrexImmutableSystem3D system({line}, {}, {parallelism}, {}, 1, 1, {}, {});
    const auto plain = readJson(written(system));
    EXPECT_EQ(plain.constraints()[0]->status(), VrexConstraintStatus::Unknown);
    EXPECT_EQ(plain.constraints()[0]->getParent(), nullptr);
    const auto asked = readJson(written(system, {.writeRegularStatus = true}));
    EXPECT_EQ(asked.constraints()[0]->status(), VrexConstraintStatus::Regular);
}

TEST(VrexJsonRoundTrip, ARadiusThatDisagreesWithItsKindIsPutRight) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto radius = VrexRadius3D::create(circle, 1.0, VrexRadius3DType::Radius3D);
    radius->setRadiusType(VrexRadius3DType::MinorRadius3D);
    const auto again = readJson(written({{circle}, {}, {radius}, {}, 1, 1, {}, {}}));
    EXPECT_EQ(constraintOf<VrexRadius3D>(again, 0).getRadiusType(), VrexRadius3DType::Radius3D);
}

TEST(VrexJsonRoundTrip, TheNumberBehindABoundVariableBecomesItsValue) {
    const auto variable = VrexGeometryVariable::create(7.0);
    const auto line = makeSample<VrexLine3D>();
    const auto angle = VrexAngle3D::create(line, line, 3.0);
    angle->bindVariable(variable);
    const auto again = readJson(written({{line}, {variable}, {angle}, {}, 1, 1, {}, {}}));
    const auto read = std::dynamic_pointer_cast<VrexDimension3D>(again.constraints()[0]);
    read->bindVariable(nullptr);
    EXPECT_EQ(read->value(), 7.0);
}

TEST(VrexJsonRoundTrip, ASplineOrNetWithoutPointsCannotBeRead) {
    const auto refusalFor = [](const std::shared_ptr<VrexGeometry3D>& geometry) {
        return nsDocumentTexts::jsonRefusal(written({{geometry}, {}, {}, {}, 1, 1, {}, {}}));
    };
    EXPECT_EQ(refusalFor(VrexSpline3D::create({1, false, {}, {}})),
              "Invalid data: spline control points are missing.");
    EXPECT_EQ(refusalFor(VrexNURBSSurface3D::create({1, 1, {}, {}, {}})),
              "Invalid data: NURBS surface control points are missing.");
}

} // namespace
