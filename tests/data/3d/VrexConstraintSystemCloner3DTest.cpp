#include "data/3d/VrexConstraintSystemCloner3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AnyGeometry.h"
#include "support/ProbeConstraint3D.h"
#include "support/SamplesRelations.h"

namespace {

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

template <class Object>
std::shared_ptr<Object> cloneOf(const VrexConstraintSystemCloner3D& cloner,
                                const std::shared_ptr<Object>& object) {
    return std::dynamic_pointer_cast<Object>(cloner.findClone(object));
}

/// Expects a `std::runtime_error` with this text.
void expectRefused(const Geometries& geometries, const Constraints& constraints, const char* text) {
    try {
        const VrexConstraintSystemCloner3D cloner(geometries, constraints);
        FAIL() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), text);
    }
}

constexpr const char* NOT_FOUND = "VrexConstraintSystemCloner::getNewObjects: clone object not found";

/// The cloner with its protected operations laid open.
class OpenCloner : public VrexConstraintSystemCloner3D {
public:
    using VrexConstraintSystemCloner3D::VrexConstraintSystemCloner3D;

    using VrexConstraintSystemCloner3D::cloneDescriptors;
    using VrexConstraintSystemCloner3D::getClonedObject;
    using VrexConstraintSystemCloner3D::getNewObjects;
};

TEST(VrexConstraintSystemCloner3D, GeometryGivenTwiceIsClonedOnce) {
    const auto point = makeSample<VrexPoint3D>();
    const VrexConstraintSystemCloner3D cloner({point, point}, {});
    ASSERT_EQ(cloner.getGeometries().size(), 1U);
    EXPECT_EQ(cloner.getGeometries().front(), cloner.findClone(point));
    EXPECT_NE(cloner.findClone(point), point);
}

TEST(VrexConstraintSystemCloner3D, ConstraintOfAGeometryThatIsNotListedIsRefused) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const auto incidence = VrexIncidence3D::create(point, line, VrexIncidence3DType::Default, WHOLE, WHOLE);
    expectRefused({point}, {incidence}, NOT_FOUND);
    const VrexConstraintSystemCloner3D cloner({line, point}, {incidence});
    EXPECT_EQ(cloner.getConstraints().size(), 1U);
}

TEST(VrexConstraintSystemCloner3D, SplineBringsItsControlPointsAndStandsBehindThem) {
    const auto spline = makeSample<VrexSpline3D>();
    const VrexConstraintSystemCloner3D cloner({spline}, {});
    const auto clones = cloner.getGeometries();
    ASSERT_EQ(clones.size(), 7U);
    const auto clone = cloneOf(cloner, spline);
    EXPECT_EQ(clones.back(), clone);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(clones[i], clone->controlPoints()[i].point);
        EXPECT_EQ(clones[i], cloner.findClone(spline->controlPoints()[i].point));
        EXPECT_EQ(clone->controlPoints()[i].weight, spline->controlPoints()[i].weight);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(clones[4 + i], clone->getInterpolatedPoints()[i]);
        EXPECT_EQ(clones[4 + i], cloner.findClone(spline->getInterpolatedPoints()[i]));
    }
}

TEST(VrexConstraintSystemCloner3D, CloneHasTheIdentifierAndTheLabelOfItsSource) {
    const auto point = makeSample<VrexPoint3D>();
    point->setID(42);
    point->label() = "tip";
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    fixation->setID(43);
    fixation->label() = "held";
    const VrexConstraintSystemCloner3D cloner({point}, {fixation});
    EXPECT_EQ(cloner.findClone(point)->getID(), 42U);
    EXPECT_EQ(cloner.findClone(point)->label(), "tip");
    EXPECT_EQ(cloner.findClone(fixation)->getID(), 43U);
    EXPECT_EQ(cloner.findClone(fixation)->label(), "held");
}

