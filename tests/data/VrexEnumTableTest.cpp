#include "data/VrexEnumTable.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexDragParameter3DType.h"
#include "data/VrexConstraintSatisfiedStatus.h"
#include "data/VrexConstraintStatus.h"
#include "data/VrexGeometryChangeStatus.h"
#include "data/VrexGeometryStatus.h"
#include "data/VrexSolveMethodStatus.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/constraint/3d/VrexIncidence3DType.h"
#include "data/constraint/3d/VrexMateDimensionInterval3DType.h"
#include "data/constraint/3d/VrexRadius3DType.h"
#include "data/constraint/VrexConstraintAlignment.h"
#include "data/constraint/VrexConstraintOrientation.h"
#include "data/constraint/equation/VrexEquationConditionType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/3d/VrexPattern3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"
#include "support/GermanLocale.h"
#include "support/LogCapture.h"

namespace {

struct Row {
    int value;
    const char* name;
    const char* shortName;
};

template <class Call>
std::string outOfRangeText(Call call) {
    try {
        call();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing thrown";
}

template <class E>
void expectNoText(const std::string& enumName, long long value) {
    const std::string expected =
        "Failed to convert " + enumName + "(" + std::to_string(value) + ") to string.";
    EXPECT_EQ(outOfRangeText([&] { nsEnum::toText(static_cast<E>(value)); }), expected);
    EXPECT_EQ(outOfRangeText([&] { nsEnum::toShortText(static_cast<E>(value)); }), expected);
}

template <class E>
void expectNoValue(const std::string& enumName, const std::string& text) {
    EXPECT_EQ(outOfRangeText([&] { nsEnum::fromText<E>(text); }),
              "Failed to convert the string \"" + text + "\" to " + enumName + ".");
}

template <class E>
void expectTable(const std::string& enumName, const std::vector<Row>& rows) {
    static_assert(sizeof(E) == 4);
    ASSERT_EQ(std::size(VrexEnumTable<E>::ROWS), rows.size());
    for (const Row& row : rows) {
        EXPECT_STREQ(nsEnum::toText(static_cast<E>(row.value)), row.name);
        EXPECT_STREQ(nsEnum::toShortText(static_cast<E>(row.value)), row.shortName);
        EXPECT_EQ(static_cast<int>(nsEnum::fromText<E>(row.name)), row.value);
    }
    expectNoText<E>(enumName, rows.front().value - 1);
    expectNoText<E>(enumName, rows.back().value + 1);
    expectNoText<E>(enumName, 2147483647);
    expectNoText<E>(enumName, -2147483648LL);
    expectNoValue<E>(enumName, "");
    expectNoValue<E>(enumName, std::string(rows.front().name) + " ");
}

TEST(VrexEnumTable, Constraint3DTypeRowsConvertBothWays) {
    expectTable<VrexConstraint3DType>("enum VrexConstraint3DType",
                                      {
                                          {-1, "Unknown", "?"},
                                          {0, "Distance3D", "di"},
                                          {1, "DirectionDistance3D", "dir_di"},
                                          {2, "ParallelDistance3D", "par_di"},
                                          {3, "Incidence3D", "inc"},
                                          {4, "Fixation3D", "fix"},
                                          {5, "Angle3D", "ang"},
                                          {6, "PlanarAngle3D", "plang"},
                                          {7, "Parallelism3D", "par"},
                                          {8, "Perpendicularity3D", "per"},
                                          {9, "Concentricity3D", "con"},
                                          {10, "IncidenceToCenter3D", "cen"},
                                          {11, "Tangency3D", "tan"},
                                          {12, "VariableFixation3D", "var_fix"},
                                          {13, "Symmetry3D", "sym"},
                                          {14, "MidPoint3D", "mid"},
                                          {15, "Radius3D", "rad"},
                                          {16, "MajorRadius3D", "maj_rad"},
                                          {17, "MinorRadius3D", "min_rad"},
                                          {18, "EqualRadius3D", "eq_rad"},
                                          {19, "EqualParameter3D", "eq_param"},
                                          {20, "MateDimensionInterval3D", "mate_dimension_interval"},
                                          {21, "SliderMate3D", "sl_mate"},
                                          {22, "FastenedMate3D", "fs_mate"},
                                          {23, "CylinderMate3D", "cy_mate"},
                                          {24, "RevoluteMate3D", "rv_mate"},
                                          {25, "PlanarMate3D", "pl_mate"},
                                          {26, "PinSlotMate3D", "ps_mate"},
                                          {27, "ParallelMate3D", "par_mate"},
                                          {28, "BallMate3D", "bl_mate"},
                                          {29, "HalfAngle3D", "h_ang"},
                                          {30, "SurfaceNormal3D", "sur_norm"},
                                          {31, "Instance3D", "inst"},
                                          {32, "PatternValue3D", "p_val"},
                                          {33, "CurveLength3D", "curve_len"},
                                          {34, "EqualDirection3D", "eq_dir"},
                                          {35, "EqualFirstDerivative3D", "eq_1_der"},
                                          {36, "EqualSecondDerivative3D", "eq_2_der"},
                                          {37, "EqualCurvature3D", "eq_cur"},
                                          {38, "EqualCurvatureDerivative3D", "eq_cur_der"},
                                          {39, "EqualDimension3D", "eq_dim"},
                                          {40, "EqualDimensionValue3D", "eq_dim_val"},
                                          {41, "MateRelation3D", "mate_rel"},
                                      });
}

TEST(VrexEnumTable, ConstraintAlignmentRowsConvertBothWays) {
    expectTable<VrexConstraintAlignment>("enum VrexConstraintAlignment", {
                                                                             {-1, "Unknown", "?"},
                                                                             {0, "Current", "c"},
                                                                             {1, "Positive", "p"},
                                                                             {2, "Negative", "n"},
                                                                             {3, "Any", "a"},
                                                                         });
}

TEST(VrexEnumTable, ConstraintOrientationRowsConvertBothWays) {
    expectTable<VrexConstraintOrientation>("enum VrexConstraintOrientation", {
                                                                                 {-1, "Unknown", "?"},
                                                                                 {0, "Current", "c"},
                                                                                 {1, "Positive", "p"},
                                                                                 {2, "Negative", "n"},
                                                                                 {3, "Any", "a"},
                                                                             });
}

TEST(VrexEnumTable, ConstraintSatisfiedStatusRowsConvertBothWays) {
    expectTable<VrexConstraintSatisfiedStatus>("enum VrexConstraintSatisfiedStatus",
                                               {
                                                   {-1, "Unknown", ""},
                                                   {0, "Satisfied", ""},
                                                   {1, "NotSatisfied", ""},
                                               });
}

TEST(VrexEnumTable, ConstraintStatusRowsConvertBothWays) {
    expectTable<VrexConstraintStatus>("enum VrexConstraintStatus", {
                                                                       {-1, "Unknown", ""},
                                                                       {0, "Overdefined", ""},
                                                                       {1, "BetweenFixed", ""},
                                                                       {2, "BetweenSetMembers", ""},
                                                                       {3, "Regular", ""},
                                                                       {4, "NotSolved", ""},
                                                                   });
}

TEST(VrexEnumTable, DragParameter3DTypeRowsConvertBothWays) {
    expectTable<VrexDragParameter3DType>("enum VrexDragParameter3DType", {
                                                                             {-1, "Unknown", "?"},
                                                                             {0, "Aperture3D", ""},
                                                                             {1, "Radius3D", ""},
                                                                             {2, "MajorRadius3D", ""},
                                                                             {3, "MinorRadius3D", ""},
                                                                         });
}

TEST(VrexEnumTable, EquationConditionTypeRowsConvertBothWays) {
    expectTable<VrexEquationConditionType>("enum VrexEquationConditionType", {
                                                                                 {-1, "unknown", ""},
                                                                                 {0, "equalToZero", ""},
                                                                                 {1, "lessThanZero", ""},
                                                                                 {2, "lessEqualZero", ""},
                                                                                 {3, "greaterThanZero", ""},
                                                                                 {4, "greaterEqualZero", ""},
                                                                                 {5, "dragTowardsZero", ""},
                                                                             });
}

TEST(VrexEnumTable, Fixation3DTypeRowsConvertBothWays) {
    expectTable<VrexFixation3DType>("enum VrexFixation3DType", {
                                                                   {-1, "Unknown", "?"},
                                                                   {0, "Complete3D", "comp"},
                                                                   {1, "Direction3D", "dir"},
                                                                   {2, "Location3D", "loc"},
                                                                   {3, "Radius3D", "rad"},
                                                                   {4, "MajorRadius3D", "maj"},
                                                                   {5, "MinorRadius3D", "min"},
                                                                   {6, "Aperture3D", "apert"},
                                                                   {7, "EllipseDirection3D", "elDir"},
                                                               });
}

TEST(VrexEnumTable, Geometry3DTypeRowsConvertBothWays) {
    expectTable<VrexGeometry3DType>("enum VrexGeometry3DType",
                                    {
                                        {-1, "Unknown", "?"},
                                        {0, "Point3D", "pt"},
                                        {1, "Line3D", "ln"},
                                        {2, "Plane3D", "pl"},
                                        {3, "RigidSet3D", "rs"},
                                        {4, "NurbsSurface3D", "ns"},
                                        {5, "Cylinder3D", "cy"},
                                        {6, "Sphere3D", "s"},
                                        {7, "Circle3D", "ci"},
                                        {8, "Spline3D", "sp"},
                                        {9, "Cone3D", "co"},
                                        {10, "Ellipse3D", "el"},
                                        {11, "Torus3D", "to"},
                                        {12, "Connector3D", "cnt"},
                                        {13, "SpinSurface3D", "spin"},
                                        {14, "EvaluatedSurface3D", "eval_surf_3d"},
                                        {15, "EvaluatedCurve3D", "evac_3d"},
                                        {16, "SweepSurface3D", "sweep"},
                                        {17, "Pattern3D", "pat"},
                                        {18, "ArrayPattern3D", "a_pat"},
                                        {19, "EqualDimensionElement3D", "eq_d_ele"},
                                    });
}

TEST(VrexEnumTable, GeometryChangeStatusRowsConvertBothWays) {
    expectTable<VrexGeometryChangeStatus>("enum VrexGeometryChangeStatus", {
                                                                               {-1, "Unknown", ""},
                                                                               {0, "Fixed", ""},
                                                                               {1, "Changed", ""},
                                                                               {2, "NotChanged", ""},
                                                                           });
}

TEST(VrexEnumTable, GeometryComponentTypeRowsConvertBothWays) {
    expectTable<VrexGeometryComponentType>("enum VrexGeometryComponentType", {
                                                                                 {0, "Unknown", "u"},
                                                                                 {1, "Center", "cn"},
                                                                                 {2, "Axis", "ax"},
                                                                                 {3, "Plane", "pl"},
                                                                                 {4, "Spine", "sp"},
                                                                                 {5, "Apex", "ap"},
                                                                                 {6, "Major", "mj"},
                                                                                 {7, "Minor", "mn"},
                                                                                 {8, "Exterior", "ex"},
                                                                             });
}

TEST(VrexEnumTable, GeometryStatusRowsConvertBothWays) {
    expectTable<VrexGeometryStatus>("enum VrexGeometryStatus", {
                                                                   {-1, "Unknown", ""},
                                                                   {0, "Welldefined", ""},
                                                                   {1, "Underdefined", ""},
                                                                   {2, "Overdefined", ""},
                                                                   {3, "NotSolved", ""},
                                                               });
}

TEST(VrexEnumTable, Incidence3DTypeRowsConvertBothWays) {
    expectTable<VrexIncidence3DType>("enum VrexIncidence3DType", {
                                                                     {-1, "Default", ""},
                                                                     {0, "AroundSpine", ""},
                                                                     {1, "ToSpine", ""},
                                                                 });
}

TEST(VrexEnumTable, MateDimensionInterval3DTypeRowsConvertBothWays) {
    expectTable<VrexMateDimensionInterval3DType>("enum VrexMateDimensionInterval3DType",
                                                 {
                                                     {0, "AngleDimension3D", "angle"},
                                                     {1, "LinearDimension3D", "linear"},
                                                 });
}

TEST(VrexEnumTable, Pattern3DTypeRowsConvertBothWays) {
    expectTable<VrexPattern3DType>("enum VrexPattern3DType", {
                                                                 {0, "Linear3D", "linear"},
                                                                 {1, "Circular3D", "circular"},
                                                             });
}

TEST(VrexEnumTable, Radius3DTypeRowsConvertBothWays) {
    expectTable<VrexRadius3DType>("enum VrexRadius3DType", {
                                                               {0, "Radius3D", "radius"},
                                                               {1, "MajorRadius3D", "major"},
                                                               {2, "MinorRadius3D", "minor"},
                                                           });
}

TEST(VrexEnumTable, SolveMethodStatusRowsConvertBothWays) {
    expectTable<VrexSolveMethodStatus>("enum VrexSolveMethodStatus", {
                                                                         {-1, "Unknown", ""},
                                                                         {0, "Numerical", ""},
                                                                         {1, "Analytical", ""},
                                                                     });
}

TEST(VrexEnumTable, TextIsMatchedToTheLetter) {
    expectNoValue<VrexGeometry3DType>("enum VrexGeometry3DType", "point3d");
    expectNoValue<VrexGeometry3DType>("enum VrexGeometry3DType", "POINT");
    expectNoValue<VrexEquationConditionType>("enum VrexEquationConditionType", "EqualToZero");
}

TEST(VrexEnumTable, ShortNamesAreNeverParsed) {
    expectNoValue<VrexGeometry3DType>("enum VrexGeometry3DType", "pt");
    expectNoValue<VrexConstraintAlignment>("enum VrexConstraintAlignment", "c");
}

TEST(VrexEnumTable, TypesCountHasNoText) { expectNoText<VrexGeometry3DType>("enum VrexGeometry3DType", 20); }

TEST(VrexEnumTable, KnownIsWhatHasARow) {
    const auto isKnown = [](int value) { return nsEnum::isKnown(static_cast<VrexFixation3DType>(value)); };
    EXPECT_FALSE(isKnown(-2));
    EXPECT_TRUE(isKnown(-1));
    EXPECT_TRUE(isKnown(7));
    EXPECT_FALSE(isKnown(8));
    EXPECT_FALSE(isKnown(-2147483647 - 1));
    EXPECT_FALSE(isKnown(2147483647));
    EXPECT_FALSE(nsEnum::isKnown(VrexGeometry3DType::TYPES_COUNT));
}

TEST(VrexEnumTable, TextsIgnoreTheProcessLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    EXPECT_STREQ(nsEnum::toText(VrexConstraint3DType::EqualCurvatureDerivative3D),
                 "EqualCurvatureDerivative3D");
    EXPECT_EQ(nsEnum::fromText<VrexGeometry3DType>("NurbsSurface3D"), VrexGeometry3DType::NURBS_SURFACE);
    expectNoText<VrexGeometry3DType>("enum VrexGeometry3DType", 2'000'000);
    expectNoValue<VrexGeometry3DType>("enum VrexGeometry3DType", "1.234,5");
}

TEST(VrexEnumTable, FailureIsLoggedWithItsText) {
    const LogCapture log;
    expectNoValue<VrexPattern3DType>("enum VrexPattern3DType", "linear");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text,
              "nsEnum::raiseNoValue(): Failed to convert the string \"linear\" to enum VrexPattern3DType.");
}

} // namespace
