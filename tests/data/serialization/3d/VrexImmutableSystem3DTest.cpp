#include "data/serialization/3d/VrexImmutableSystem3D.h"

#include <stdexcept>
#include <type_traits>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AnyGeometry.h"
#include "support/CopyChecks.h"
#include "support/RecordingVisitor.h"
#include "support/SamplesRelations.h"
#include "support/SmallStack.h"

namespace {

using Geometries = std::vector<std::shared_ptr<VrexGeometry3D>>;
using Constraints = std::vector<std::shared_ptr<VrexConstraint3D>>;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr VrexImmutableSystem3D::OrderGeometriesAndConstraints ORDERED;

VrexImmutableSystem3D systemOf(const Geometries& geometries, const Constraints& constraints = {},
                               const VrexTransform3D& transform = {}) {
    return {geometries, {}, constraints, {}, 1e-6, 1e-8, transform, {}};
}

Geometries ordered(const Geometries& geometries) {
    return VrexImmutableSystem3D(ORDERED, systemOf(geometries)).geometries();
}

using nsCopyChecks::graphOf;

std::shared_ptr<VrexFixation3D> fixationOf(const std::shared_ptr<VrexGeometry3D>& geometry) {
    return VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D);
}

TEST(VrexImmutableSystem3D, IsEmptyAtFirst) {
    const VrexImmutableSystem3D system;
    EXPECT_THAT(system.geometries(), IsEmpty());
    EXPECT_THAT(system.variables(), IsEmpty());
    EXPECT_THAT(system.constraints(), IsEmpty());
    EXPECT_THAT(system.equations(), IsEmpty());
    EXPECT_THAT(system.referenceGeometries(), IsEmpty());
    EXPECT_TRUE(system.transform().isEmpty());
    EXPECT_EQ(system.linearTolerance(), 0.0);
    EXPECT_EQ(system.angularTolerance(), 0.0);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<VrexImmutableSystem3D>);
}

TEST(VrexImmutableSystem3D, HoldsWhatItIsGivenInTheOrderGiven) {
    const auto member = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({member});
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto fixation = fixationOf(member);
    const auto equation = makeSample<VrexCallbackEquation>();
    const auto reference = makeSample<VrexLine3D>();
    VrexTransform3D transform;
    transform.applyVariableTransform(variable, 4.0);
    const VrexImmutableSystem3D system({set, member, set}, {variable}, {fixation}, {equation}, 1e-6, 1e-8,
                                       transform, {reference});
    EXPECT_THAT(system.geometries(), ElementsAre(set, member, set));
    EXPECT_THAT(system.variables(), ElementsAre(variable));
    EXPECT_THAT(system.constraints(), ElementsAre(fixation));
    EXPECT_THAT(system.equations(), ElementsAre(equation));
    EXPECT_THAT(system.referenceGeometries(), ElementsAre(reference));
    EXPECT_EQ(system.linearTolerance(), 1e-6);
    EXPECT_EQ(system.angularTolerance(), 1e-8);
    EXPECT_EQ(system.transform().variableTransformations().size(), 1U);
}

TEST(VrexImmutableSystem3D, CopiesAndAssignmentsShareTheObjects) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = fixationOf(point);
    VrexTransform3D transform;
    transform.applyTranslation(point, {1.0, 2.0, 3.0});
    const auto system = systemOf({point}, {fixation}, transform);
    VrexImmutableSystem3D copy(system);
    VrexImmutableSystem3D assigned;
    assigned = copy;
    const VrexImmutableSystem3D moved(std::move(copy));
    VrexImmutableSystem3D moveAssigned;
    moveAssigned = VrexImmutableSystem3D(system);
    for (const auto* const same : {&system, &std::as_const(assigned), &moved, &std::as_const(moveAssigned)}) {
        EXPECT_THAT(same->geometries(), ElementsAre(point));
        EXPECT_THAT(same->constraints(), ElementsAre(fixation));
        EXPECT_EQ(same->linearTolerance(), 1e-6);
        EXPECT_EQ(same->angularTolerance(), 1e-8);
        EXPECT_EQ(same->transform().transformations().size(), 1U);
    }
}

TEST(VrexImmutableSystem3D, OrderPutsMembersBeforeTheirSet) {
    const auto first = makeSample<VrexPoint3D>();
    const auto second = makeSample<VrexLine3D>();
    const auto set = VrexRigidSet3D::create({first, second});
    EXPECT_THAT(ordered({set, second, first}), ElementsAre(first, second, set));
}

