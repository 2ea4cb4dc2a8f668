#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "solver/EntityReader.h"
#include "solver/FreeForms.h"
#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

namespace {

using Fixation = VrexFixation3DType;
using Entity = std::shared_ptr<VrexGeometry3D>;
constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
constexpr double TOLERANCE = 1e-9;

constexpr Fixation PARTIAL[] = {Fixation::Direction3D,       Fixation::Location3D,    Fixation::Radius3D,
                                Fixation::MajorRadius3D,     Fixation::MinorRadius3D, Fixation::Aperture3D,
                                Fixation::EllipseDirection3D};

/// Each partial fixation with each simple entity that has what it holds.
template <class Check>
void forEachPartial(const Check& check) {
    RandomShapes random;
    for (const Fixation type : PARTIAL) {
        for (const auto kind : nsRandomEntities::KINDS) {
            if (VrexFixation3D::canCreate(kind, type)) {
                SCOPED_TRACE(std::string(nsEnum::toText(type)) + " of " + getEnumeratorText(kind));
                const Entity entity = nsRandomEntities::make(kind, random);
                check(entity, VrexFixation3D::create(entity, type), random);
            }
        }
    }
}

TEST(VrexFixationResiduals, DerivativesMatchCentralDifferencesAwayFromTheStart) {
    forEachPartial([](const Entity& entity, const auto& fixation, RandomShapes& random) {
        SolverProbe probe({entity}, {fixation});
        const auto next = [&random](Eigen::Index) { return random.number(-0.3, 0.3); };
        probe.system().move(Eigen::VectorXd::NullaryExpr(probe.system().unknownCount(), next));
        probe.expectDerivativesMatch();
    });
}

/// What the fixation holds of the entity, as numbers.
std::vector<double> heldNumbers(const Entity& entity, Fixation type) {
    const EntityReader reader(entity);
    const auto listed = [](const VrexVector3DT<double>& v) { return std::vector{v.x(), v.y(), v.z()}; };
    switch (type) {
    case Fixation::Direction3D:
        return listed(reader.direction);
    case Fixation::EllipseDirection3D:
        return listed(std::dynamic_pointer_cast<VrexEllipse3D>(entity)->getDirection());
    case Fixation::Location3D:
        return listed(reader.center);
    case Fixation::MinorRadius3D:
        return {reader.sizes.at(1)};
    default:
        return {reader.sizes.at(0)};
    }
}

/// A line and a plane are the same ones wherever along themselves their origins are.
bool hasPlaceOfItsOwn(const Entity& entity) {
    return entity->type() != VrexGeometry3DType::LINE && entity->type() != VrexGeometry3DType::PLANE &&
           entity->type() != VrexGeometry3DType::CYLINDER;
}

/// Along itself a line has no place to hold, inside itself a plane has none.
std::size_t heldDegrees(const VrexFixation3D& fixation) {
    const auto type = fixation.geometry(1)->type();
    if (fixation.getFixationType() != Fixation::Location3D) {
        return static_cast<std::size_t>(fixation.doc());
    }
    return type == VrexGeometry3DType::PLANE                                          ? 1
           : type == VrexGeometry3DType::LINE || type == VrexGeometry3DType::CYLINDER ? 2
                                                                                      : 3;
}

TEST(VrexFixationResiduals, HoldWhatTheySayWhileTheRestMoves) {
    forEachPartial([](const Entity& entity, const auto& fixation, RandomShapes& random) {
        const Fixation type = fixation->getFixationType();
        const auto before = heldNumbers(entity, type);
        EXPECT_EQ(solveOne({entity}, {fixation}).freedom,
                  static_cast<std::size_t>(entity->dof()) - heldDegrees(*fixation));
        const auto point = nsRandomEntities::make(VrexGeometry3DType::POINT, random);
        const auto report =
            solveOne({entity, point}, {fixation, VrexDistance3D::create(entity, point, 3.0, WHOLE, WHOLE)});
        ASSERT_TRUE(report.isConverged) << reasonOf(report);
        if (type == Fixation::Location3D && !hasPlaceOfItsOwn(entity)) {
            return;
        }
        const auto after = heldNumbers(entity, type);
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_NEAR(after[i], before[i], TOLERANCE);
        }
    });
}

TEST(VrexFixationResiduals, CompleteOnesLeaveNothingOfAnyKind) {
    RandomShapes random;
    std::vector<nsFreeForms::Built> all;
    for (const auto kind : nsRandomEntities::KINDS) {
        all.push_back({{}, nsRandomEntities::make(kind, random)});
    }
    for (const auto& [name, make] : nsFreeForms::MAKERS) {
        all.push_back(make());
    }
    for (const auto& built : all) {
        SCOPED_TRACE(getEnumeratorText(built.entity->type()));
        const auto report =
            solveOne(nsFreeForms::allOf(built), {VrexFixation3D::create(built.entity, Fixation::Complete3D)});
        EXPECT_TRUE(report.isConverged) << reasonOf(report);
        EXPECT_EQ(report.freedom, 0U);
    }
}

} // namespace
