#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/Mechanism.h"

/// A system that something is wrong with, and what a solver has to say about it.
struct PlantedSystem : Mechanism {
    using Group = std::vector<std::uint64_t>;
    using Constraint = std::shared_ptr<VrexBaseConstraint>;
    using Point = std::shared_ptr<VrexPoint3D>;
    using Line = std::shared_ptr<VrexLine3D>;
    using Plane = std::shared_ptr<VrexPlane3D>;
    using Sphere = std::shared_ptr<VrexSphere3D>;
    using Body = std::shared_ptr<VrexRigidSet3D>;

    bool isSolvable = true;
    std::size_t freedom = 0;
    /// The groups that depend on each other or contradict each other.
    std::set<Group> groups;

    void expectGroup(const std::vector<Constraint>& members) {
        Group group;
        for (const auto& member : members) {
            group.push_back(member->getID());
        }
        std::sort(group.begin(), group.end());
        groups.insert(std::move(group));
    }
    /// All constraints but complete fixations.
    void expectAll() {
        std::vector<Constraint> members;
        for (const auto& constraint : constraints) {
            if (!constraint->isCompleteFixed()) {
                members.push_back(constraint);
            }
        }
        expectGroup(members);
    }

    Point point(double x, double y, double z) { return add(VrexPoint3D::create(x, y, z)); }
    Line line(const Vector& origin, const Vector& direction) {
        return add(VrexLine3D::create(origin, direction / direction.magnitude()));
    }
    Plane plane(const Vector& origin, const Vector& normal) {
        return add(VrexPlane3D::create(origin, normal / normal.magnitude()));
    }
    Sphere sphere(const Vector& center, double radius) { return add(VrexSphere3D::create(center, radius)); }
    template <class Geometry>
    std::shared_ptr<Geometry> fixed(std::shared_ptr<Geometry> geometry) {
        bind(VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D));
        return geometry;
    }
    std::shared_ptr<VrexGeometryVariable> variable(double value) {
        return add(VrexGeometryVariable::create(value));
    }

    Constraint distance(const std::shared_ptr<VrexGeometry3D>& first,
                        const std::shared_ptr<VrexGeometry3D>& second, double value,
                        VrexConstraintOrientation orientation = VrexConstraintOrientation::Current) {
        const auto result = bind(VrexDistance3D::create(
            first, second, value, VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN));
        result->orientation() = orientation;
        return result;
    }
    /// As far from each other as they are.
    Constraint bar(const Point& first, const Point& second) {
        return distance(first, second, (second->getPosition() - first->getPosition()).magnitude());
    }
    Constraint lay(const std::shared_ptr<VrexGeometry3D>& what,
                   const std::shared_ptr<VrexGeometry3D>& where) {
        return bind(VrexIncidence3D::create(what, where, VrexIncidence3DType::Default,
                                            VrexGeometryComponentType::UNKNOWN,
                                            VrexGeometryComponentType::UNKNOWN));
    }
    /// The line through two points, which are laid on it.
    Line through(const Point& first, const Point& second) {
        const auto result = line(first->getPosition(), second->getPosition() - first->getPosition());
        lay(first, result);
        lay(second, result);
        return result;
    }
    Constraint parallel(const std::shared_ptr<VrexGeometry3D>& first,
                        const std::shared_ptr<VrexGeometry3D>& second,
                        VrexConstraintAlignment alignment = VrexConstraintAlignment::Current) {
        const auto result = bind(VrexParallelism3D::create(first, second));
        result->alignment() = alignment;
        return result;
    }
    Constraint perpendicular(const std::shared_ptr<VrexGeometry3D>& first,
                             const std::shared_ptr<VrexGeometry3D>& second) {
        return bind(VrexPerpendicularity3D::create(first, second));
    }
    Constraint angleAbout(const std::shared_ptr<VrexGeometry3D>& axis, const Line& first, const Line& second,
                          double value) {
        const auto result = bind(VrexPlanarAngle3D::create(first, second, axis, value));
        result->orientation() = VrexConstraintOrientation::Positive;
        return result;
    }
    Constraint radius(const Sphere& sphere, double value) {
        return bind(VrexRadius3D::create(sphere, value, VrexRadius3DType::Radius3D));
    }
    Constraint equalRadii(const Sphere& first, const Sphere& second) {
        constexpr auto radius = VrexRadius3DType::Radius3D;
        return bind(VrexEqualRadius3D::create(first, radius, second, radius,
                                              VrexGeometryComponentType::UNKNOWN,
                                              VrexGeometryComponentType::UNKNOWN));
    }
    Constraint middle(const Point& first, const Point& second, const Point& point) {
        return bind(VrexMidPoint3D::create(first, second, point));
    }
    /// A point that is laid in the middle.
    Point middleOf(const Point& first, const Point& second) {
        const Vector place = (first->getPosition() + second->getPosition()) * 0.5;
        const auto result = point(place.x(), place.y(), place.z());
        middle(first, second, result);
        return result;
    }
    Constraint equation(const std::vector<VrexVariableDescriptor>& parameters, const std::string& text) {
        return bind(
            VrexExpressionEquation::create(parameters, VrexEquationConditionType::equalToZero, text.c_str()));
    }
    /// With the second connector moved by `shift`.
    Constraint fastened(const Body& first, const Body& second, const Vector& place,
                        const Vector& shift = {0.0, 0.0, 0.0}) {
        return bind(VrexFastenedMate3D::create(connector(first, place), connector(second, place + shift)));
    }
};

/// Plants one thing.
struct PlantedCase {
    const char* name;
    void (*plant)(PlantedSystem& system);
};
