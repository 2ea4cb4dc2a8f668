// Rings and depth among what is cloned.

#include <algorithm>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "support/AnyGeometry.h"
#include "support/CloneInput.h"
#include "support/MemoryChecks.h"
#include "support/ObjectGraph.h"
#include "support/SamplesRelations.h"
#include "support/SmallStack.h"

namespace {

std::shared_ptr<VrexEvaluatedCurve3D> makeCurve() {
    return VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE());
}

template <class Object>
std::shared_ptr<Object> cloneOf(const VrexConstraintSystemCloner3D& cloner,
                                const std::shared_ptr<Object>& object) {
    return std::dynamic_pointer_cast<Object>(cloner.findClone(object));
}

/// Unties the rings that go through the descriptors of curves, at the end of the scope.
struct Untying {
    std::vector<std::shared_ptr<VrexEvaluatedCurve3D>> curves;
    ~Untying() {
        for (const auto& curve : curves) {
            curve->setDescriptors({});
        }
    }
};

TEST(VrexConstraintSystemCloner3DGraph, CurveThatNamesItselfIsClonedToOneThatDoes) {
    const auto curve = makeCurve();
    curve->set("t + x", "t", "0", {{curve, 0, "x"}});
    const VrexConstraintSystemCloner3D cloner({curve}, {});
    const auto clone = cloneOf(cloner, curve);
    const Untying untying{{curve, clone}};
    EXPECT_EQ(cloner.getGeometries().size(), 1U);
    EXPECT_EQ(clone->descriptors().front().object(), clone);
    EXPECT_EQ(clone->getX(), "t + x");
}

TEST(VrexConstraintSystemCloner3DGraph, CurvesThatNameEachOtherAreCloned) {
    const auto first = makeCurve();
    const auto second = makeCurve();
    first->setDescriptors({{second, 0, "x"}});
    second->setDescriptors({{first, 1, "y"}});
    const VrexConstraintSystemCloner3D cloner({first}, {});
    const auto firstClone = cloneOf(cloner, first);
    const auto secondClone = cloneOf(cloner, second);
    const Untying untying{{first, second, firstClone, secondClone}};
    EXPECT_THAT(cloner.getGeometries(), testing::ElementsAre(secondClone, firstClone));
    EXPECT_EQ(firstClone->descriptors().front().object(), secondClone);
    EXPECT_EQ(secondClone->descriptors().front().object(), firstClone);
}

TEST(VrexConstraintSystemCloner3DGraph, RingThroughADescriptorIsClonedFromWhereverItIsEntered) {
    const auto curve = makeCurve();
    const auto line = makeSample<VrexLine3D>();
    const auto spin = VrexSpinSurface3D::create(curve, line);
    curve->setDescriptors({{spin, 0, "x"}});
    for (const auto& entered : std::vector<std::shared_ptr<VrexBaseGeometry>>{curve, spin}) {
        const VrexConstraintSystemCloner3D cloner({entered}, {});
        const auto clone = cloneOf(cloner, curve);
        const Untying untying{{clone}};
        EXPECT_EQ(cloner.getGeometries().size(), 3U);
        EXPECT_EQ(clone->descriptors().front().object(), cloner.findClone(spin));
        EXPECT_EQ(cloneOf(cloner, spin)->getProfileCurve(), clone);
    }
    const Untying untying{{curve}};
}

TEST(VrexConstraintSystemCloner3DGraph, MemberMayNameTheConnectorOfItsSet) {
    const auto curve = makeCurve();
    const auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>(), curve});
    const auto connector = VrexConnector3D::create(set);
    const auto other = VrexConnector3D::create(set);
    curve->set("t + x", "y", "0", {{connector, 0, "x"}, {other, 1, "y"}});
    const std::vector<std::shared_ptr<VrexBaseGeometry>> all{connector, set, curve, other};
    for (const auto& entered : all) {
        const VrexConstraintSystemCloner3D cloner({entered}, {});
        const auto clone = cloneOf(cloner, curve);
        const Untying untying{{clone}};
        const auto clones = cloner.getGeometries();
        EXPECT_EQ(clones.size(), 5U);
        for (const auto& geometry : all) {
            EXPECT_EQ(std::ranges::count(clones, cloner.findClone(geometry)), 1);
        }
        const ObjectGraph sources(all);
        const ObjectGraph linked(std::vector{cloner.findClone(connector), cloner.findClone(set),
                                             cloner.findClone(curve), cloner.findClone(other)});
        EXPECT_EQ(linked.text(), sources.text());
        EXPECT_EQ(linked.countShared(sources), 0U);
    }
    const Untying untying{{curve}};
}

TEST(VrexConstraintSystemCloner3DGraph, RingsThroughTwoCurvesAreCloned) {
    const auto line = makeSample<VrexLine3D>();
    const auto first = makeCurve();
    const auto second = makeCurve();
    const auto inner = VrexRigidSet3D::create({first, second});
    const auto outer = VrexRigidSet3D::create({VrexSpinSurface3D::create(first, line), inner});
    first->setDescriptors({{VrexConnector3D::create(outer), 0, "x"}});
    second->setDescriptors({{VrexConnector3D::create(inner), 0, "x"}, {outer, 0, "y"}});
    for (const auto& entered : std::vector<std::shared_ptr<VrexBaseGeometry>>{outer, inner, first, second}) {
        const VrexConstraintSystemCloner3D cloner({entered}, {});
        const Untying untying{{cloneOf(cloner, first), cloneOf(cloner, second)}};
        const ObjectGraph sources(std::vector{entered});
        const ObjectGraph clones(std::vector{cloner.findClone(entered)});
        EXPECT_EQ(clones.text(), sources.text());
        EXPECT_EQ(clones.countShared(sources), 0U);
        EXPECT_EQ(cloner.getGeometries().size(), sources.objects().size());
    }
    const Untying untying{{first, second}};
}

