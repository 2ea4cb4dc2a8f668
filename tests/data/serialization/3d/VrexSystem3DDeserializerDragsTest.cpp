// How what is dragged is read.

#include "data/serialization/3d/VrexSystem3DDeserializer.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "support/DocumentTexts.h"
#include "support/SamplesRelations.h"

using nsDocumentTexts::documentOf;
using nsDocumentTexts::Elements;
using nsDocumentTexts::expectRefused;
using nsDocumentTexts::LINE;
using nsDocumentTexts::OUT_OF_RANGE;
using nsDocumentTexts::POINT;
using nsDocumentTexts::read;
using nsDocumentTexts::refusal;
using nsDocumentTexts::VARIABLE;

namespace {

const std::string NO_MATRIX =
    "Some of the transformation matrices are not a combination of rotations and translations.";

TEST(VrexSystem3DDeserializer, DragsAreReadByMatrixTranslationParameterAndVariable) {
    const auto system = read({.objects = POINT + ", " + LINE, .variables = VARIABLE, .further = R"(
        "dragTranslations": [{"objectId": 0, "translation": [1, 2, 3, 4]}, {"translation": "skipped"}],
        "dragTransforms": [{"objectId": 1, "transformMatrix": [[0,-1,0,4], [1,0,0,5], [0,0,1,6], [0,0,0,1]]},
                           {"transformMatrix": "skipped"}],
        "dragParameters": [{"objectId": 1, "targetValue": 5, "type": "Radius3D"},
                           {"objectId": 1, "targetValue": -5, "type": "Unknown"}],
        "dragVariables": [{"objectId": 0, "targetValue": 7}, {"objectId": 0, "targetValue": 8}])"});
    const VrexTransform3D& drags = system.transform();
    ASSERT_EQ(drags.transformations().size(), 2U);
    // Those with a matrix come first.
    EXPECT_EQ(drags.transformations()[0].geometry, system.geometries()[1]);
    EXPECT_EQ(drags.transformations()[0].matrix,
              VrexTransformMatrix3D(
                  VrexTransformMatrix3D::Rows{{{0, -1, 0, 4}, {1, 0, 0, 5}, {0, 0, 1, 6}, {0, 0, 0, 1}}}));
    EXPECT_EQ(drags.transformations()[1].geometry, system.geometries()[0]);
    EXPECT_EQ(drags.transformations()[1].matrix, VrexTransformMatrix3D::translate({1, 2, 3}));
    ASSERT_EQ(drags.transformParameters().size(), 2U);
    EXPECT_EQ(drags.transformParameters()[0].value, 5.0);
    EXPECT_EQ(drags.transformParameters()[0].type, VrexDragParameter3DType::Radius3D);
    EXPECT_EQ(drags.transformParameters()[1].type, VrexDragParameter3DType::Unknown);
    ASSERT_EQ(drags.variableTransformations().size(), 2U);
    EXPECT_EQ(drags.variableTransformations()[0].variable, system.variables()[0]);
    EXPECT_EQ(drags.variableTransformations()[1].value, 8.0);
}

TEST(VrexSystem3DDeserializer, AMatrixIsOneOfFourRowsThatEndsAsAMotionDoes) {
    const auto elements = [](const std::string& matrix) {
        return Elements{.objects = POINT, .further = R"("dragTransforms": [{"objectId": 0)" + matrix + "}]"};
    };
    const auto withMatrix = [&](const std::string& rows) {
        return elements(R"(, "transformMatrix": )" + rows);
    };
    // A scale that leaves the last row alone is no business of the reader's.
    EXPECT_EQ(refusal(withMatrix("[[2,0,0,0], [0,2,0,0], [0,0,2,0], [0,0,0,1]]")), "");
    EXPECT_EQ(refusal(withMatrix("[[1,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,0,1.0000009]]")), "");
    for (const char* rows :
         {"[[1,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,0,2]]", "[[1,0,0,0], [0,1,0,0], [0,0,1,0]]",
          "[[1,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,0,1], [0,0,0,0]]",
          "[[1,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,1]]", "[[1,0,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,0,1]]",
          "[[1,0,0,0], [0,1,0,\"0\"], [0,0,1,0], [0,0,0,1]]", "[1, 2, 3, 4]", "[]", "null", "{}",
          "[[1,0,0,0], [0,1,0,0], [0,0,1,0], {}]"}) {
        EXPECT_EQ(refusal(withMatrix(rows)), NO_MATRIX) << rows;
    }
    EXPECT_EQ(refusal(elements("")), NO_MATRIX);
}

TEST(VrexSystem3DDeserializer, DragsNameWhatIsThere) {
    const auto elements = [](const std::string& further) {
        return Elements{.objects = POINT, .variables = VARIABLE, .further = further};
    };
    const std::string matrix = R"("transformMatrix": [[1,0,0,0], [0,1,0,0], [0,0,1,0], [0,0,0,1]]})";
    expectRefused({
        {elements(R"("dragTransforms": [{"objectId": 1, )" + matrix + "]"), OUT_OF_RANGE},
        {elements(R"("dragTransforms": [{"objectId": "0", )" + matrix + "]"),
         "The value at key objectId is not a number."},
        {elements(R"("dragTranslations": [{"objectId": 9, "translation": [1, 0, 0]}])"), OUT_OF_RANGE},
        {elements(R"("dragTranslations": [{"objectId": 0, "translation": [1, 0]}])"),
         "The value at key translation is not a vector3d."},
        {elements(R"("dragTranslations": [{"objectId": 0}])"),
         "The value at key translation is not a vector3d."},
        {elements(R"("dragParameters": [{"objectId": 1, "targetValue": 1, "type": "Radius3D"}])"),
         OUT_OF_RANGE},
        {elements(R"("dragParameters": [{"targetValue": 1, "type": "Radius3D"}])"),
         "The value at key objectId is not a number."},
        {elements(R"("dragParameters": [{"objectId": 0, "type": "Radius3D"}])"),
         "The value at key targetValue is not a number."},
        {elements(R"("dragParameters": [{"objectId": 0, "targetValue": 1}])"),
         "The value at key type is not a string."},
        {elements(R"("dragParameters": [{"objectId": 0, "targetValue": 1, "type": "Radius"}])"),
         "out_of_range: Failed to convert the string \"Radius\" to enum VrexDragParameter3DType."},
        {elements(R"("dragVariables": [{"objectId": 1, "targetValue": 1}])"), OUT_OF_RANGE},
        {elements(R"("dragVariables": [{"targetValue": 1}])"), "The value at key objectId is not a number."},
        {elements(R"("dragVariables": [{"objectId": 0}])"), "The value at key targetValue is not a number."},
    });
}

class FlatTransform : public VrexTransformInterface {
public:
    bool isEmpty() const override { return true; }
    std::vector<std::shared_ptr<VrexGeometry>> getTransformedGeoms() const override { return {}; }
    std::vector<std::shared_ptr<VrexGeometry>> getDragParamGeoms() const override { return {}; }
};

TEST(VrexSystem3DDeserializer, TransformsOfAnotherDimensionAreRefused) {
    VrexIDGenerator generator;
    VrexSystem3DDeserializer deserializer(generator, {});
    FlatTransform transform;
    EXPECT_THROW(deserializer.createTransform(transform, {}, documentOf({})), std::bad_cast);
}

} // namespace