TEST(VrexConstraintSystemCloner3D, ExpressionEquationEvaluatesWithItsOwnVariables) {
    const auto variable = VrexGeometryVariable::create(3.0);
    const auto equation = VrexExpressionEquation::create({{variable, 0, "d"}},
                                                         VrexEquationConditionType::equalToZero, "2 * d - 1");
    const VrexConstraintSystemCloner3D cloner({variable}, {equation});
    const auto clone = cloneOf(cloner, equation);
    ASSERT_EQ(clone->descriptors().size(), 1U);
    EXPECT_EQ(clone->descriptors().front().object(), cloner.findClone(variable));
    EXPECT_EQ(clone->descriptors().front().variableName(), "d");
    EXPECT_EQ(clone->expression(), "2 * d - 1");
    ASSERT_EQ(clone->getGeometries().size(), 1U);
    EXPECT_EQ(clone->getGeometries().front(), cloner.findClone(variable));
    EXPECT_EQ(clone->evaluate({VrexVariable(5.0)}).value(), 9.0);
    EXPECT_EQ(equation->evaluate({VrexVariable(4.0)}).value(), 7.0);
}

TEST(VrexConstraintSystemCloner3D, EquationBringsWhatItsDescriptorsName) {
    const auto variable = VrexGeometryVariable::create(3.0);
    const auto equation = VrexCallbackEquation::create(
        {{variable, 0, "d"}}, VrexEquationConditionType::equalToZero, VrexLinearEquationCallback({2.0}, 0.0));
    const VrexConstraintSystemCloner3D cloner({}, {equation});
    EXPECT_THAT(cloner.getGeometries(), testing::ElementsAre(cloner.findClone(variable)));
    EXPECT_THAT(cloner.getConstraints(), testing::ElementsAre(cloner.findClone(equation)));
}

TEST(VrexConstraintSystemCloner3D, EquationClonedLaterDoesNotKeepTheSourceAlive) {
    auto variable = VrexGeometryVariable::create(3.0);
    const std::weak_ptr<VrexGeometryVariable> source = variable;
    std::shared_ptr<VrexBaseConstraint> clone;
    {
        const auto equation =
            VrexCallbackEquation::create({{variable, 0, "d"}}, VrexEquationConditionType::equalToZero,
                                         VrexLinearEquationCallback({2.0}, 0.0));
        ASSERT_EQ(equation->getGeometries().size(), 1U);
        clone = VrexConstraintSystemCloner3D({variable}, {equation}).getConstraints().front();
    }
    variable.reset();
    EXPECT_TRUE(source.expired());
    EXPECT_EQ(clone->getGeometries().size(), 1U);
}

TEST(VrexConstraintSystemCloner3D, TextThatWasRefusedTravelsToo) {
    const auto variable = VrexGeometryVariable::create(3.0);
    const auto equation =
        VrexExpressionEquation::create({{variable, 0, "d"}}, VrexEquationConditionType::equalToZero, "2 * d");
    const auto curve = VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE());
    EXPECT_FALSE(equation->setExpression("2 * unknown"));
    EXPECT_FALSE(curve->setX("t + unknown"));
    EXPECT_FALSE(curve->setY("t +"));
    const VrexConstraintSystemCloner3D cloner({variable, curve}, {equation});
    EXPECT_EQ(cloneOf(cloner, equation)->expression(), "2 * unknown");
    EXPECT_EQ(cloneOf(cloner, curve)->getX(), "t + unknown");
    EXPECT_EQ(cloneOf(cloner, curve)->getY(), "t +");
    EXPECT_EQ(cloneOf(cloner, curve)->getZ(), "");
}

TEST(VrexConstraintSystemCloner3D, EvaluatedCurveHasAVariableOfItsOwn) {
    const auto radius = VrexGeometryVariable::create(3.0);
    const auto curve = VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE(), {{radius, 0, "r"}},
                                                    "r * t", "r + t", "r");
    const VrexConstraintSystemCloner3D cloner({curve}, {});
    const auto clone = cloneOf(cloner, curve);
    EXPECT_EQ(curve->getXParser().evaluate({5.0, 3.0}), 15.0);
    EXPECT_EQ(clone->getXParser().evaluate({2.0, 4.0}), 8.0);
    EXPECT_EQ(curve->getT()->value(), 5.0);
    EXPECT_EQ(clone->getT()->value(), 2.0);
}

