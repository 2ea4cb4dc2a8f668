// What holds of assignments between the entities of every system.

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "data/3d/VrexAssigner3D.h"
#include "support/ObjectGraph.h"
#include "support/Poses.h"
#include "support/RandomSystems.h"

namespace {

using Geometry = std::shared_ptr<VrexGeometry3D>;
using Lines = std::vector<std::string>;

const VrexAssigner3D assign;

/// The fields of an entity and of the objects that it reaches, one after the other, from the second line on.
Lines linesOf(const Geometry& geometry) {
    std::istringstream text(ObjectGraph(std::vector{geometry}).text());
    Lines lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::set<const VrexBaseObject*> controlPointsOf(const Geometry& geometry) {
    std::set<const VrexBaseObject*> points;
    const auto addRow = [&points](const std::vector<VrexSpline3D::ControlPoint>& row) {
        for (const auto& controlPoint : row) {
            points.insert(controlPoint.point.get());
        }
    };
    if (const auto spline = std::dynamic_pointer_cast<VrexSpline3D>(geometry)) {
        addRow(spline->controlPoints());
    } else if (const auto surface = std::dynamic_pointer_cast<VrexNURBSSurface3D>(geometry)) {
        std::ranges::for_each(surface->controlPoints(), addRow);
    }
    return points;
}

/// An evaluated surface cannot; an evaluated curve goes over to the objects of the other system.
bool canBeAssigned(VrexGeometry3DType type) {
    return type != VrexGeometry3DType::EVAL_SURFACE && type != VrexGeometry3DType::EVAL_CURVE;
}

/// Whether every parameter is kept as it is, not by way of angles or of two axes.
bool isStoredAsGiven(VrexGeometry3DType type) {
    using enum VrexGeometry3DType;
    const std::set<VrexGeometry3DType> others{LINE, PLANE, CIRCLE, ELLIPSE, CYLINDER, CONE, TORUS};
    return !others.contains(type);
}

/// False when the assigner refuses, as it does of fewer control points.
bool tryToAssign(VrexGeometry3D& source, VrexGeometry3D& target) {
    try {
        assign(source, target);
        return true;
    } catch (const std::out_of_range&) {
        return false;
    }
}

/// Assigns, and checks what came over and that nothing but the target and its control points was written.
void expectAssigned(const Geometry& source, const Geometry& target) {
    SCOPED_TRACE(getEnumeratorText(target->type()));
    source->status() = VrexGeometryStatus::Underdefined;
    target->status() = VrexGeometryStatus::Welldefined;
    const Lines sourceBefore = linesOf(source);
    const Lines before = linesOf(target);
    const auto objects = ObjectGraph(std::vector{target}).objects();
    const auto points = controlPointsOf(target);
    const bool isAssigned = tryToAssign(*source, *target);
    const Lines after = linesOf(target);
    EXPECT_EQ(linesOf(source), sourceBefore);
    EXPECT_EQ(target->status(),
              isAssigned ? VrexGeometryStatus::Underdefined : VrexGeometryStatus::Welldefined);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const bool mayBeWritten = objects[i] == target || points.contains(objects[i].get());
        if (!isAssigned || !mayBeWritten) {
            EXPECT_EQ(after[i + 1], before[i + 1]);
        }
    }
    if (const auto pose = nsPoses::findPose(*source); pose.has_value()) {
        nsPoses::expectPose(*target, *pose);
    }
}

TEST(VrexAssigner3DRandom, WritesTheTargetAndItsControlPointsAlone) {
    RandomSystems systems;
    int assigned = 0;
    auto sources = systems.next().geometries();
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto targets = systems.next().geometries();
        for (const Geometry& source : sources) {
            for (const Geometry& target : targets) {
                if (target->type() == source->type() && canBeAssigned(source->type())) {
                    expectAssigned(source, target);
                    ++assigned;
                }
            }
        }
        sources = targets;
    }
    EXPECT_GT(assigned, 1'000);
}

TEST(VrexAssigner3DRandom, AssigningToItselfChangesNoMoreThanTheLastDigits) {
    RandomSystems systems;
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto geometries = systems.next().geometries();
        for (const Geometry& geometry : geometries) {
            if (geometry->type() == VrexGeometry3DType::EVAL_SURFACE) {
                continue;
            }
            SCOPED_TRACE(getEnumeratorText(geometry->type()));
            const Lines before = linesOf(geometry);
            const auto pose = nsPoses::findPose(*geometry);
            assign(*geometry, *geometry);
            if (isStoredAsGiven(geometry->type())) {
                EXPECT_EQ(linesOf(geometry), before);
            } else {
                nsPoses::expectPose(*geometry, pose.value());
            }
        }
    }
}

} // namespace