TEST(VrexConstraintSystemCloner3DGraph, RingWithoutDescriptorsBehindOneWithIsRefused) {
    const auto curve = makeCurve();
    const auto set = VrexRigidSet3D::create({curve});
    const auto connector = VrexConnector3D::create(set);
    set->geometries().push_back(connector);
    curve->setDescriptors({{set, 0, "x"}});
    const Untying untying{{curve}};
    for (const auto& entered : std::vector<std::shared_ptr<VrexBaseGeometry>>{curve, set, connector}) {
        EXPECT_THROW(VrexConstraintSystemCloner3D({entered}, {}), std::runtime_error);
    }
    set->geometries().clear();
}

TEST(VrexConstraintSystemCloner3DGraph, SetThatNeedsItselfIsRefused) {
    const auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>()});
    const auto connector = VrexConnector3D::create(set);
    set->geometries().push_back(connector);
    for (const auto& entered : std::vector<std::shared_ptr<VrexBaseGeometry>>{set, connector}) {
        try {
            const VrexConstraintSystemCloner3D cloner({entered}, {});
            ADD_FAILURE() << "nothing thrown";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "VrexConstraintSystemCloner::getNewObjects: clone object not found");
        }
    }
    set->geometries() = {set};
    EXPECT_THROW(VrexConstraintSystemCloner3D({set}, {}), std::runtime_error);
    set->geometries().clear();
}

TEST(VrexConstraintSystemCloner3DGraph, EquationsMayNameConstraintsThatComeLater) {
    const auto point = makeSample<VrexPoint3D>();
    const auto fixation = VrexFixation3D::create(point, VrexFixation3DType::Complete3D);
    const auto equation = VrexCallbackEquation::create(
        {{fixation, 0, "x"}}, VrexEquationConditionType::equalToZero, VrexLinearEquationCallback({1.0}, 0.0));
    const VrexConstraintSystemCloner3D cloner({point}, {equation, fixation});
    EXPECT_THAT(cloner.getConstraints(),
                testing::ElementsAre(cloner.findClone(fixation), cloner.findClone(equation)));
}

TEST(VrexConstraintSystemCloner3DGraph, SourceStaysWhereMemoryEnds) {
    const auto relation = makeSample<VrexEqualDimension3D>();
    const auto curve = makeSample<VrexEvaluatedCurve3D>();
    const auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>(), VrexConnector3D::create(nullptr)});
    CloneInput input(relation);
    input.geometries.push_back(curve);
    input.geometries.push_back(VrexConnector3D::create(set));
    const auto before = ObjectGraph(input.geometries, input.constraints).text();
    const auto clone = [&input] {
        const VrexConstraintSystemCloner3D cloner(input.geometries, input.constraints);
    };
    nsMemoryChecks::expectKeptWithoutMemory(clone, [] {});
    EXPECT_EQ(ObjectGraph(input.geometries, input.constraints).text(), before);
    EXPECT_EQ(set.use_count(), 2); // No clone is left that holds it.
}

TEST(VrexConstraintSystemCloner3DGraph, ChainsOfCurvesAreClonedOnASmallStack) {
    runOnSmallStack([] {
        constexpr std::size_t length = 1'000'000;
        std::shared_ptr<VrexEvaluatedCurve3D> last;
        for (std::size_t i = 0; i < length; ++i) {
            auto curve = makeCurve();
            curve->setDescriptors({{std::move(last), 0, "x"}});
            last = std::move(curve);
        }
        const VrexConstraintSystemCloner3D cloner({last}, {});
        EXPECT_EQ(cloner.getGeometries().size(), length);
        EXPECT_EQ(cloner.getGeometries().back(), cloner.findClone(last));
    });
}

TEST(VrexConstraintSystemCloner3DGraph, ChainsOfSetsAndConnectorsAreClonedOnASmallStack) {
    runOnSmallStack([] {
        constexpr std::size_t length = 500'000;
        std::shared_ptr<VrexRigidSet3D> last;
        for (std::size_t i = 0; i < length; ++i) {
            last = VrexRigidSet3D::create({VrexConnector3D::create(std::move(last))});
        }
        const VrexConstraintSystemCloner3D cloner({last}, {});
        EXPECT_EQ(cloner.getGeometries().size(), 2 * length);
        EXPECT_EQ(cloner.getGeometries().back(), cloner.findClone(last));
    });
}

TEST(VrexConstraintSystemCloner3DGraph, UnknownClassAtTheEndOfAChainIsRefusedOnASmallStack) {
    runOnSmallStack([] {
        std::shared_ptr<VrexGeometry3D> last = AnyGeometry::create(VrexGeometry3DType::POINT, 1);
        for (std::size_t i = 0; i < 200'000; ++i) {
            last = VrexRigidSet3D::create({std::move(last)});
        }
        EXPECT_THROW(VrexConstraintSystemCloner3D({last}, {}), std::runtime_error);
    });
}

TEST(VrexConstraintSystemCloner3DGraph, ChainsOfTiedConstraintsAreClonedOnASmallStack) {
    runOnSmallStack([] {
        constexpr std::size_t length = 1'000'000;
        std::shared_ptr<VrexConstraint3D> last;
        for (std::size_t i = 0; i < length; ++i) {
            last = VrexEqualParameter3D::create(nullptr, std::move(last), nullptr);
        }
        const VrexConstraintSystemCloner3D cloner({}, {last});
        EXPECT_EQ(cloner.getConstraints().size(), length);
        EXPECT_EQ(cloner.getConstraints().back(), cloner.findClone(last));
    });
}

} // namespace