TEST(VrexImmutableSystem3D, OrderListsEachGeometryOnce) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    EXPECT_THAT(ordered({point, line, point, nullptr, line}), ElementsAre(point, line));
}

TEST(VrexImmutableSystem3D, OrderAddsAPartThatIsNotListedInFrontOfItsOwner) {
    const auto other = makeSample<VrexPoint3D>();
    const auto axis = makeSample<VrexLine3D>();
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Linear3D, axis, 1.0);
    EXPECT_THAT(ordered({other, pattern}), ElementsAre(other, axis, pattern));
}

TEST(VrexImmutableSystem3D, OrderLeavesOutWhatAnEvaluatedSurfaceNamesButNotWhatACurveNames) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto curve = VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE(), {{circle, 0, "r"}},
                                                    "r * t", "0", "0");
    const auto surface = VrexEvaluatedSurface3D::create({}, VrexQuaternionT<double>::ONE(),
                                                        {{circle, 0, "r"}}, "r * u", "v", "0");
    EXPECT_THAT(ordered({surface}), ElementsAre(surface));
    EXPECT_THAT(ordered({surface, curve}), ElementsAre(surface, circle, curve));
}

TEST(VrexImmutableSystem3D, OrderOfAnOrderedListIsThatList) {
    const auto spline = makeSample<VrexSpline3D>();
    const auto sweep = makeSample<VrexSweepSurface3D>();
    const auto once = ordered({sweep, spline});
    EXPECT_EQ(once.size(), 10U);
    EXPECT_EQ(ordered(once), once);
}

TEST(VrexImmutableSystem3D, OrderCutsARingWhereItCloses) {
    const auto set = VrexRigidSet3D::create({});
    const auto connector = VrexConnector3D::create(set);
    set->geometries().push_back(connector);
    EXPECT_THAT(ordered({set}), ElementsAre(connector, set));
    EXPECT_THAT(ordered({connector}), ElementsAre(set, connector));
    set->geometries().clear();
}

TEST(VrexImmutableSystem3D, OrderKeepsTheConstraints) {
    const auto mate = VrexFastenedMate3D::create(nullptr, nullptr);
    const auto relation = VrexMateRelation3D::create({mate, mate}, {0, 0}, 1.0);
    const VrexImmutableSystem3D system(ORDERED, systemOf({}, {relation, nullptr, mate, relation}));
    EXPECT_THAT(system.constraints(), ElementsAre(relation, nullptr, mate, relation));
}

TEST(VrexImmutableSystem3D, EveryOrderingConstructorKeepsTheRest) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({point});
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto fixation = fixationOf(point);
    const auto equation = makeSample<VrexCallbackEquation>();
    const auto reference = VrexRigidSet3D::create({makeSample<VrexPoint3D>()});
    VrexTransform3D transform;
    transform.applyTranslation(point, {1.0, 2.0, 3.0});
    const VrexImmutableSystem3D plain({set}, {variable}, {fixation}, {equation}, 1e-6, 1e-8, transform,
                                      {reference});
    const VrexImmutableSystem3D fromLists(ORDERED, {set}, {variable}, {fixation}, {equation}, 1e-6, 1e-8,
                                          transform, {reference});
    const VrexImmutableSystem3D fromSystem(ORDERED, plain);
    const VrexImmutableSystem3D fromMoved(ORDERED, VrexImmutableSystem3D(plain));
    EXPECT_THAT(plain.geometries(), ElementsAre(set));
    for (const auto* const system : {&fromLists, &fromSystem, &fromMoved}) {
        EXPECT_THAT(system->geometries(), ElementsAre(point, set));
        EXPECT_THAT(system->variables(), ElementsAre(variable));
        EXPECT_THAT(system->constraints(), ElementsAre(fixation));
        EXPECT_THAT(system->equations(), ElementsAre(equation));
        EXPECT_THAT(system->referenceGeometries(), ElementsAre(reference));
        EXPECT_EQ(system->linearTolerance(), 1e-6);
        EXPECT_EQ(system->angularTolerance(), 1e-8);
        EXPECT_TRUE(system->transform().isTransformed(std::shared_ptr<VrexGeometry>(point)));
    }
}

