#include "data/serialization/VrexDecodedObjects.h"

#include <cstdint>
#include <memory>

#include <gtest/gtest.h>

#include "data/geometry/VrexGeometryVariable.h"
#include "support/ProbeConstraint.h"

namespace {

std::shared_ptr<VrexBaseGeometry> geometry() { return VrexGeometryVariable::create(0.0); }

/// Enters geometries, and expects each to be found, and no other.
void expectFound(std::uint32_t most, std::initializer_list<std::uint64_t> ids) {
    VrexDecodedObjects objects(most);
    std::vector<std::shared_ptr<VrexBaseGeometry>> entered;
    for (const std::uint64_t id : ids) {
        entered.push_back(geometry());
        objects.at(id).geometry = entered.back();
    }
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const std::uint64_t id = ids.begin()[i];
        const auto* const slots = objects.find(id);
        ASSERT_NE(slots, nullptr) << id;
        EXPECT_EQ(slots->geometry, entered[i]) << id;
        EXPECT_EQ(slots->constraint, nullptr) << id;
    }
    const auto* const other = objects.find(777'777);
    EXPECT_TRUE(other == nullptr || other->geometry == nullptr);
}

constexpr std::uint64_t HIGHEST = 18446744073709551615ULL;

TEST(VrexDecodedObjects, IdentifiersAreFoundWhereverTheyLie) {
    expectFound(10, {1, 2, 3});
    expectFound(10, {3, 0, 2, 19, 20, 21});
    expectFound(10,
                {5'000'000, 5'000'001, 4'999'991, 4'999'990, 4'999'989, 5'000'009, 5'000'010, 0, HIGHEST});
    expectFound(10, {HIGHEST, 0, HIGHEST - 10, HIGHEST - 11, 1ULL << 63U});
    expectFound(1, {7, 8, 6, 5, 9});
}

TEST(VrexDecodedObjects, AStreamTooShortForAnObjectHasATableAllTheSame) {
    expectFound(0, {1, 0, HIGHEST, 2});
}

TEST(VrexDecodedObjects, AnIdentifierHasASlotForEitherBranch) {
    VrexDecodedObjects objects(4);
    EXPECT_EQ(objects.find(2), nullptr);
    const auto one = geometry();
    const auto constraint = std::make_shared<ProbeConstraint>();
    for (const std::uint64_t id : {std::uint64_t(2), HIGHEST}) {
        objects.at(id).geometry = one;
        objects.at(id).constraint = constraint;
        ASSERT_NE(objects.find(id), nullptr);
        EXPECT_EQ(objects.find(id)->geometry, one);
        EXPECT_EQ(objects.find(id)->constraint, constraint);
    }
}

} // namespace
