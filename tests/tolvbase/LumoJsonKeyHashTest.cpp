#include "tolvbase/LumoJsonKeyHash.h"

#include <string>

#include <gtest/gtest.h>

namespace {

/// The vectors that the authors of SipHash-2-4 published: the bytes 0, 1, 2... under the key 00 01 ... 0F.
struct VectorRow {
    std::size_t length;
    std::uint64_t hash;
};

const VectorRow VECTOR_ROWS[] = {
    {0, 0x726fdb47dd0e0e31ULL},
    {1, 0x74f839c593dc67fdULL},
    {8, 0x93f5f5799a932462ULL},
    {15, 0xa129ca6149be45e5ULL},
};

std::string risingBytes(std::size_t length) {
    std::string bytes;
    while (bytes.size() < length) {
        bytes += static_cast<char>(bytes.size());
    }
    return bytes;
}

} // namespace

TEST(LumoJsonKeyHash, MeetsThePublishedVectors) {
    const LumoJsonKeyHash hash({0x0706050403020100ULL, 0x0f0e0d0c0b0a0908ULL});
    for (const VectorRow& row : VECTOR_ROWS) {
        EXPECT_EQ(hash(risingBytes(row.length)), row.hash) << row.length;
    }
    EXPECT_EQ(hash({}), VECTOR_ROWS[0].hash);
}

TEST(LumoJsonKeyHash, SecretsOrderKeysDifferently) {
    EXPECT_NE(LumoJsonKeyHash({0, 0})("key"), LumoJsonKeyHash({1, 0})("key"));
    EXPECT_NE(LumoJsonKeyHash({0, 0})("key"), LumoJsonKeyHash({0, 1})("key"));
}

TEST(LumoJsonKeyHash, ProcessDrawsItsSecretOnce) {
    EXPECT_EQ(LumoJsonKeyHash::ofProcess()("key"), LumoJsonKeyHash::ofProcess()("key"));
    EXPECT_NE(LumoJsonKeyHash::ofProcess()("key"), LumoJsonKeyHash({0, 0})("key"));
}