TEST(VrexImmutableSystem3D, VisitorComesToGeometryVariableConstraintEquation) {
    const auto point = makeSample<VrexPoint3D>();
    const VrexImmutableSystem3D system(
        {point, nullptr}, {nullptr, makeSample<VrexGeometryVariable>()}, {fixationOf(point), nullptr},
        {nullptr, makeSample<VrexCallbackEquation>()}, 1e-6, 1e-8, {}, {makeSample<VrexLine3D>()});
    class Order : public VrexVisitor3D {
    public:
        std::vector<VrexObjectType> types;
        void visitBaseObject(VrexBaseObject& object) override { types.push_back(object.baseType()); }
    } visitor;
    system.accept(visitor);
    EXPECT_THAT(visitor.types, ElementsAre(VrexObjectType::Geometry, VrexObjectType::Variable,
                                           VrexObjectType::Constraint, VrexObjectType::Equation));
}

TEST(VrexImmutableSystem3D, DeepCopyHasEqualObjectsAndSharesNone) {
    const auto spline = makeSample<VrexSpline3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto distance = VrexDistance3D::create(spline, circle, 4.0, VrexGeometryComponentType::UNKNOWN,
                                                 VrexGeometryComponentType::CENTER);
    const auto equation = VrexExpressionEquation::create({{variable, 0, "a"}, {circle, 0, "b"}},
                                                         VrexEquationConditionType::equalToZero, "a * b - 2");
    const auto reference = VrexRigidSet3D::create({circle, makeSample<VrexPlane3D>()});
    const VrexImmutableSystem3D system({spline, circle, nullptr, spline}, {variable}, {distance},
                                       {equation, nullptr}, 1e-6, 1e-8, {}, {nullptr, reference});
    const auto copy = system.deepCopy();
    EXPECT_EQ(copy.linearTolerance(), 1e-6);
    EXPECT_EQ(copy.angularTolerance(), 1e-8);
    EXPECT_EQ(copy.geometries().size(), 4U);
    EXPECT_EQ(copy.geometries()[0], copy.geometries()[3]);
    EXPECT_EQ(graphOf(copy).text(), graphOf(system).text());
    EXPECT_EQ(graphOf(copy).countShared(graphOf(system)), 0U);
}

TEST(VrexImmutableSystem3D, DeepCopyWithoutDragDataHasAnEmptyTransform) {
    EXPECT_TRUE(systemOf({makeSample<VrexPoint3D>()}).deepCopy().transform().isEmpty());
}

TEST(VrexImmutableSystem3D, DeepCopyDragsTheCopies) {
    const auto point = makeSample<VrexPoint3D>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto spline = makeSample<VrexSpline3D>();
    const auto hidden = spline->controlPoints().front().point;
    const auto outside = makeSample<VrexPoint3D>();
    VrexTransform3D transform;
    transform.applyTranslation(point, {1.0, 2.0, 3.0});
    transform.applyTranslation(outside, {4.0, 5.0, 6.0});
    transform.applyTranslation(hidden, {7.0, 8.0, 9.0});
    transform.applyTransformParameters(circle, VrexDragParameter3DType::Radius3D, 5.0);
    transform.applyVariableTransform(variable, 6.0);
    const VrexImmutableSystem3D system({point, circle, spline}, {variable}, {}, {}, 1e-6, 1e-8, transform,
                                       {});

    const auto copy = system.deepCopy();

    const auto& moved = copy.transform().transformations();
    ASSERT_EQ(moved.size(), 3U);
    EXPECT_EQ(moved[0].geometry, copy.geometries()[0]);
    EXPECT_EQ(moved[1].geometry, outside);
    EXPECT_EQ(moved[2].geometry,
              std::static_pointer_cast<VrexSpline3D>(copy.geometries()[2])->controlPoints().front().point);
    ASSERT_EQ(copy.transform().transformParameters().size(), 1U);
    EXPECT_EQ(copy.transform().transformParameters()[0].geometry, copy.geometries()[1]);
    EXPECT_EQ(copy.transform().transformParameters()[0].value, 5.0);
    ASSERT_EQ(copy.transform().variableTransformations().size(), 1U);
    EXPECT_EQ(copy.transform().variableTransformations()[0].variable, copy.variables()[0]);
    EXPECT_EQ(copy.transform().variableTransformations()[0].value, 6.0);
    EXPECT_EQ(system.transform().transformations()[0].geometry, point);
}

