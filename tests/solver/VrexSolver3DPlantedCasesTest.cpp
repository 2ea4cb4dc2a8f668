#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "solver/PlantedContradictions.h"
#include "solver/PlantedFreedoms.h"
#include "solver/PlantedRedundancies.h"
#include "solver/PlantedTheorems.h"
#include "solver/SolverRuns.h"

namespace {

using Group = PlantedSystem::Group;

std::vector<PlantedCase> allCases() {
    std::vector<PlantedCase> result;
    const auto append = [&result](const auto& cases) {
        result.insert(result.end(), std::begin(cases), std::end(cases));
    };
    append(nsPlantedRedundancies::CASES);
    append(nsPlantedTheorems::CASES);
    append(nsPlantedContradictions::CASES);
    append(nsPlantedFreedoms::CASES);
    return result;
}

PlantedSystem planted(const PlantedCase& row) {
    PlantedSystem system;
    row.plant(system);
    return system;
}

/// The system without the constraint of this identifier.
PlantedSystem plantedWithout(const PlantedCase& row, std::uint64_t id) {
    PlantedSystem system = planted(row);
    std::erase_if(system.constraints, [id](const auto& constraint) { return constraint->getID() == id; });
    return system;
}

std::set<Group> groupsOf(const VrexSolverComponentReport& report) {
    std::set<Group> result;
    for (Group group : report.overConstrained) {
        std::sort(group.begin(), group.end());
        result.insert(group);
    }
    return result;
}

/// Whether a group of the report lies within this one.
bool hasGroupWithin(const VrexSolverComponentReport& report, const Group& group) {
    const std::set<Group> groups = groupsOf(report);
    return std::any_of(groups.begin(), groups.end(), [&group](const Group& found) {
        return std::includes(group.begin(), group.end(), found.begin(), found.end());
    });
}

TEST(VrexSolver3DPlantedCases, AreFiftyAndMore) { EXPECT_GE(allCases().size(), 50U); }

TEST(VrexSolver3DPlantedCases, AreNamedByIdentifier) {
    for (const PlantedCase& row : allCases()) {
        SCOPED_TRACE(row.name);
        const PlantedSystem system = planted(row);
        const auto report = solve(system);
        EXPECT_EQ(reasonOf(report), "");
        EXPECT_EQ(report.isConverged, system.isSolvable);
        EXPECT_EQ(report.freedom, system.freedom);
        EXPECT_EQ(groupsOf(report), system.groups);
    }
}

TEST(VrexSolver3DPlantedCases, AreMarkedAtTheirConstraintsAndGeometries) {
    for (const PlantedCase& row : allCases()) {
        SCOPED_TRACE(row.name);
        const PlantedSystem system = planted(row);
        solve(system);
        std::set<std::uint64_t> members;
        for (const Group& group : system.groups) {
            members.insert(group.begin(), group.end());
        }
        for (const auto& constraint : system.constraints) {
            EXPECT_EQ(constraint->status() == VrexConstraintStatus::Overdefined,
                      members.contains(constraint->getID()));
        }
        for (const auto& geometry : system.geometries) {
            EXPECT_EQ(geometry->status() == VrexGeometryStatus::NotSolved, !system.isSolvable);
        }
    }
}

TEST(VrexSolver3DPlantedCases, AreResolvedByLeavingOutAnyMember) {
    for (const PlantedCase& row : allCases()) {
        SCOPED_TRACE(row.name);
        const std::set<Group> groups = planted(row).groups;
        for (const Group& group : groups) {
            for (const std::uint64_t member : group) {
                const auto report = solve(plantedWithout(row, member));
                EXPECT_FALSE(hasGroupWithin(report, group)) << "without " << member;
                EXPECT_TRUE(report.isConverged || groups.size() > 1) << "without " << member;
                EXPECT_EQ(report.overConstrained.size(), groups.size() - 1) << "without " << member;
            }
        }
    }
}

} // namespace
