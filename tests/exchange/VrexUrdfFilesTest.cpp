#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexMate3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "exchange/FrameProducts.h"
#include "exchange/ImportedRobot.h"
#include "support/JsonDifference.h"
#include "support/SharedFolder.h"
#include "tolvbase/LumoJson.h"

namespace {

using Vector = VrexVector3DT<double>;

struct RobotFile {
    const char* name;
    bool isStrict;        ///< Whether it is read to the letter, too.
    std::size_t links;    ///< Those that are declared, and the root where it is not.
    std::size_t shapes;   ///< Members: a box is six.
    std::size_t mobility; ///< Joints less what follows and what loops take; see the comments.
};

constexpr RobotFile FILES[] = {
    // 0 + 1 + 1 + 3 + 1 + 2 + 3 + 1 + 1 of the joints in order, 1 of the one that two others mimic, and twice
    // 6 of the curves that have no counterpart.
    {"all_joint_kinds.urdf", false, 15, 0, 26},
    {"kuka_iiwa_benchmark.urdf", false, 9, 0, 7},
    {"moveit_panda.urdf", true, 12, 0, 8}, // seven hinges, and two fingers that move as one
    {"openrr_sample_dual_arm.urdf", false, 14, 0, 12},
    // Six parallel hinges in one loop, which takes 3; besides the two motors the ball between spins.
    {"parallel_5bar.urdf", false, 8, 0, 3},
    {"r2d2_physics.urdf", true, 16, 0, 8},
    {"urdfplus_four_bar.urdf", true, 4, 18, 1},
    {"urdfplus_rotor_chain.urdf", true, 7, 0, 3}, // six hinges, three couplings
};

std::filesystem::path pathOf(const RobotFile& file) { return sharedFolder() / "data" / file.name; }

class VrexUrdfFiles : public testing::TestWithParam<RobotFile> {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(pathOf(GetParam()))) {
            GTEST_SKIP() << "no robot files on this machine";
        }
    }
    static ImportedRobot lenient() {
        const auto result = VrexUrdfReader({false, {}}).read(pathOf(GetParam()));
        EXPECT_TRUE(result.system.has_value());
        return ImportedRobot(result.system.value());
    }
};

TEST_P(VrexUrdfFiles, AreReadStrictlyWhereTheyKeepTheFormat) {
    EXPECT_EQ(VrexUrdfReader().read(pathOf(GetParam())).system.has_value(), GetParam().isStrict);
}

TEST_P(VrexUrdfFiles, EachLinkStandsWhereTheProductOfFramesSays) {
    const ImportedRobot robot = lenient();
    const FrameProducts products(pathOf(GetParam()));
    std::size_t links = 0;
    for (const auto& set : ImportedRobot::all<VrexRigidSet3D>(robot.system.geometries(), "")) {
        const auto pose = products.poseOf(set->label());
        const Vector columns[] = {VrexQuaternionT<double>::rotate(Vector::OX(), set->getRotation(), false),
                                  VrexQuaternionT<double>::rotate(Vector::OY(), set->getRotation(), false),
                                  VrexQuaternionT<double>::rotate(Vector::OZ(), set->getRotation(), false),
                                  set->getOrigin()};
        if (set->label() == "universal_joint") {
            continue; // the cross between its two axes, which is no link
        }
        ++links;
        for (int i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 4; ++j) {
                EXPECT_NEAR(columns[j][i], static_cast<double>(pose[static_cast<std::size_t>(i)][j]), 1e-12)
                    << set->label();
            }
        }
    }
    EXPECT_EQ(links, GetParam().links);
}

LumoJson documentOf(const VrexImmutableSystem3D& system) {
    LumoJson document;
    serialize(system, document, {});
    return document;
}

TEST_P(VrexUrdfFiles, TheDocumentOfARobotIsReadAndWrittenAgain) {
    const LumoJson document = documentOf(lenient().system);
    VrexImmutableSystem3D system;
    deserialize(document, system, {});
    // Rotations are stored otherwise than written, which costs them a few units of the last place.
    EXPECT_EQ(JsonDifference(4e-15).find(document, documentOf(system)), "");
}

/// Takes the joints off their limits, where one counts for less: those are moved to the middle that do not
/// stand inside.
void poseInsideLimits(const ImportedRobot& robot) {
    std::vector<VrexMateDimension3D*> moved;
    for (const auto& mate : ImportedRobot::all<VrexMate3D>(robot.system.constraints(), "")) {
        for (std::uint64_t i = 0; i < mate->getDimensionSize(); ++i) {
            const auto& [lower, upper] = mate->getDimension(i).limits;
            if (lower.has_value() && upper.has_value() && (*lower > -0.5 || *upper < 0.5)) {
                moved.push_back(&mate->getDimension(i));
                moved.back()->value = 0.5 * (*lower + *upper);
                moved.back()->setFixed(true);
            }
        }
    }
    const auto report = robot.solve();
    EXPECT_TRUE(report.isConverged()) << troublesOf(report);
    for (VrexMateDimension3D* const dimension : moved) {
        dimension->setFixed(false);
    }
}

TEST_P(VrexUrdfFiles, AreSolvedFromPerturbedStartsWithTheirMobility) {
    std::mt19937 random(20);
    for (int start = 0; start < 3; ++start) {
        const ImportedRobot robot = lenient();
        robot.perturb(random, 0.002);
        poseInsideLimits(robot);
        robot.perturb(random, 0.002);
        const auto report = robot.solve();
        EXPECT_TRUE(report.isConverged()) << troublesOf(report);
        EXPECT_EQ(mobilityOf(report), GetParam().mobility);
    }
}

INSTANTIATE_TEST_SUITE_P(Shared, VrexUrdfFiles, testing::ValuesIn(FILES), [](const auto& each) {
    const std::string name = each.param.name;
    return name.substr(0, name.find('.'));
});

} // namespace
