#include "data/geometry/3d/VrexArrayPattern3D.h"

#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Samples.h"

namespace {

using testing::ElementsAre;
using Patterns = std::vector<std::shared_ptr<VrexPattern3D>>;

/// One pattern a letter: "l" linear, "c" circular, "-" none.
Patterns patternsOf(const std::string& letters) {
    Patterns patterns;
    for (const char letter : letters) {
        const auto type = letter == 'c' ? VrexPattern3DType::Circular3D : VrexPattern3DType::Linear3D;
        patterns.push_back(letter == '-' ? nullptr
                                         : VrexPattern3D::create(type, makeSample<VrexLine3D>(), 1.0));
    }
    return patterns;
}

int circularIndexOf(const std::string& letters) {
    return VrexArrayPattern3D::create(patternsOf(letters))->getCircularPatternIdx();
}

TEST(VrexArrayPattern3D, IsAPatternWithoutFreedom) {
    const auto patterns = patternsOf("lc");
    const auto array = VrexArrayPattern3D::create(patterns);
    EXPECT_EQ(array->type(), VrexGeometry3DType::ARRAY_PATTERN);
    EXPECT_EQ(array->dof(), 0);
    EXPECT_TRUE(array->isPattern());
    EXPECT_EQ(VrexArrayPattern3D::PARAMETERS_AMOUNT, 0);
    EXPECT_EQ(std::as_const(*array).getPatterns(), patterns);
    EXPECT_THAT(array->getGeometries(), ElementsAre(patterns[0], patterns[1]));
}

TEST(VrexArrayPattern3D, OneToThreePatternsWithAtMostOneCircularCanBeCombined) {
    for (const char* letters : {"l", "c", "ll", "lc", "cl", "lll", "cll", "lcl", "llc"}) {
        EXPECT_TRUE(VrexArrayPattern3D::canCreate(patternsOf(letters))) << letters;
    }
    for (const char* letters :
         {"", "-", "l-", "-l", "l-l", "c-", "cc", "clc", "lcc", "ccc", "llll", "lllc", "cccc", "----"}) {
        EXPECT_FALSE(VrexArrayPattern3D::canCreate(patternsOf(letters))) << letters;
    }
}

TEST(VrexArrayPattern3D, CreateTakesWhatCannotBeCombined) {
    const auto array = VrexArrayPattern3D::create(patternsOf("cc-ll"));
    EXPECT_EQ(array->getPatterns().size(), 5U);
    EXPECT_EQ(array->getGeometries().size(), 4U);
}

TEST(VrexArrayPattern3D, CircularIndexIsThePlaceOfTheLastCircularPattern) {
    EXPECT_EQ(circularIndexOf("lc"), 1);
    EXPECT_EQ(circularIndexOf("ll"), -1);
    EXPECT_EQ(circularIndexOf(""), -1);
    EXPECT_EQ(circularIndexOf("cl"), 0);
    EXPECT_EQ(circularIndexOf("clc"), 2);
    EXPECT_EQ(circularIndexOf("-c-"), 1);
}

TEST(VrexArrayPattern3D, CircularIndexStaysWhenTheCircularPatternGoes) {
    const auto array = VrexArrayPattern3D::create(patternsOf("llc"));
    array->getPatterns() = patternsOf("l");
    EXPECT_EQ(array->getCircularPatternIdx(), 2) << "until told to look again";
    array->updateCircularPatternIdx();
    EXPECT_EQ(array->getCircularPatternIdx(), 2);
    array->getPatterns() = patternsOf("c");
    array->updateCircularPatternIdx();
    EXPECT_EQ(array->getCircularPatternIdx(), 0);
}

TEST(VrexArrayPattern3D, IsNeverChanged) {
    const auto array = VrexArrayPattern3D::create(patternsOf("lc"));
    array->backup();
    array->getPatterns()[0]->backup();
    array->getPatterns()[0]->setValue(100.0);
    array->getPatterns().pop_back();
    EXPECT_FALSE(array->checkChanged(0.0, 0.0));
}

TEST(VrexArrayPattern3D, UpdateKeepsThePatternsAndTakesTheCircularIndex) {
    const auto patterns = patternsOf("l");
    const auto array = VrexArrayPattern3D::create(patterns);
    array->updateFrom(VrexArrayPattern3D::create(patternsOf("llc")));
    EXPECT_EQ(array->getPatterns(), patterns);
    EXPECT_EQ(array->getCircularPatternIdx(), 2);
}

TEST(VrexArrayPattern3D, CopyAndRestoreCarryPatternsAndCircularIndex) {
    const auto patterns = patternsOf("lc");
    const auto array = VrexArrayPattern3D::create(patterns);
    array->backup();
    array->getPatterns() = patternsOf("c");
    array->updateCircularPatternIdx();
    array->restore();
    EXPECT_EQ(array->getPatterns(), patterns);
    EXPECT_EQ(array->getCircularPatternIdx(), 1);
}

} // namespace
