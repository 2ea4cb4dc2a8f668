#include "solver/residuals/VrexSolverResiduals.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "solver/SolverRuns.h"

namespace {

using Constraint = std::shared_ptr<VrexBaseConstraint>;

/// Constraints that lack what they bind.
std::vector<Constraint> makeEmpty() {
    using enum VrexGeometryComponentType;
    constexpr auto radius = VrexRadius3DType::Radius3D;
    const std::vector<std::shared_ptr<VrexMate3D>> mates{nullptr, nullptr};
    return {
        VrexAngle3D::create(nullptr, nullptr, 1.0),
        VrexPlanarAngle3D::create(nullptr, nullptr, nullptr, 1.0),
        VrexParallelism3D::create(nullptr, nullptr),
        VrexPerpendicularity3D::create(nullptr, nullptr),
        VrexConcentricity3D::create(nullptr, nullptr),
        VrexIncidenceToCenter3D::create(nullptr, nullptr),
        VrexMidPoint3D::create(nullptr, nullptr, nullptr),
        VrexSymmetry3D::create(nullptr, nullptr, nullptr),
        VrexRadius3D::create(nullptr, 1.0, radius),
        VrexEqualRadius3D::create(nullptr, radius, nullptr, radius, UNKNOWN, UNKNOWN),
        VrexHalfAngle3D::create(nullptr, 1.0),
        VrexPatternValue3D::create(nullptr, 1.0),
        VrexEqualDimensionValue3D::create(nullptr, 1.0),
        VrexVariableFixation3D::create(nullptr),
        VrexEqualDimension3D::create({nullptr}, nullptr),
        VrexMateRelation3D::create(mates, {0, 0}, 1.0),
        VrexMateDimensionInterval3D::create(nullptr, {}, 0,
                                            VrexMateDimensionInterval3DType::AngleDimension3D),
    };
}

TEST(VrexSolverResiduals, ConstraintsThatLackTheirGeometriesAreNamed) {
    for (const Constraint& constraint : makeEmpty()) {
        const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
        const auto report = solveOne({line}, {constraint});
        const auto& geometries = constraint->getGeometries();
        if (std::find(geometries.begin(), geometries.end(), nullptr) != geometries.end()) {
            std::string refusal = constraint->getNamePrefix();
            refusal.append(std::to_string(constraint->getID())).append(" binds an entity that is missing.");
            EXPECT_EQ(report.refusal, refusal);
        } else {
            ASSERT_EQ(report.remarks.size(), 1U) << report.refusal;
            EXPECT_EQ(report.remarks[0].id, constraint->getID());
            EXPECT_NE(report.remarks[0].reason, "");
            EXPECT_NE(report.remarks[0].reason, "This kind of constraint is not supported.");
        }
        EXPECT_EQ(constraint->status(), VrexConstraintStatus::NotSolved);
        EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
    }
}

TEST(VrexSolverResiduals, KindsThatAreNotSupportedSaySo) {
    const auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, 1.0);
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const auto normal = VrexSurfaceNormal3D::create(cylinder, line);
    const auto report = solveOne({cylinder, line}, {normal});
    ASSERT_EQ(report.remarks.size(), 1U);
    EXPECT_EQ(report.remarks[0].kind, "SurfaceNormal3D");
    EXPECT_EQ(report.remarks[0].reason, "This kind of constraint is not supported.");
    EXPECT_EQ(normal->status(), VrexConstraintStatus::NotSolved);
}

/// These constraints let themselves be created over evaluated shapes.
TEST(VrexSolverResiduals, DirectionsOfEvaluatedShapesAreNotSupported) {
    const auto line = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const auto curve =
        VrexEvaluatedCurve3D::create({1.0, 2.0, 3.0}, VrexQuaternionT<double>::ONE(), {}, "t", "t * t", "0");
    ASSERT_TRUE(VrexAngle3D::canCreate(line->type(), curve->type()));
    ASSERT_TRUE(VrexParallelism3D::canCreate(line->type(), curve->type()));
    ASSERT_TRUE(VrexPerpendicularity3D::canCreate(line->type(), curve->type()));
    const std::vector<Constraint> constraints{VrexAngle3D::create(line, curve, 1.0),
                                              VrexParallelism3D::create(line, curve),
                                              VrexPerpendicularity3D::create(line, curve)};
    for (const Constraint& constraint : constraints) {
        const auto report = solveOne({line, curve}, {constraint});
        EXPECT_EQ(reasonOf(report), "What this constraint compares has no direction.");
        EXPECT_EQ(constraint->status(), VrexConstraintStatus::NotSolved);
    }
}

} // namespace
