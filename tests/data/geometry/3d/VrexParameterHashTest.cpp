#include "data/geometry/3d/VrexParameterHash.h"

#include <utility>

#include <gtest/gtest.h>

namespace {

using Pair = VrexVector2DT<double>;
constexpr VrexParameterHash HASH;

// Expected values: FNV-1a over the bytes of the doubles, lowest first, by a program of its own.

TEST(VrexParameterHash, NumberIsHashedByItsBytes) {
    EXPECT_EQ(HASH(0.0), 0xA8C7F832281A39C5U);
    EXPECT_EQ(HASH(1.0), 0xAAB1693229BA1DB8U);
    EXPECT_EQ(HASH(-2.5), 0xA8B9A032280D66E1U);
    EXPECT_EQ(HASH(0.1), 0x4FA09CC0EEC310C4U);
    EXPECT_EQ(HASH(1e300), 0x8B8F4DE62CB5842BU);
}

TEST(VrexParameterHash, PairCombinesBothInOrder) {
    EXPECT_EQ(HASH(Pair(0.0, 0.0)), 0xAC3FFAC3CA02A392U);
    EXPECT_EQ(HASH(Pair(1.0, -2.5)), 0xD5712E03B356A536U);
    EXPECT_EQ(HASH(Pair(-2.5, 1.0)), 0xABFE7DC3CCFFE6BCU);
    EXPECT_EQ(HASH(Pair(0.1, 1e300)), 0xC83E39BBE034C52FU);
}

TEST(VrexParameterHash, SignOfZeroIsFolded) {
    EXPECT_EQ(HASH(-0.0), HASH(0.0));
    EXPECT_EQ(HASH(Pair(-0.0, 1.0)), HASH(Pair(0.0, 1.0)));
    EXPECT_EQ(HASH(Pair(1.0, -0.0)), HASH(Pair(1.0, 0.0)));
}

TEST(VrexParameterHash, DoesNotThrowSoThatTablesAskItAnew) {
    static_assert(noexcept(HASH(1.0)));
    static_assert(noexcept(HASH(std::declval<const Pair&>())));
}

} // namespace
