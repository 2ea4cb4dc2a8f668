// A linkage of twenty bodies falls into pieces that can be solved one after the other: three arms on one
// fixed base, and two loose pairs. The base belongs to each arm.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// Bodies are rigid sets with a point at each of their joints.
class Linkage {
public:
    std::shared_ptr<VrexRigidSet3D> addBody(std::size_t joints) {
        std::vector<std::shared_ptr<VrexGeometry3D>> points;
        for (std::size_t i = 0; i < joints; ++i) {
            points.push_back(VrexPoint3D::create(double(i), 0.0, 0.0));
            addGeometry(points.back());
        }
        auto body = VrexRigidSet3D::create(points);
        addGeometry(body);
        return body;
    }
    void hinge(const VrexRigidSet3D& from, std::size_t joint, const VrexRigidSet3D& to) {
        addConstraint(
            VrexDistance3D::create(from.geometries()[joint], to.geometries()[0], 0.0, WHOLE, WHOLE));
    }
    void fix(const std::shared_ptr<VrexRigidSet3D>& body) {
        addConstraint(VrexFixation3D::create(body, VrexFixation3DType::Complete3D));
    }
    /// Bodies of two joints each, hinged one to the other from joint `joint` of `start` on.
    void addArm(const std::shared_ptr<VrexRigidSet3D>& start, std::size_t joint, std::size_t length) {
        std::shared_ptr<VrexRigidSet3D> last = start;
        for (std::size_t i = 0; i < length; ++i) {
            auto body = addBody(2);
            hinge(*last, i == 0 ? joint : 1, *body);
            last = body;
        }
    }

    VrexConstraintGraph graph() const { return {m_geometries, m_constraints}; }

private:
    void addGeometry(const std::shared_ptr<VrexGeometry3D>& geometry) {
        geometry->setID(m_ids.next());
        m_geometries.push_back(geometry);
    }
    void addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
        constraint->setID(m_ids.next());
        m_constraints.push_back(constraint);
    }

    VrexIDGenerator m_ids; // one for all: identifiers are unique across geometries and constraints
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> m_constraints;
};

std::size_t bodiesIn(const VrexConnectedComponent& component) {
    std::size_t bodies = 0;
    for (const auto& geometry : component.getGeometries()) {
        bodies += dynamic_cast<const VrexRigidSet3D*>(geometry.get()) != nullptr ? 1 : 0;
    }
    return bodies;
}

} // namespace

int main() {
    Linkage linkage;
    const auto base = linkage.addBody(3);
    linkage.fix(base);
    linkage.addArm(base, 0, 7);
    linkage.addArm(base, 1, 5);
    linkage.addArm(base, 2, 3);
    for (int pair = 0; pair < 2; ++pair) {
        linkage.addArm(linkage.addBody(2), 1, 1);
    }

    VrexConstraintGraph graph = linkage.graph();
    VrexDepthFirstSearch walk;
    VrexComponentGenerator generator;
    walk.traverse(graph, generator);

    std::printf("%llu vertices, %llu edges\n\n", static_cast<unsigned long long>(graph.numVertices()),
                static_cast<unsigned long long>(graph.numEdges()));
    std::printf("%-10s %7s %11s %12s  %s\n", "component", "bodies", "geometries", "constraints",
                "on the base");
    std::vector<std::size_t> bodies;
    for (const auto& component : generator.getComponents()) {
        component->assignID(bodies.size() + 1);
        bodies.push_back(bodiesIn(*component));
        std::printf("%-10llu %7zu %11zu %12zu  %s\n", static_cast<unsigned long long>(component->getID()),
                    bodies.back(), component->getGeometries().size(), component->getConstraints().size(),
                    component->getCompleteFixation(base) != nullptr ? "yes" : "no");
    }
    return bodies == std::vector<std::size_t>{8, 6, 4, 2, 2} ? 0 : 1;
}