TEST(VrexImmutableSystem3D, ChangingTheCopyLeavesTheSource) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto system = systemOf({point}, {fixationOf(point)});
    const auto before = graphOf(system).text();
    const auto copy = system.deepCopy();
    std::static_pointer_cast<VrexPoint3D>(copy.geometries()[0])->setPosition({9.0, 9.0, 9.0});
    copy.geometries()[0]->label() = "changed";
    copy.constraints()[0]->status() = VrexConstraintStatus::Regular;
    EXPECT_EQ(graphOf(system).text(), before);
}

TEST(VrexImmutableSystem3D, DeepCopyRefusesAConstraintOfAGeometryThatOnlyIsReference) {
    const auto point = makeSample<VrexPoint3D>();
    const VrexImmutableSystem3D system({}, {}, {fixationOf(point)}, {}, 1e-6, 1e-8, {}, {point});
    EXPECT_THROW((void)system.deepCopy(), std::runtime_error);
}

TEST(VrexImmutableSystem3D, DeepCopyThatFailsLeavesTheSource) {
    const auto point = makeSample<VrexPoint3D>();
    const auto inner = VrexRigidSet3D::create({point, AnyGeometry::create(VrexGeometry3DType::POINT, 1)});
    const auto system = systemOf({VrexRigidSet3D::create({inner})}, {});
    const auto constrained = systemOf({}, {fixationOf(point)});
    const auto before = graphOf(system).text();
    EXPECT_THROW((void)system.deepCopy(), std::runtime_error);
    EXPECT_EQ(graphOf(system).text(), before);
    EXPECT_THROW((void)constrained.deepCopy(), std::runtime_error);
    EXPECT_EQ(point.use_count(), 3); // This test's, the set's, the constraint's.
}

TEST(VrexImmutableSystem3D, DeepCopyLeadsConstraintsToTheirParentsInOtherLists) {
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto circle = makeSample<VrexCircle3D>();
    const auto child = VrexVariableFixation3D::create(variable);
    const auto parent = fixationOf(circle);
    child->setParent(parent);
    const auto copy =
        VrexImmutableSystem3D({circle}, {variable}, {child, parent}, {}, 1e-6, 1e-8, {}, {}).deepCopy();
    EXPECT_EQ(copy.constraints()[0]->getParent(), copy.constraints()[1]);
}

TEST(VrexImmutableSystem3D, DeepCopyOfARingThroughAReferenceGeometryIsARing) {
    const auto curve = VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE());
    const auto spin = VrexSpinSurface3D::create(curve, makeSample<VrexLine3D>());
    curve->set("x", "t", "0", {{spin, 0, "x"}});
    const VrexImmutableSystem3D system({}, {}, {}, {}, 1e-6, 1e-8, {}, {spin});
    const auto copy = system.deepCopy();
    const auto spinCopy = std::dynamic_pointer_cast<VrexSpinSurface3D>(copy.referenceGeometries()[0]);
    const auto curveCopy = std::dynamic_pointer_cast<VrexEvaluatedCurve3D>(spinCopy->getProfileCurve());
    EXPECT_EQ(curveCopy->descriptors().front().object(), spinCopy);
    EXPECT_EQ(graphOf(copy).text(), graphOf(system).text());
    EXPECT_EQ(graphOf(copy).countShared(graphOf(system)), 0U);
    curve->setDescriptors({});
    curveCopy->setDescriptors({});
}

TEST(VrexImmutableSystem3D, DeepChainsAreOrderedAndCopiedOnASmallStack) {
    runOnSmallStack([] {
        constexpr std::size_t depth = 1'000'000;
        std::shared_ptr<VrexRigidSet3D> outermost;
        for (std::size_t i = 0; i < depth; ++i) {
            outermost = VrexRigidSet3D::create({std::move(outermost)});
        }
        EXPECT_EQ(ordered({outermost}).size(), depth);

        const auto copy = systemOf({outermost}).deepCopy();
        ASSERT_EQ(copy.geometries().size(), 1U);
        std::size_t levels = 0;
        for (const VrexGeometry3D* set = copy.geometries().front().get(); set != nullptr; ++levels) {
            set = dynamic_cast<const VrexRigidSet3D&>(*set).geometries().front().get();
        }
        EXPECT_EQ(levels, depth);
    });
}

} // namespace
