#include "data/serialization/VrexOutputStream.h"

#include <array>
#include <limits>

#include <gtest/gtest.h>

#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"

namespace {

constexpr std::array<unsigned char, 4> DATA{1, 2, 3, 4};

TEST(VrexOutputLength, CountsAndStaysAtZero) {
    VrexOutputLength output;
    EXPECT_EQ(output.write(DATA.data(), 3), 3U);
    EXPECT_EQ(output.write(DATA.data(), 4), 4U);
    EXPECT_EQ(output.length(), 7U);
    EXPECT_EQ(output.position(), 0U);
    EXPECT_EQ(output.seek(5), 0U);
    EXPECT_EQ(output.seek(1), 0U);
    EXPECT_EQ(output.length(), 7U);
}

TEST(VrexOutputLength, RefusesWhatTheCountCannotHold) {
    VrexOutputLength output;
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    EXPECT_EQ(output.write(nullptr, most - 1), most - 1);
    EXPECT_EQ(output.write(nullptr, 2), 0U);
    EXPECT_EQ(output.length(), most - 1);
    EXPECT_EQ(output.write(nullptr, 1), 1U);
    EXPECT_EQ(output.length(), most);
}

TEST(VrexOutputMemory, WritesUpToItsCapacityAndRefusesMore) {
    std::array<unsigned char, 6> buffer{};
    VrexOutputMemory output(buffer.data(), 5);
    EXPECT_EQ(output.write(DATA.data(), 4), 4U);
    EXPECT_EQ(output.write(DATA.data(), 2), 0U);
    EXPECT_EQ(output.position(), 4U);
    EXPECT_EQ(output.write(DATA.data(), 1), 1U);
    EXPECT_EQ(output.write(DATA.data(), 1), 0U);
    EXPECT_EQ(output.write(DATA.data(), std::numeric_limits<std::uint32_t>::max()), 0U);
    EXPECT_EQ(output.length(), 5U);
    EXPECT_EQ(buffer, (std::array<unsigned char, 6>{1, 2, 3, 4, 1, 0}));
}

TEST(VrexOutputMemory, SeekTellsTheFormerPositionAndStopsAtTheEnd) {
    std::array<unsigned char, 5> buffer{};
    VrexOutputMemory output(buffer.data(), 5);
    EXPECT_EQ(output.seek(3), 0U);
    EXPECT_EQ(output.seek(99), 3U);
    EXPECT_EQ(output.position(), 5U);
    EXPECT_EQ(output.seek(0), 5U);
}

TEST(VrexOutputMemory, APatchRaisesTheLengthAndAGapDoesNot) {
    std::array<unsigned char, 8> buffer{};
    VrexOutputMemory output(buffer.data(), 8);
    output.seek(4);
    output.write(DATA.data(), 4);
    EXPECT_EQ(output.length(), 4U);
    output.seek(0);
    output.write(DATA.data(), 2);
    output.seek(0);
    output.write(DATA.data(), 2);
    EXPECT_EQ(output.length(), 8U);
    EXPECT_EQ(output.position(), 2U);
}

TEST(VrexOutputMemory, WithoutABufferThereIsNoRoom) {
    VrexOutputMemory output(nullptr, 8);
    EXPECT_EQ(output.write(DATA.data(), 1), 0U);
    EXPECT_EQ(output.length(), 0U);
}

} // namespace
