#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "support/SamplesRelations.h"

/// The systems behind the documents of `tests/golden/json`, where every kind and every key stands at least
/// once. Directions are along Z and rotations half turns about Z or none, so that numbers come out exact.
class GoldenSystems {
public:
    static VrexImmutableSystem3D geometries() {
        GoldenSystems system;
        system.addSimpleGeometries();
        system.addSets();
        system.addSplines();
        system.addSurfaces();
        system.addEvaluated();
        system.addPatterns();
        return system.made();
    }
    static VrexImmutableSystem3D constraints() {
        GoldenSystems system;
        system.addBound();
        system.addDimensions();
        system.addRelations();
        system.addMates();
        system.addCompounds();
        return system.made();
    }
    static VrexImmutableSystem3D equations() {
        using enum VrexEquationConditionType;
        GoldenSystems system;
        const auto circle = system.geometry(1, VrexCircle3D::create({1.0, -2.0, 3.0}, {0.0, 0.0, 1.0}, 1.5));
        const auto variable = system.variable(2, 2.5);
        const auto radius =
            system.constraint(3, VrexRadius3D::create(circle, 1.5, VrexRadius3DType::Radius3D));
        radius->setHelpPoint1({1.0, 2.0, 3.0});
        const auto sum = VrexExpressionEquation::create(
            {{variable, 0, "d"}, {circle, 0, "r"}, {radius, 2, "h"}}, greaterThanZero, "2 * d - r / h");
        sum->label() = "sum";
        sum->status() = VrexConstraintStatus::NotSolved;
        sum->satisfiedStatus() = VrexConstraintSatisfiedStatus::NotSatisfied;
        sum->solveMethodStatus() = VrexSolveMethodStatus::Numerical;
        system.equation(4, sum);
        system.equation(5, VrexExpressionEquation::create({{variable, 0, "d"}}, equalToZero, "d"));
        system.equation(6, VrexCallbackEquation::create({{variable, 0, "left out"}, {circle, 1, "too"}},
                                                        lessEqualZero,
                                                        VrexLinearEquationCallback({2.0, 0.5}, -1.0)));
        system.equation(7,
                        VrexCallbackEquation::create(dragTowardsZero, VrexLinearEquationCallback({}, 0.0)));
        return system.made(0.001, 0.0);
    }
    /// Without what is added to the document: drag variables and further keys.
    static VrexImmutableSystem3D drags() {
        GoldenSystems system;
        const auto point = system.geometry(1, VrexPoint3D::create(1.0, -2.0, 3.5));
        const auto circle = system.geometry(2, VrexCircle3D::create({1.0, -2.0, 3.0}, {0.0, 0.0, 1.0}, 1.5));
        const auto sphere = system.geometry(3, VrexSphere3D::create({7.0, 8.0, 9.0}, 0.75));
        const auto variable = system.variable(4, 2.5);
        VrexTransform3D transform;
        transform.applyTranslation(point, {1.0, 2.0, 3.0});
        transform.applyTransformation(circle,
                                      VrexTransformMatrix3D(VrexTransformMatrix3D::Rows{
                                          {{0, -1, 0, 4}, {1, 0, 0, 5}, {0, 0, 1, 6}, {0, 0, 0, 1}}}));
        transform.applyTranslation(sphere, {0.0, 0.0, -0.5});
        transform.applyTransformParameters(circle, VrexDragParameter3DType::Radius3D, 5.0);
        transform.applyTransformParameters(sphere, VrexDragParameter3DType::Unknown, -2.0);
        transform.applyVariableTransform(variable, 7.0);
        return {system.m_geometries, system.m_variables, {}, {}, 1e-6, 1e-8, transform, {sphere, point}};
    }
    /// Puts in what `drags` lacks.
    static void extendDrags(VrexSystem3DSerializer& serializer) {
        serializer.addExtendedInformation("dragVariables",
                                          LumoJson::parse(R"([{"objectId":0,"targetValue":6.0}])"));
        serializer.addExtendedInformation("moveAndEvaluate", LumoJson::parse(R"({"steps":[1,2]})"));
        serializer.addExtendedInformation("maxId", 4);
        serializer.addExtendedInformation("author", "somebody");
    }
    /// The documents by their names, and how their text comes about.
    static std::vector<std::pair<std::string, std::string (*)()>> documents();
    static std::string path(const std::string& name);
    /// The text of the golden document of that name.
    static std::string text(const std::string& name);

private:
    static constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

    template <class Geometry>
    std::shared_ptr<Geometry> geometry(std::uint64_t id, const std::shared_ptr<Geometry>& geometry) {
        geometry->setID(id);
        m_geometries.push_back(geometry);
        return geometry;
    }
    std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id, double value) {
        m_variables.push_back(VrexGeometryVariable::create(value));
        m_variables.back()->setID(id);
        return m_variables.back();
    }
    template <class Constraint>
    std::shared_ptr<Constraint> constraint(std::uint64_t id, const std::shared_ptr<Constraint>& constraint) {
        constraint->setID(id);
        m_constraints.push_back(constraint);
        return constraint;
    }
    void equation(std::uint64_t id, const std::shared_ptr<VrexBaseEquation>& equation) {
        equation->setID(id);
        m_equations.push_back(equation);
    }
    /// The entity of that place in its array.
    template <class Geometry>
    std::shared_ptr<Geometry> at(std::size_t index) const {
        return std::dynamic_pointer_cast<Geometry>(m_geometries.at(index));
    }
    template <class Constraint>
    std::shared_ptr<Constraint> constraintAt(std::size_t index) const {
        return std::dynamic_pointer_cast<Constraint>(m_constraints.at(index));
    }
    VrexImmutableSystem3D made(double linearTolerance = 1e-6, double angularTolerance = 1e-8) const {
        return {m_geometries, m_variables, m_constraints, m_equations, linearTolerance, angularTolerance,
                {},           {}};
    }

    void addSimpleGeometries();
    void addSets();
    void addSplines();
    void addSurfaces();
    void addEvaluated();
    void addPatterns();
    void addBound();
    void addDimensions();
    void addRelations();
    void addMates();
    void addCompounds();

    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
    std::vector<std::shared_ptr<VrexGeometryVariable>> m_variables;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
    std::vector<std::shared_ptr<VrexBaseEquation>> m_equations;
};
