#include "data/geometry/3d/VrexGeometry3DType.h"

#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

TEST(VrexGeometry3DType, EveryEnumeratorHasItsOwnSpelling) {
    const std::pair<int, const char*> rows[] = {
        {-1, "UNKNOWN"},      {0, "POINT"},          {1, "LINE"},
        {2, "PLANE"},         {3, "RIGID_SET"},      {4, "NURBS_SURFACE"},
        {5, "CYLINDER"},      {6, "SPHERE"},         {7, "CIRCLE"},
        {8, "SPLINE"},        {9, "CONE"},           {10, "ELLIPSE"},
        {11, "TORUS"},        {12, "CONNECTOR"},     {13, "SPIN_SURFACE"},
        {14, "EVAL_SURFACE"}, {15, "EVAL_CURVE"},    {16, "SWEEP_SURFACE"},
        {17, "PATTERN"},      {18, "ARRAY_PATTERN"}, {19, "EQUAL_DIMENSION_ELEMENT"},
        {20, "TYPES_COUNT"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_STREQ(getEnumeratorText(static_cast<VrexGeometry3DType>(value)), text);
    }
}

TEST(VrexGeometry3DType, SpellingOutsideTheListFails) {
    for (const int value : {-2, 21, 2147483647}) {
        try {
            getEnumeratorText(static_cast<VrexGeometry3DType>(value));
            FAIL() << value;
        } catch (const std::out_of_range& error) {
            EXPECT_EQ(error.what(),
                      "Failed to convert enum VrexGeometry3DType(" + std::to_string(value) + ") to string.");
        }
    }
}

} // namespace
