// Random systems of every kind there is against the model.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "support/GraphModel.h"
#include "support/GraphRecorder.h"
#include "support/GraphSystems.h"
#include "support/RandomSystems.h"

namespace {

using nsGraphPieces::fixationsOf;
using nsGraphPieces::piecesOf;

/// Gives all that a system reaches identifiers of their own.
class Numbering {
public:
    explicit Numbering(const GraphSystem& system) {
        number(system.geometries);
        number(system.constraints);
    }

private:
    template <class Object>
    void number(const std::vector<std::shared_ptr<Object>>& objects) {
        for (const auto& object : objects) {
            if (object != nullptr && m_met.insert(object.get()).second) {
                object->setID(m_met.size());
                follow(*object);
            }
        }
    }
    void follow(VrexBaseGeometry& geometry) { number(geometry.getGeometries()); }
    void follow(VrexBaseConstraint& constraint) {
        number(constraint.getGeometries());
        number(constraint.getConstraints());
    }

    std::set<const VrexBaseObject*> m_met;
};

/// Up to nine systems in one, with complete fixations and with constraints across.
class Systems {
public:
    GraphSystem next() {
        GraphSystem system;
        for (std::size_t left = 1 + below(below(9) + 1); left > 0; --left) {
            append(system, m_systems.next());
        }
        for (std::size_t left = below(1 + system.geometries.size() / 3); left > 0; --left) {
            addAcross(system);
        }
        Numbering numbering(system);
        std::shuffle(system.geometries.begin(), system.geometries.end(), m_random);
        std::shuffle(system.constraints.begin(), system.constraints.end(), m_random);
        return system;
    }

private:
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    template <class Object, class Kind>
    static void append(std::vector<std::shared_ptr<Object>>& list,
                       const std::vector<std::shared_ptr<Kind>>& objects) {
        std::copy_if(objects.begin(), objects.end(), std::back_inserter(list),
                     [](const auto& object) { return object != nullptr; });
    }
    static void append(GraphSystem& system, const VrexImmutableSystem3D& part) {
        append(system.geometries, part.geometries());
        append(system.geometries, part.variables());
        append(system.constraints, part.constraints());
        append(system.constraints, part.equations());
    }
    void addAcross(GraphSystem& system) {
        const auto& geometry = system.geometries[below(system.geometries.size())];
        const auto entity = std::dynamic_pointer_cast<VrexGeometry3D>(geometry);
        if (entity != nullptr && below(2) == 0) {
            system.constraints.push_back(VrexFixation3D::create(entity, VrexFixation3DType::Complete3D));
        } else {
            system.constraints.push_back(LooseConstraint::create(
                0, {geometry, nullptr, system.geometries[below(system.geometries.size())]}));
        }
    }

    RandomSystems m_systems;
    std::mt19937_64 m_random{18};
};

template <class Walk>
void expectWalk(const GraphSystem& system, const GraphModel& model, bool isDepthFirst) {
    const GraphModelWalk expected(model, isDepthFirst, 0);
    VrexConstraintGraph graph(system.geometries, system.constraints);
    VrexComponentGenerator generator;
    Walk().traverse(graph, generator);
    ASSERT_EQ(piecesOf(generator), expected.pieces());
    ASSERT_EQ(fixationsOf(generator), expected.fixations());
    GraphRecorder recorder;
    Walk().traverse(graph, recorder);
    ASSERT_EQ(recorder.steps(), expected.steps());
    ASSERT_EQ(piecesOf(recorder), expected.pieces());
}

TEST(VrexGraphKinds, WalksAreThoseOfNestedCalls) {
    Systems systems;
    for (int round = 0; round < 2000; ++round) {
        const GraphSystem system = systems.next();
        const GraphModel model(system);
        expectWalk<VrexDepthFirstSearch>(system, model, true);
        expectWalk<VrexBroadFirstSearch>(system, model, false);
        ASSERT_FALSE(HasFatalFailure()) << round;
    }
}

TEST(VrexGraphKinds, FixedSetThatHoldsItsOwnConnectorIsOneComponent) {
    const auto set = VrexRigidSet3D::create({});
    const auto connector = VrexConnector3D::create(set);
    set->geometries() = {connector};
    const auto fixation = VrexFixation3D::create(set, VrexFixation3DType::Complete3D);
    const GraphSystem system{{connector, set}, {fixation}};
    const Numbering numbering(system);
    for (const bool isByIndex : {true, false}) {
        VrexConstraintGraph graph(system.geometries, system.constraints);
        VrexComponentGenerator generator;
        GraphRecorder recorder;
        VrexComponentGenerator& visitor = isByIndex ? generator : recorder;
        VrexDepthFirstSearch().traverse(graph, visitor);
        // The connector is met first, and joined to the set as a part and as an owner.
        EXPECT_EQ(piecesOf(visitor), (std::vector<GraphPiece>{{{1, 2}, {3}}}));
    }
    set->geometries().clear();
}

} // namespace
