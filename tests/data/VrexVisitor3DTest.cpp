#include "data/VrexVisitor3D.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexSilentVisitor.h"
#include "data/VrexUniformVisitor.h"
#include "data/VrexVisitable.h"
#include "support/ProbeConstraint.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;

/// Each class and its direct base, in the order of the visitor's slots.
const std::vector<std::pair<std::string, std::string>> CLASSES{
    {"BaseObject", ""},
    {"BaseGeometry", "BaseObject"},
    {"Geometry", "BaseGeometry"},
    {"GeometryVariable", "BaseGeometry"},
    {"BaseConstraint", "BaseObject"},
    {"BaseEquation", "BaseConstraint"},
    {"CallbackEquation", "BaseEquation"},
    {"ExpressionEquation", "BaseEquation"},
    {"Constraint", "BaseConstraint"},
    {"Geometry3D", "Geometry"},
    {"Cylinder3D", "ParametricSurface3D"},
    {"Sphere3D", "Geometry3D"},
    {"Point3D", "Geometry3D"},
    {"Line3D", "Geometry3D"},
    {"Plane3D", "Geometry3D"},
    {"ParametricSurface3D", "Geometry3D"},
    {"NURBSSurface3D", "ParametricSurface3D"},
    {"Circle3D", "ParametricCurve3D"},
    {"Ellipse3D", "ParametricCurve3D"},
    {"EvaluatedCurve3D", "ParametricCurve3D"},
    {"Pattern3D", "Geometry3D"},
    {"ArrayPattern3D", "Geometry3D"},
    {"Constraint3D", "Constraint"},
    {"Dimension3D", "Constraint3D"},
    {"Distance3D", "Dimension3D"},
    {"DirectionDistance3D", "Dimension3D"},
    {"ParallelDistance3D", "Dimension3D"},
    {"Incidence3D", "Constraint3D"},
    {"Fixation3D", "Constraint3D"},
    {"Angle3D", "Dimension3D"},
    {"PlanarAngle3D", "Dimension3D"},
    {"Parallelism3D", "Constraint3D"},
    {"Perpendicularity3D", "Constraint3D"},
    {"Concentricity3D", "Constraint3D"},
    {"IncidenceToCenter3D", "Constraint3D"},
    {"Symmetry3D", "Constraint3D"},
    {"MidPoint3D", "Constraint3D"},
    {"Tangency3D", "Constraint3D"},
    {"Radius3D", "Dimension3D"},
    {"EqualRadius3D", "Constraint3D"},
    {"SurfaceNormal3D", "Constraint3D"},
    {"GeometrySet3D", "Geometry3D"},
    {"RigidSet3D", "GeometrySet3D"},
    {"Connector3D", "Geometry3D"},
    {"Mate3D", "Constraint3D"},
    {"MateDimensionInterval3D", "Constraint3D"},
    {"SliderMate3D", "Mate3D"},
    {"RevoluteMate3D", "Mate3D"},
    {"FastenedMate3D", "Mate3D"},
    {"CylinderMate3D", "Mate3D"},
    {"PlanarMate3D", "Mate3D"},
    {"PinSlotMate3D", "Mate3D"},
    {"ParallelMate3D", "Mate3D"},
    {"BallMate3D", "Mate3D"},
    {"ParametricCurve3D", "Geometry3D"},
    {"Spline3D", "ParametricCurve3D"},
    {"Cone3D", "ParametricSurface3D"},
    {"Torus3D", "ParametricSurface3D"},
    {"VariableFixation3D", "Constraint3D"},
    {"SpinSurface3D", "ParametricSurface3D"},
    {"EvaluatedSurface3D", "ParametricSurface3D"},
    {"SweepSurface3D", "ParametricSurface3D"},
    {"EqualParameter3D", "Constraint3D"},
    {"HalfAngle3D", "Dimension3D"},
    {"Instance3D", "Constraint3D"},
    {"PatternValue3D", "Dimension3D"},
    {"CurveLength3D", "Dimension3D"},
    {"EqualCurveProperty3D", "Constraint3D"},
    {"EqualDimensionElement3D", "Geometry3D"},
    {"EqualDimension3D", "Constraint3D"},
    {"EqualDimensionValue3D", "Dimension3D"},
    {"MateRelation3D", "Constraint3D"},
};

std::vector<std::string> visitsOf(VrexBaseObject& object) {
    RecordingVisitor visitor;
    object.accept(visitor);
    return visitor.visits;
}

