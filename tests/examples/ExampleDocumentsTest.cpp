#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "exchange/ImportedRobot.h"
#include "tolvbase/LumoJson.h"

namespace {

using Vector = VrexVector3DT<double>;
using Labels = std::set<std::string>;

constexpr double TOLERANCE = 1e-8; ///< Lengths near 5 after a solve to 1e-10.

ImportedRobot load(const std::string& name) {
    std::ifstream stream(std::filesystem::path(VREX_SOURCE_DIR) / "examples/data" / (name + ".json"));
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    VrexImmutableSystem3D system;
    deserialize(LumoJson::parse(text), system, {});
    return ImportedRobot(system);
}

/// Those of the groups that the report names, by label.
std::vector<Labels> culpritsOf(const ImportedRobot& document, const VrexSolverReport& report) {
    std::vector<Labels> culprits;
    for (const auto& component : report.components) {
        for (const auto& group : component.overConstrained) {
            Labels& labels = culprits.emplace_back();
            for (const auto& constraint : document.system.constraints()) {
                if (std::ranges::find(group, constraint->getID()) != group.end()) {
                    labels.insert(constraint->label());
                }
            }
        }
    }
    return culprits;
}

double distanceOf(const Vector& point, const VrexLine3D& line) {
    return (point - line.getOrigin()).crossProduct(line.getDirection()).magnitude();
}

TEST(ExampleDocuments, ThePartSketchTouchesWhereItIsTo) {
    std::mt19937 random(5);
    for (int start = 0; start < 20; ++start) {
        const ImportedRobot document = load("part_sketch");
        document.perturb(random, 0.1);
        const auto report = document.solve();
        EXPECT_TRUE(report.isConverged()) << troublesOf(report);
        EXPECT_EQ(mobilityOf(report), 1U);
        EXPECT_THAT(culpritsOf(document, report), testing::IsEmpty());
        const auto roller = document.geometry<VrexSphere3D>("roller");
        const auto ball = document.geometry<VrexSphere3D>("ball");
        const auto belt = document.geometry<VrexLine3D>("belt");
        EXPECT_NEAR((roller->getCenter() - Vector(5.0, 0.0, 0.0)).magnitude(), 0.0, TOLERANCE);
        EXPECT_NEAR(belt->getOrigin().z(), 0.0, TOLERANCE);
        EXPECT_NEAR(belt->getDirection().z(), 0.0, TOLERANCE);
        EXPECT_NEAR(distanceOf({0.0, 0.0, 0.0}, *belt), 2.0, TOLERANCE);
        EXPECT_NEAR(distanceOf({5.0, 0.0, 0.0}, *belt), 1.0, TOLERANCE);
        EXPECT_NEAR(ball->getCenter().z(), 0.5, TOLERANCE);
        EXPECT_NEAR(ball->getRadius(), 0.5, TOLERANCE);
        EXPECT_NEAR(ball->getCenter().distanceTo(roller->getCenter()), 1.5, TOLERANCE);
    }
}

TEST(ExampleDocuments, TheOverConstrainedOneNamesWhatSaysTheSame) {
    std::mt19937 random(6);
    for (int start = 0; start < 10; ++start) {
        const ImportedRobot document = load("over_constrained");
        document.perturb(random, 0.05);
        const auto report = document.solve();
        EXPECT_TRUE(report.isConverged()) << troublesOf(report);
        const auto place = [&document](const char* label) {
            return document.geometry<VrexPoint3D>(label)->getPosition();
        };
        EXPECT_NEAR(place("B").distanceTo(place("C")), 5.0, TOLERANCE);
        EXPECT_THAT(culpritsOf(document, report),
                    testing::ElementsAre(
                        Labels{"AB", "AC", "BC", "A on AB", "B on AB", "A on AC", "C on AC", "right angle"}));
        // The triangle as a body, and the loose point on a sphere: the lines keep nothing to themselves.
        EXPECT_EQ(mobilityOf(report), 6U + 2U);
    }
}

TEST(ExampleDocuments, TheInconsistentOneNamesWhatContradictsAndStays) {
    std::mt19937 random(7);
    for (int start = 0; start < 10; ++start) {
        const ImportedRobot document = load("inconsistent");
        document.perturb(random, 0.05);
        const Vector before = document.geometry<VrexPoint3D>("B")->getPosition();
        const auto report = document.solve();
        EXPECT_FALSE(report.isConverged());
        EXPECT_THAT(culpritsOf(document, report), testing::ElementsAre(Labels{"AB", "AC", "BC"}));
        EXPECT_EQ(document.geometry<VrexPoint3D>("B")->getPosition().distanceTo(before), 0.0);
    }
}

} // namespace