TEST(VrexConstraintSystemCloner3D, PartsStandBeforeTheirOwnerWhateverTheOrderOfTheInput) {
    const auto first = makeSample<VrexPoint3D>();
    const auto second = makeSample<VrexLine3D>();
    const auto set = VrexRigidSet3D::create({first, second});
    const auto connector = VrexConnector3D::create(set);
    const VrexConstraintSystemCloner3D cloner({connector, set, second, first}, {});
    EXPECT_THAT(cloner.getGeometries(),
                testing::ElementsAre(cloner.findClone(first), cloner.findClone(second), cloner.findClone(set),
                                     cloner.findClone(connector)));
    EXPECT_THAT(cloneOf(cloner, set)->geometries(),
                testing::ElementsAre(cloner.findClone(first), cloner.findClone(second)));
    EXPECT_EQ(cloneOf(cloner, connector)->getRigidSet(), cloner.findClone(set));
}

TEST(VrexConstraintSystemCloner3D, SharedPartIsSharedByTheClones) {
    const auto axis = makeSample<VrexLine3D>();
    const auto first = VrexPattern3D::create(VrexPattern3DType::Linear3D, axis, 1.0);
    const auto second = VrexPattern3D::create(VrexPattern3DType::Circular3D, axis, 2.0);
    const VrexConstraintSystemCloner3D cloner({first, second}, {});
    EXPECT_EQ(cloner.getGeometries().size(), 3U);
    EXPECT_EQ(cloneOf(cloner, first)->getAxisLine(), cloner.findClone(axis));
    EXPECT_EQ(cloneOf(cloner, second)->getAxisLine(), cloner.findClone(axis));
}

TEST(VrexConstraintSystemCloner3D, NullsStayNulls) {
    const auto connector = VrexConnector3D::create(nullptr);
    const auto spin = VrexSpinSurface3D::create(nullptr, nullptr);
    const auto sweep = VrexSweepSurface3D::create(nullptr, nullptr, {});
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0);
    const auto patterns = VrexArrayPattern3D::create({nullptr, pattern});
    const auto set = VrexRigidSet3D::create({nullptr, pattern, nullptr});
    const auto mate = VrexFastenedMate3D::create(nullptr, connector);
    const auto equality = VrexEqualParameter3D::create(pattern, nullptr, mate);
    const auto relation = VrexMateRelation3D::create({mate, nullptr}, {0, 0}, 1.0);
    const auto equation =
        VrexCallbackEquation::create({{nullptr, 3, "none"}}, VrexEquationConditionType::equalToZero, nullptr);
    const VrexConstraintSystemCloner3D cloner(
        {nullptr, connector, spin, sweep, pattern, patterns, set, nullptr},
        {nullptr, mate, equality, relation, equation});
    EXPECT_EQ(cloner.getGeometries().size(), 6U);
    EXPECT_EQ(cloner.getConstraints().size(), 4U);
    EXPECT_EQ(cloner.findClone(nullptr), nullptr);
    EXPECT_EQ(cloneOf(cloner, connector)->getRigidSet(), nullptr);
    EXPECT_EQ(cloneOf(cloner, spin)->getProfileCurve(), nullptr);
    EXPECT_EQ(cloneOf(cloner, spin)->getAxisLine(), nullptr);
    EXPECT_EQ(cloneOf(cloner, sweep)->getTrajectoryLine(), nullptr);
    EXPECT_EQ(cloneOf(cloner, pattern)->getAxisLine(), nullptr);
    EXPECT_THAT(cloneOf(cloner, patterns)->getPatterns(),
                testing::ElementsAre(nullptr, cloner.findClone(pattern)));
    EXPECT_THAT(cloneOf(cloner, set)->geometries(),
                testing::ElementsAre(nullptr, cloner.findClone(pattern), nullptr));
    EXPECT_THAT(cloneOf(cloner, mate)->getGeometries(),
                testing::ElementsAre(nullptr, cloner.findClone(connector)));
    EXPECT_THAT(cloneOf(cloner, relation)->getMates(), testing::ElementsAre(cloner.findClone(mate), nullptr));
    EXPECT_EQ(cloneOf(cloner, equation)->descriptors().front().object(), nullptr);
    EXPECT_EQ(cloneOf(cloner, equation)->descriptors().front().variableName(), "none");
}

