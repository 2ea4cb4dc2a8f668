#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexEnumTable.h"
#include "data/VrexVariableDescriptor.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "solver/PlantedSystem.h"
#include "solver/RandomEntities.h"
#include "solver/SolverRuns.h"

namespace {

using Object = std::shared_ptr<VrexBaseObject>;
constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

/// Two points at a distance that they do not have yet.
struct Sound : PlantedSystem {
    Sound() : points{point(0, 0, 0), point(1, 1, 0)} { distance(points[0], points[1], 3.0); }
    double length() const { return (points[1]->getPosition() - points[0]->getPosition()).magnitude(); }
    std::vector<Point> points;
};

/// Solves the system between two sound ones, and expects that these are solved and that it is refused for a
/// reason that names the object and tells this.
void expectRefused(const Mechanism& system, const VrexBaseObject& culprit, const std::string& reason,
                   const VrexTransform3D* drag = nullptr) {
    const Sound before;
    const Sound behind;
    const auto report =
        VrexSolver3D().solve({before.component(), system.component(), behind.component()}, drag);
    ASSERT_EQ(report.components.size(), 3U);
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_FALSE(report.components[1].isConverged);
    EXPECT_TRUE(report.components[2].isConverged);
    EXPECT_NEAR(before.length(), 3.0, 1e-9);
    EXPECT_NEAR(behind.length(), 3.0, 1e-9);
    const std::string& refusal = report.components[1].refusal;
    EXPECT_NE(refusal.find(std::to_string(culprit.getID())), std::string::npos) << refusal;
    EXPECT_NE(refusal.find(reason), std::string::npos) << refusal;
    for (const auto& geometry : system.geometries) {
        EXPECT_EQ(geometry->status(), VrexGeometryStatus::NotSolved);
    }
    for (const auto& constraint : system.constraints) {
        EXPECT_EQ(constraint->status(), VrexConstraintStatus::NotSolved);
        EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
    }
}

/// Something wrong in a system of two points and a bar; yields what is wrong.
struct Fault {
    const char* name;
    const char* reason;
    Object (*plant)(PlantedSystem& system);
};

std::shared_ptr<VrexDistance3D> addDistance(PlantedSystem& s, double value) {
    return std::static_pointer_cast<VrexDistance3D>(s.distance(s.point(5, 0, 0), s.point(6, 0, 0), value));
}

std::shared_ptr<VrexSliderMate3D> addSlider(PlantedSystem& s) {
    const auto base = s.ground();
    return s.bind(
        VrexSliderMate3D::create(s.connector(base, {0, 0, 0}), s.connector(s.body(), {0, 0, 1}), {}));
}

Object addAdvance(PlantedSystem& s, const PlantedSystem::Vector& direction) {
    return s.bind(VrexDirectionDistance3D::create(s.point(5, 0, 0), s.point(6, 0, 0), direction, 1.0));
}

const Fault FAULTS[] = {
    {"a set with a member that is null", " has a member that is missing.",
     [](PlantedSystem& s) -> Object {
         return s.body({s.point(1, 2, 3), nullptr});
     }},
    {"a rotation that is zero", " has a direction without length.",
     [](PlantedSystem& s) -> Object {
         const auto body = s.body();
         VrexVariableDescriptor(body, VrexRigidSet3D::SCALAR, nullptr).setValue(0.0); // all four are
         return body;
     }},
    {"a number that is not finite", " holds a number that is not finite.",
     [](PlantedSystem& s) -> Object { return s.variable(NO_NUMBER); }},
    {"a number that is too large", " holds a number beyond 1e100.",
     [](PlantedSystem& s) -> Object { return s.point(1, 1e160, 3); }},
    {"a constraint without an entity", " binds an entity that is missing.",
     [](PlantedSystem& s) -> Object {
         return s.bind(VrexParallelism3D::create(s.line({0, 0, 0}, {1, 0, 0}), nullptr));
     }},
    {"a mate without a connector", " binds an entity that is missing.",
     [](PlantedSystem& s) -> Object {
         return s.bind(VrexSliderMate3D::create(nullptr, s.connector(s.body(), {0, 0, 1}), {}));
     }},
    {"a distance that is no number", " has a value that is not finite.",
     [](PlantedSystem& s) -> Object { return addDistance(s, NO_NUMBER); }},
    {"a distance that is infinite", " has a value that is not finite.",
     [](PlantedSystem& s) -> Object { return addDistance(s, INFINITE); }},
    {"a distance that is too large", " has a value beyond 1e100.",
     [](PlantedSystem& s) -> Object { return addDistance(s, 1e160); }},
    {"limits in the wrong order", " has a lower limit above the upper one.",
     [](PlantedSystem& s) -> Object {
         const auto distance = addDistance(s, 1.0);
         distance->setLimits({2.0, 0.5});
         return distance;
     }},
    {"a limit that is no number", " has a limit that is no number.",
     [](PlantedSystem& s) -> Object {
         const auto distance = addDistance(s, 1.0);
         distance->setLimits({NO_NUMBER, 2.0});
         return distance;
     }},
    {"a distance outside its limits", " has a value outside its limits.",
     [](PlantedSystem& s) -> Object {
         const auto distance = addDistance(s, 1.0);
         distance->setLimits({1.5, 2.0});
         return distance;
     }},
    {"limits of a mate in the wrong order", " has limits that contradict each other.",
     [](PlantedSystem& s) -> Object {
         const auto slider = addSlider(s);
         slider->getDistance().limits = {2.0, 1.0};
         return slider;
     }},
    {"a limit of a mate that is no number", " has limits that contradict each other.",
     [](PlantedSystem& s) -> Object {
         const auto slider = addSlider(s);
         slider->getDistance().limits = {std::nullopt, NO_NUMBER};
         return slider;
     }},
    {"a dimension of a mate that is no number", " has a value that is not finite.",
     [](PlantedSystem& s) -> Object {
         const auto slider = addSlider(s);
         slider->getDistance().value = NO_NUMBER;
         return slider;
     }},
    {"a direction without length", " has a direction without length.",
     [](PlantedSystem& s) {
         return addAdvance(s, {0.0, 0.0, 0.0});
     }},
    {"a direction that is no number", " has a direction without length.",
     [](PlantedSystem& s) {
         return addAdvance(s, {0.0, NO_NUMBER, 0.0});
     }},
    {"a function that yields no number", " has a value that is not finite.",
     [](PlantedSystem& s) -> Object {
         const auto x = s.variable(1.0);
         return s.bind(VrexCallbackEquation::create(
             {{x, 0, "x"}}, VrexEquationConditionType::equalToZero,
             [](const std::vector<VrexVariable>& /*args*/) { return VrexVariable(NO_NUMBER); }));
     }},
    {"a mate with a limit that nothing can keep", " has limits that contradict each other.",
     [](PlantedSystem& s) -> Object {
         const auto mate = addSlider(s);
         mate->getDistance().limits = {INFINITE, INFINITE};
         return mate;
     }},
    {"a function that throws", "the disk is gone",
     [](PlantedSystem& s) -> Object {
         const auto x = s.variable(1.0);
         return s.bind(
             VrexCallbackEquation::create({{x, 0, "x"}}, VrexEquationConditionType::equalToZero,
                                          [](const std::vector<VrexVariable>& /*args*/) -> VrexVariable {
                                              throw std::runtime_error("the disk is gone");
                                          }));
     }},
};

TEST(VrexSolver3DFaults, RefuseTheirComponentAlone) {
    for (const Fault& fault : FAULTS) {
        SCOPED_TRACE(fault.name);
        Sound system;
        const Object culprit = fault.plant(system);
        expectRefused(system, *culprit, fault.reason);
        EXPECT_EQ(system.points[1]->getPosition().x(), 1.0); // as it stood
    }
}

TEST(VrexSolver3DFaults, NumbersThatAreNotFiniteAreFoundInEveryParameter) {
    RandomShapes random;
    for (const VrexGeometry3DType kind : nsRandomEntities::KINDS) {
        for (const double value : {NO_NUMBER, INFINITE}) {
            for (std::uint32_t slot = 0;; ++slot) {
                Mechanism system;
                const auto entity = system.add(nsRandomEntities::make(kind, random));
                VrexVariableDescriptor parameter(entity, slot, nullptr);
                if (!parameter.hasParameter()) {
                    break;
                }
                SCOPED_TRACE(testing::Message() << nsEnum::toText(kind) << " slot " << slot);
                parameter.setValue(value);
                expectRefused(system, *entity, " holds a number that is not finite.");
            }
        }
    }
}

TEST(VrexSolver3DFaults, FaultsOfLiveObjectsRefuseTheirComponentAlone) {
    for (const Fault& fault : FAULTS) {
        SCOPED_TRACE(fault.name);
        PlantedSystem system;
        const Sound sound; // of the same identifiers
        const Object culprit = fault.plant(system);
        system.geometries.insert(system.geometries.end(), sound.geometries.begin(), sound.geometries.end());
        system.constraints.insert(system.constraints.end(), sound.constraints.begin(),
                                  sound.constraints.end());
        const auto report = VrexSolver3D().solve(system.geometries, system.constraints);
        EXPECT_FALSE(report.isConverged());
        EXPECT_NEAR(sound.length(), 3.0, 1e-9);
        const auto isRefused = [&fault](const VrexSolverComponentReport& component) {
            return component.refusal.find(fault.reason) != std::string::npos;
        };
        EXPECT_EQ(std::count_if(report.components.begin(), report.components.end(), isRefused), 1);
    }
}

TEST(VrexSolver3DFaults, WhatIsNotSupportedIsNamedAndTheRestIsSolved) {
    Sound system;
    const auto cylinder = system.add(VrexCylinder3D::create({0, 0, 0}, {1, 0, 0}, 1.0));
    const auto line = system.line({0, 0, 0}, {1, 0, 0});
    const auto normal = system.bind(VrexSurfaceNormal3D::create(cylinder, line));
    const auto report = solve(system);
    EXPECT_TRUE(report.isConverged);
    EXPECT_NEAR(system.length(), 3.0, 1e-9);
    ASSERT_EQ(report.remarks.size(), 1U);
    EXPECT_EQ(report.remarks[0].id, normal->getID());
    EXPECT_EQ(report.remarks[0].kind, "SurfaceNormal3D");
    EXPECT_NE(report.remarks[0].reason, "");
    EXPECT_EQ(normal->status(), VrexConstraintStatus::NotSolved);
    EXPECT_EQ(normal->satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
    EXPECT_EQ(system.constraints[0]->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
}

/// A drag to where no number leads; yields what it takes there.
struct DragFault {
    const char* name;
    const char* reason;
    Object (*plant)(Sound& system, VrexTransform3D& drag);
};

Object dragFarOff(Sound& s, VrexTransform3D& drag, std::uint64_t row, std::uint64_t column, double number) {
    VrexTransformMatrix3D matrix;
    matrix[row][column] = number;
    EXPECT_TRUE(drag.applyTransformation(s.points[1], matrix));
    return s.points[1];
}

const DragFault DRAG_FAULTS[] = {
    {"a translation that is no number", " is dragged to a number that is not finite.",
     [](Sound& s, VrexTransform3D& drag) { return dragFarOff(s, drag, 1, 3, NO_NUMBER); }},
    {"an infinite translation", " is dragged to a number that is not finite.",
     [](Sound& s, VrexTransform3D& drag) { return dragFarOff(s, drag, 2, 3, -INFINITE); }},
    {"a rotation that is no number", " is dragged to a number that is not finite.",
     [](Sound& s, VrexTransform3D& drag) { return dragFarOff(s, drag, 0, 2, NO_NUMBER); }},
    {"a translation too far", " is dragged to a number beyond 1e100.",
     [](Sound& s, VrexTransform3D& drag) { return dragFarOff(s, drag, 0, 3, -1e160); }},
    {"a size that is no number", " is dragged to a number that is not finite.",
     [](Sound& s, VrexTransform3D& drag) -> Object {
         const auto cylinder = s.add(VrexCylinder3D::create({0, 0, 0}, {1, 0, 0}, 1.0));
         EXPECT_TRUE(drag.applyTransformParameters(cylinder, VrexDragParameter3DType::Radius3D, NO_NUMBER));
         return cylinder;
     }},
    {"a variable to infinity", " is dragged to a number that is not finite.",
     [](Sound& s, VrexTransform3D& drag) -> Object {
         const auto variable = s.variable(1.0);
         EXPECT_TRUE(drag.applyVariableTransform(variable, INFINITE));
         return variable;
     }},
};

TEST(VrexSolver3DFaults, DragsToWhereNoNumberLeadsRefuseTheirComponentAlone) {
    for (const DragFault& fault : DRAG_FAULTS) {
        SCOPED_TRACE(fault.name);
        Sound system;
        VrexTransform3D drag;
        const Object culprit = fault.plant(system, drag);
        expectRefused(system, *culprit, fault.reason, &drag);
        EXPECT_EQ(system.points[1]->getPosition().x(), 1.0); // as it stood
    }
}

TEST(VrexSolver3DFaults, DragsOfLiveObjectsToWhereNoNumberLeadsAreNamed) {
    for (const DragFault& fault : DRAG_FAULTS) {
        SCOPED_TRACE(fault.name);
        Sound system;
        VrexTransform3D drag;
        const Object culprit = fault.plant(system, drag);
        const auto report = VrexSolver3D().solve(system.geometries, system.constraints, &drag);
        const auto isRefused = [&](const VrexSolverComponentReport& component) {
            return component.refusal.ends_with(std::to_string(culprit->getID()) + fault.reason);
        };
        EXPECT_EQ(std::count_if(report.components.begin(), report.components.end(), isRefused), 1);
        EXPECT_EQ(system.points[1]->getPosition().z(), 0.0);
    }
}

TEST(VrexSolver3DFaults, ToleranceHasToBePositiveAndFinite) {
    for (const double tolerance : {0.0, -1e-10, NO_NUMBER, INFINITE}) {
        VrexSolverOptions options;
        options.tolerance = tolerance;
        EXPECT_THROW(VrexSolver3D{options}, std::invalid_argument) << tolerance;
    }
}

} // namespace
