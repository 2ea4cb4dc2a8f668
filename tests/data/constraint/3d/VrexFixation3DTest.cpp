#include "data/constraint/3d/VrexFixation3D.h"

#include <map>
#include <set>
#include <stdexcept>

#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using enum VrexFixation3DType;
using Fixations = std::set<VrexFixation3DType>;
using nsTypeChecks::FreedomByType;

constexpr int LOWEST_FIXATION = -2;
constexpr int HIGHEST_FIXATION = 33;

/// What of each type may be held, by the number of the type.
std::map<int, Fixations> admittedFixations() {
    const std::pair<const char*, Fixations> rows[] = {
        {"pt", {Complete3D, Location3D}},
        {"ln pl rs evac_3d", {Complete3D, Direction3D, Location3D}},
        {"cy ci", {Complete3D, Direction3D, Location3D, Radius3D}},
        {"s", {Complete3D, Location3D, Radius3D}},
        {"co", {Complete3D, Direction3D, Location3D, Aperture3D}},
        {"el", {Complete3D, Direction3D, Location3D, MajorRadius3D, MinorRadius3D, EllipseDirection3D}},
        {"to", {Complete3D, Direction3D, Location3D, MajorRadius3D, MinorRadius3D}},
        {"ns sp cnt spin eval_surf_3d sweep pat a_pat eq_d_ele", {Complete3D}},
    };
    std::map<int, Fixations> byType;
    for (const auto& [types, fixations] : rows) {
        for (const int type : nsTypeChecks::typesOf(types)) {
            byType[type] = fixations;
        }
    }
    return byType;
}

TEST(VrexFixation3D, CanCreateOverAllTypesAndFixations) {
    auto admitted = admittedFixations();
    ASSERT_EQ(admitted.size(), 20U);
    for (int type = nsTypeChecks::LOWEST; type <= nsTypeChecks::HIGHEST; ++type) {
        for (int fixation = LOWEST_FIXATION; fixation <= HIGHEST_FIXATION; ++fixation) {
            EXPECT_EQ(VrexFixation3D::canCreate(VrexGeometry3DType{type}, VrexFixation3DType{fixation}),
                      admitted[type].contains(VrexFixation3DType{fixation}))
                << "type " << type << ", fixation " << fixation;
        }
    }
}

TEST(VrexFixation3D, ApertureOfAConeCanBeHeld) {
    EXPECT_TRUE(VrexFixation3D::canCreate(VrexGeometry3DType::CONE, Aperture3D));
    EXPECT_FALSE(VrexFixation3D::canCreate(VrexGeometry3DType::CONE, Radius3D));
}

TEST(VrexFixation3D, DegreeOverAllTypesAndFixations) {
    const std::map<VrexFixation3DType, int> degrees{
        {Direction3D, 2},   {EllipseDirection3D, 2}, {Location3D, 3}, {Radius3D, 1},
        {MajorRadius3D, 1}, {MinorRadius3D, 1},      {Aperture3D, 1}};
    for (int type = nsTypeChecks::LOWEST; type <= nsTypeChecks::HIGHEST; ++type) {
        const auto geometry = FreedomByType::create(type);
        EXPECT_EQ(VrexFixation3D::create(geometry, Complete3D)->doc(), 100 + type);
        for (const auto& [fixation, degree] : degrees) {
            EXPECT_EQ(VrexFixation3D::create(geometry, fixation)->doc(), degree) << type;
        }
    }
}

TEST(VrexFixation3D, DegreeOfACompleteFixationIsTheFreedomOfItsGeometry) {
    EXPECT_EQ(VrexFixation3D::create(makeSample<VrexPoint3D>(), Complete3D)->doc(), 3);
    EXPECT_EQ(VrexFixation3D::create(makeSample<VrexLine3D>(), Complete3D)->doc(), 4);
    EXPECT_EQ(VrexFixation3D::create(nullptr, Complete3D)->doc(), 0);
    EXPECT_EQ(VrexFixation3D::create(nullptr, Direction3D)->doc(), 2);
}

TEST(VrexFixation3D, DegreeOfAnUnknownFixationThrows) {
    for (const int fixation : {-1, 8, 9, -2}) {
        const auto constraint =
            VrexFixation3D::create(makeSample<VrexPoint3D>(), VrexFixation3DType{fixation});
        const LogCapture log;
        try {
            static_cast<void>(constraint->doc());
            ADD_FAILURE() << fixation;
        } catch (const std::runtime_error& failure) {
            EXPECT_STREQ(failure.what(), "not implemented");
        }
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_EQ(log.lines().front().text, "VrexFixation3D::doc(): not implemented");
        EXPECT_EQ(log.lines().front().file, "VrexFixation3D.cpp");
    }
}

TEST(VrexFixation3D, CompletenessFollowsTheFixationOfTheMoment) {
    const auto fixation = VrexFixation3D::create(makeSample<VrexLine3D>(), Location3D);
    EXPECT_FALSE(fixation->isCompleteFixed());
    fixation->setFixationType(Complete3D);
    EXPECT_TRUE(fixation->isCompleteFixed());
    EXPECT_EQ(fixation->getFixationType(), Complete3D);
    EXPECT_EQ(fixation->doc(), 4);
    fixation->setFixationType(Direction3D);
    EXPECT_FALSE(fixation->isCompleteFixed());
}

TEST(VrexFixation3D, FixationTypeTravelsWithAnUpdate) {
    const auto fixation = VrexFixation3D::create(makeSample<VrexCone3D>(), Complete3D);
    fixation->updateFrom(makeSample<VrexFixation3D>());
    EXPECT_EQ(fixation->getFixationType(), Aperture3D);
    EXPECT_FALSE(fixation->isCompleteFixed());
}

} // namespace