TEST(VrexConstraintSystemCloner3D, UnknownClassIsRefused) {
    expectRefused({AnyGeometry::create(VrexGeometry3DType::POINT, 1)}, {},
                  "VrexConstraintSystemCloner: not implemented");
    expectRefused({}, {std::make_shared<ProbeConstraint3D>()}, "VrexConstraintSystemCloner: not implemented");
}

TEST(VrexConstraintSystemCloner3D, SnapshotsAreLeftBehind) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    point->backup();
    point->setPosition({4.0, 5.0, 6.0});
    const VrexConstraintSystemCloner3D cloner({point}, {});
    const auto clone = cloneOf(cloner, point);
    clone->restore();
    EXPECT_EQ(clone->getPosition().x(), 4.0);
    point->restore();
    EXPECT_EQ(point->getPosition().x(), 1.0);
}

TEST(VrexConstraintSystemCloner3D, ParentIsLedToItsCloneWhereverItStands) {
    const auto point = makeSample<VrexPoint3D>();
    const auto make = [&point] { return VrexFixation3D::create(point, VrexFixation3DType::Complete3D); };
    const auto child = make();
    const auto parent = make();
    const auto orphan = make();
    const auto unlisted = make();
    child->setParent(parent);
    orphan->setParent(unlisted);
    const VrexConstraintSystemCloner3D cloner({point}, {child, orphan, parent});
    EXPECT_EQ(cloneOf(cloner, child)->getParent(), cloner.findClone(parent));
    EXPECT_EQ(cloneOf(cloner, orphan)->getParent(), nullptr);
    EXPECT_EQ(child->getParent(), parent);
    EXPECT_EQ(orphan->getParent(), unlisted);
}

TEST(VrexConstraintSystemCloner3D, ClonedConstraintSaysThatItsGeometriesChanged) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    const VrexConstraintSystemCloner3D cloner({point}, {fixation});
    EXPECT_TRUE(cloneOf(cloner, fixation)->areGeometriesChanged());
}

TEST(VrexConstraintSystemCloner3D, BoundDimensionHoldsTheNumberOfItsVariable) {
    const auto from = makeSample<VrexPoint3D>();
    const auto to = makeSample<VrexPoint3D>();
    const auto length = VrexGeometryVariable::create(7.0);
    const auto distance = VrexDistance3D::create(from, to, 2.0, WHOLE, WHOLE);
    distance->bindVariable(length);
    distance->setRigid(true);
    distance->setLimits({1.0, 9.0});
    const VrexConstraintSystemCloner3D cloner({from, to}, {distance});

    const auto clone = cloneOf(cloner, distance);
    const auto variable = cloneOf(cloner, length);
    EXPECT_EQ(clone->getVariable(), variable);
    EXPECT_THAT(clone->getGeometries(),
                testing::ElementsAre(cloner.findClone(from), cloner.findClone(to), variable));
    EXPECT_TRUE(clone->isRigid());
    EXPECT_EQ(clone->getLimits(), (VrexDimensionLimits{1.0, 9.0}));
    variable->setValue(8.0);
    EXPECT_EQ(clone->value(), 8.0);
    EXPECT_EQ(distance->value(), 7.0);
    clone->bindVariable(nullptr);
    EXPECT_EQ(clone->value(), 7.0);
    EXPECT_EQ(clone->getGeometries().size(), 2U);
    distance->bindVariable(nullptr);
    EXPECT_EQ(distance->value(), 2.0);
}

TEST(VrexConstraintSystemCloner3D, IntervalKeepsItsClonedVariable) {
    const auto interval = makeSample<VrexMateDimensionInterval3D>();
    const VrexConstraintSystemCloner3D cloner({}, {interval});
    const auto clone = cloneOf(cloner, interval);
    EXPECT_EQ(clone->variable(), cloner.findClone(interval->variable()));
    EXPECT_NE(clone->variable(), interval->variable());
    EXPECT_EQ(clone->dimensionIndex(), interval->dimensionIndex());
    EXPECT_EQ(clone->limit(), interval->limit());
}

