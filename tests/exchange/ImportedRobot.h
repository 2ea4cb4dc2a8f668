#pragma once

#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexConnectedComponent.h"
#include "exchange/VrexUrdfReader.h"
#include "solver/VrexSolver3D.h"

/// A system, its objects by their labels.
struct ImportedRobot {
    using Frame = VrexTransformation3DT<double>;
    using Vector = VrexVector3DT<double>;

    explicit ImportedRobot(VrexImmutableSystem3D imported) : system(std::move(imported)) {}

    template <class Class, class List>
    static std::vector<std::shared_ptr<Class>> all(const List& list, std::string_view label) {
        std::vector<std::shared_ptr<Class>> found;
        for (const auto& object : list) {
            const auto known = std::dynamic_pointer_cast<Class>(object);
            if (known != nullptr && (label.empty() || known->label() == label)) {
                found.push_back(known);
            }
        }
        return found;
    }
    /// The first one; throws where there is none.
    template <class Class>
    std::shared_ptr<Class> geometry(std::string_view label) const {
        return all<Class>(system.geometries(), label).at(0);
    }
    template <class Class>
    std::shared_ptr<Class> constraint(std::string_view label) const {
        return all<Class>(system.constraints(), label).at(0);
    }
    std::shared_ptr<VrexRigidSet3D> link(std::string_view name) const {
        return geometry<VrexRigidSet3D>(name);
    }
    Frame pose(std::string_view name) const { return link(name)->getTransformation(); }

    VrexConnectedComponent::Geometries geometries() const {
        return {system.geometries().begin(), system.geometries().end()};
    }
    VrexConnectedComponent::Constraints constraints() const {
        return {system.constraints().begin(), system.constraints().end()};
    }

    /// Moves everything that is not fixed by up to `size`; sets with their members, and connectors with their
    /// sets.
    void perturb(std::mt19937& random, double size) const {
        std::uniform_real_distribution<double> part(-size, size);
        const auto vector = [&] {
            const double x = part(random);
            const double y = part(random);
            return Vector(x, y, part(random));
        };
        const auto held = heldGeometries();
        for (const auto& geometry : system.geometries()) {
            if (!held.contains(geometry)) {
                const auto set = std::dynamic_pointer_cast<VrexRigidSet3D>(geometry);
                const Frame here(set != nullptr ? set->getOrigin() : Vector(),
                                 VrexQuaternionT<double>::ONE());
                const Frame motion(vector(), part(random), vector());
                VrexGeometryTransformation3DVisitor visitor(here * motion * here.getInversed(), false);
                geometry->accept(visitor);
            }
        }
    }
    /// What is fixed, what a set carries, and the connectors.
    std::set<std::shared_ptr<VrexBaseGeometry>> heldGeometries() const {
        std::set<std::shared_ptr<VrexBaseGeometry>> held;
        for (const auto& constraint : system.constraints()) {
            if (constraint->isCompleteFixed()) {
                held.insert(constraint->getGeometries().at(0));
            }
        }
        for (const auto& set : all<VrexRigidSet3D>(system.geometries(), "")) {
            held.insert(set->geometries().begin(), set->geometries().end());
        }
        for (const auto& connector : all<VrexConnector3D>(system.geometries(), "")) {
            held.insert(connector);
        }
        return held;
    }

    VrexSolverReport solve() const { return VrexSolver3D().solve(geometries(), constraints()); }

    VrexImmutableSystem3D system;
};

inline std::size_t mobilityOf(const VrexSolverReport& report) {
    std::size_t mobility = 0;
    for (const auto& component : report.components) {
        mobility += component.freedom;
    }
    return mobility;
}

/// Where a component is not solved, what the report says of it.
inline std::string troublesOf(const VrexSolverReport& report) {
    std::string troubles;
    for (const auto& component : report.components) {
        if (!component.isConverged) {
            troubles.append("not converged: ")
                .append(std::to_string(component.largestResidual))
                .append(" ")
                .append(component.refusal);
        }
        for (const auto& remark : component.remarks) {
            troubles.append(remark.kind).append(" ").append(remark.reason);
        }
    }
    return troubles;
}

inline ImportedRobot importText(std::string_view text, bool isStrict = true, std::string_view loops = {}) {
    const VrexUrdfImport result = VrexUrdfReader({isStrict, {}}).readText(text, loops);
    if (!result.system.has_value()) {
        throw std::runtime_error(result.findings.empty() ? "nothing" : result.findings.front().message);
    }
    return ImportedRobot(*result.system);
}