TEST(VrexVisitor3D, HasItsSlotsInOrderAndClimbsTheClassTree) {
    std::vector<std::pair<std::string, std::string>> rows{{"BaseObject", ""}};
    std::vector<std::string> visits{"visitBaseObject"};
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)                                                          \
    rows.emplace_back(std::string(#CLASS).substr(4), std::string(#BASE).substr(4));                          \
    visits.emplace_back(#VISIT);                                                                             \
    EXPECT_STREQ(#BASE_VISIT, ("visit" + rows.back().second).c_str());
#define VREX_OBJECT_RESERVED(CLASS, VISIT, BASE, BASE_VISIT) VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)
#include "data/VrexObjects.def"
    EXPECT_EQ(rows.size(), 72U);
    EXPECT_EQ(rows, CLASSES);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(visits[i], "visit" + rows[i].first);
    }
}

TEST(VrexVisitor3D, PointClimbsFromItsOwnVisitToTheRoot) {
    EXPECT_THAT(visitsOf(*makeSample<VrexPoint3D>()),
                ElementsAre("visitPoint3D", "visitGeometry3D", "visitGeometry", "visitBaseGeometry",
                            "visitBaseObject"));
}

TEST(VrexVisitor3D, SphereIsNoParametricSurface) {
    EXPECT_THAT(visitsOf(*makeSample<VrexSphere3D>()),
                ElementsAre("visitSphere3D", "visitGeometry3D", "visitGeometry", "visitBaseGeometry",
                            "visitBaseObject"));
}

TEST(VrexVisitor3D, VariableGoesToBaseGeometryWithoutPassingGeometry) {
    EXPECT_THAT(visitsOf(*makeSample<VrexGeometryVariable>()),
                ElementsAre("visitGeometryVariable", "visitBaseGeometry", "visitBaseObject"));
}

TEST(VrexVisitor3D, ConstraintClimbsThroughItsLevels) {
    ProbeConstraint constraint;
    EXPECT_THAT(visitsOf(constraint),
                ElementsAre("visitConstraint", "visitBaseConstraint", "visitBaseObject"));
}

TEST(VrexVisitor3D, OverrideAtALevelCatchesTheSubtreeBelowItOnly) {
    class GeometryVisitor : public VrexVisitor3D {
    public:
        int seen = 0;
        void visitGeometry(VrexGeometry&) override { ++seen; }
    } visitor;
    makeSample<VrexLine3D>()->accept(visitor);
    EXPECT_EQ(visitor.seen, 1);
    makeSample<VrexGeometryVariable>()->accept(visitor);
    EXPECT_EQ(visitor.seen, 1);
}

TEST(VrexVisitor3D, FailureAtTheRootReachesEveryUnhandledClass) {
    class StrictVisitor : public VrexVisitor3D {
    public:
        void visitPoint3D(VrexPoint3D&) override {}
        void visitBaseObject(VrexBaseObject&) override { throw std::runtime_error("not handled"); }
    } visitor;
    EXPECT_NO_THROW(makeSample<VrexPoint3D>()->accept(visitor));
    EXPECT_THROW(makeSample<VrexPlane3D>()->accept(visitor), std::runtime_error);
}

TEST(VrexSilentVisitor, IgnoresWhatItDoesNotHandle) {
    const auto point = makeSample<VrexPoint3D>();
    const auto before = point->makeCopy();
    VrexSilentVisitor visitor;
    EXPECT_NO_THROW(point->accept(visitor));
    EXPECT_TRUE(point->isEqualParameters(*before));
}

TEST(VrexUniformVisitor, ReceivesEveryObjectOfWhateverClass) {
    std::uint64_t next = 5;
    VrexUniformVisitor visitor([&next](VrexBaseObject& object) { object.setID(next++); });
    const auto point = makeSample<VrexPoint3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto constraint = std::make_shared<ProbeConstraint>();
    point->accept(visitor);
    variable->accept(visitor);
    constraint->accept(visitor);
    EXPECT_EQ(point->getID(), 5U);
    EXPECT_EQ(variable->getID(), 6U);
    EXPECT_EQ(constraint->getID(), 7U);
}

TEST(VrexVisitable, PassesAVisitorOverWhatItHolds) {
    class PointList : public VrexVisitable {
    public:
        std::vector<std::shared_ptr<VrexPoint3D>> points{makeSample<VrexPoint3D>(),
                                                         makeSample<VrexPoint3D>()};
        void accept(VrexVisitor3D& visitor) const override {
            for (const auto& point : points) {
                point->accept(visitor);
            }
        }
    };
    int count = 0;
    VrexUniformVisitor visitor([&count](VrexBaseObject&) { ++count; });
    const PointList list;
    static_cast<const VrexVisitable&>(list).accept(visitor);
    EXPECT_EQ(count, 2);
}

} // namespace