TEST(VrexConstraintSystemCloner3D, TiedConstraintsComeAlongButMatesDoNot) {
    const auto equality = makeSample<VrexEqualDimension3D>();
    const auto element = equality->getElement();
    const auto first = equality->getDimensions()[0];
    const auto second = equality->getDimensions()[1];
    Geometries geometries{element};
    for (const auto& dimension : equality->getDimensions()) {
        for (const auto& geometry : dimension->getGeometries3D()) {
            geometries.push_back(geometry);
        }
    }
    const VrexConstraintSystemCloner3D cloner(geometries, {equality, first});
    EXPECT_THAT(
        cloner.getConstraints(),
        testing::ElementsAre(cloner.findClone(first), cloner.findClone(second), cloner.findClone(equality)));
    EXPECT_THAT(cloneOf(cloner, equality)->getDimensions(),
                testing::ElementsAre(cloner.findClone(first), cloner.findClone(second)));

    const auto mate = VrexFastenedMate3D::create(nullptr, nullptr);
    const auto relation = VrexMateRelation3D::create({mate, mate}, {0, 0}, 1.0);
    expectRefused({}, {relation, mate}, NOT_FOUND);
    EXPECT_EQ(VrexConstraintSystemCloner3D({}, {mate, relation}).getConstraints().size(), 2U);
}

TEST(VrexConstraintSystemCloner3D, PairsOfEqualParametersTravel) {
    const auto source = makeSample<VrexEqualParameter3D>();
    Geometries geometries(source->getGeometries());
    for (const auto& constraint : source->getConstraints()) {
        geometries.insert(geometries.end(), constraint->getGeometries().begin(),
                          constraint->getGeometries().end());
    }
    const VrexConstraintSystemCloner3D cloner(geometries, {source});
    const auto clone = cloneOf(cloner, source);
    EXPECT_EQ(clone->getParameterIndices(), source->getParameterIndices());
    const auto tied = source->getConstraints();
    EXPECT_THAT(clone->getConstraints(),
                testing::ElementsAre(cloner.findClone(tied[0]), cloner.findClone(tied[1])));
}

TEST(VrexConstraintSystemCloner3D, InstanceThatIsNotValidIsRefused) {
    const auto first = makeSample<VrexPoint3D>();
    const auto second = makeSample<VrexPoint3D>();
    const auto patterns = makeSample<VrexArrayPattern3D>();
    const auto instance = VrexInstance3D::create(first, second, patterns, {3, -4});
    const VrexConstraintSystemCloner3D cloner({first, second, patterns}, {instance});
    EXPECT_THAT(cloneOf(cloner, instance)->getCoefficients(), testing::ElementsAre(3, -4));
    EXPECT_EQ(cloneOf(cloner, instance)->getArrayPattern(), cloner.findClone(patterns));
    instance->setCoefficients({3});
    expectRefused({first, second, patterns}, {instance},
                  "VrexConstraintSystemCloner: instance was not created");
}

TEST(VrexConstraintSystemCloner3D, VisitFromOutsideClonesOnce) {
    OpenCloner cloner({}, {});
    const auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>()});
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    set->accept(cloner);
    set->accept(cloner);
    curve->accept(cloner);
    EXPECT_EQ(cloner.getGeometries().size(), 5U);
    EXPECT_EQ(cloner.getGeometries()[1], cloner.findClone(set));
    EXPECT_EQ(cloneOf(cloner, curve)->descriptors().front().object(),
              cloner.findClone(curve->descriptors().front().object()));
}

TEST(VrexConstraintSystemCloner3D, NewObjectsAreLookedUpAndNeverCloned) {
    const auto known = makeSample<VrexPoint3D>();
    OpenCloner cloner({known}, {});
    const auto unknown = makeSample<VrexPoint3D>();
    using Points = std::vector<std::shared_ptr<VrexPoint3D>>;
    EXPECT_THAT(cloner.getNewObjects(Points{known, nullptr}),
                testing::ElementsAre(cloner.findClone(known), nullptr));
    EXPECT_THROW(cloner.getNewObjects(Points{unknown}), std::runtime_error);
    EXPECT_EQ(cloner.findClone(unknown), nullptr);
    EXPECT_NE(cloner.getClonedObject(unknown), nullptr);
    EXPECT_THAT(cloner.getNewObjects(Points{unknown}), testing::ElementsAre(cloner.findClone(unknown)));
}

} // namespace
