#include "data/serialization/3d/VrexSystem3DSerializer.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/GoldenSystems.h"
#include "support/JsonDocuments.h"
#include "support/JsonSamples.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"

namespace {

using nsJsonSamples::thrownText;
using testing::HasSubstr;

constexpr const char* EMPTY_DOCUMENT = R"({"objects":[],"variables":[],"constraints":[],"equations":[],)"
                                       R"("LinearTolerance":1e-06,"AngularTolerance":1e-08})";
constexpr const char* EMPTY_TEXT = "{\n    \"LinearTolerance\": 1e-06,\n    \"AngularTolerance\": 1e-08\n}";

VrexSystem3DSerializer& serialized(VrexSystem3DSerializer& serializer, const JsonDocuments& lists = {}) {
    EXPECT_TRUE(serializer.serialize(lists.system()));
    return serializer;
}

TEST(VrexSystem3DSerializer, HasNothingBeforeItWasGivenASystem) {
    VrexSystem3DSerializer serializer({});
    EXPECT_TRUE(serializer.json().is_null());
    EXPECT_TRUE(serializer.jsonStream().empty());
    EXPECT_FALSE(serializer.addExtendedInformation("maxId", 1));
    EXPECT_TRUE(serializer.json().is_null());
}

TEST(VrexSystem3DSerializer, AnEmptySystemHasItsArraysInTheValueAndNotInTheText) {
    VrexSystem3DSerializer serializer({});
    EXPECT_EQ(serialized(serializer).json().dump(), EMPTY_DOCUMENT);
    EXPECT_EQ(serializer.jsonStream(), EMPTY_TEXT);
}

TEST(VrexSystem3DSerializer, EmptyArraysAreWrittenIfAskedFor) {
    VrexSerializationParameters parameters;
    parameters.writeEmptyArrays = true;
    parameters.indentWidth = 1;
    VrexSystem3DSerializer serializer(parameters);
    EXPECT_EQ(serialized(serializer).jsonStream(),
              "{\n \"objects\": [\n\n ],\n \"variables\": [\n\n ],\n \"constraints\": [\n\n ],\n"
              " \"equations\": [\n\n ],\n \"LinearTolerance\": 1e-06,\n \"AngularTolerance\": 1e-08\n}");
    EXPECT_EQ(serializer.jsonToStream(LumoJson::parse(serializer.jsonStream())), serializer.jsonStream());
    EXPECT_EQ(LumoJson::parse(serializer.jsonStream()).dump(), serializer.json().dump());
}

/// The golden systems without and with blanks: value, text of the value, and value of the text.
TEST(VrexSystem3DSerializer, ValueAndTextTellTheSame) {
    for (const auto makeSystem : {GoldenSystems::geometries, GoldenSystems::constraints,
                                  GoldenSystems::equations, GoldenSystems::drags}) {
        for (const std::uint64_t width : {0, 3}) {
            VrexSerializationParameters parameters;
            parameters.indentWidth = width;
            parameters.writeEmptyArrays = true;
            const auto system = makeSystem();
            VrexSystem3DSerializer serializer(parameters);
            serializer.serialize(system);
            const std::string text(serializer.jsonStream());
            EXPECT_EQ(LumoJson::parse(text).dump(), serializer.json().dump());
            EXPECT_EQ(serializer.jsonToStream(serializer.json()), text);
            EXPECT_EQ(serializer.jsonStream(), text);
            LumoJson document;
            serialize(system, document, parameters);
            EXPECT_EQ(document.dump(), serializer.json().dump());
            serializer.serialize(system);
            EXPECT_EQ(serializer.jsonStream(), text);
        }
    }
}

TEST(VrexSystem3DSerializer, ACopyOfTheSystemHasTheSameDocument) {
    for (const auto makeSystem : {GoldenSystems::geometries, GoldenSystems::constraints,
                                  GoldenSystems::equations, GoldenSystems::drags}) {
        const auto system = makeSystem();
        VrexSystem3DSerializer serializer({});
        serializer.serialize(system);
        const std::string text(serializer.jsonStream());
        serializer.serialize(system.deepCopy());
        EXPECT_EQ(serializer.jsonStream(), text);
    }
}

TEST(VrexSystem3DSerializer, TheDocumentIsThatOfTheMomentItWasMade) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    VrexSystem3DSerializer serializer({});
    serialized(serializer, {{point}});
    point->setX(9.0);
    EXPECT_THAT(serializer.json().dump(), HasSubstr("[1.0,2.0,3.0]"));
    EXPECT_THAT(std::string(serializer.jsonStream()), HasSubstr("[1.0,2.0,3.0]"));
}

TEST(VrexSystem3DSerializer, TheNextSystemTakesThePlaceOfTheLast) {
    VrexSystem3DSerializer serializer({});
    serialized(serializer, {{makeSample<VrexPoint3D>()}}).addExtendedInformation("more", 1);
    EXPECT_EQ(serialized(serializer).jsonStream(), EMPTY_TEXT);
    EXPECT_EQ(serializer.json().dump(), EMPTY_DOCUMENT);
}

TEST(VrexSystem3DSerializer, AFailureLeavesNoDocument) {
    const auto point = makeSample<VrexPoint3D>();
    VrexSystem3DSerializer serializer({});
    serialized(serializer, {{point}});
    EXPECT_EQ(thrownText([&] {
                  serializer.serialize(JsonDocuments{{point, point}}.system());
              }),
              "The system contains a duplicate geometry (geometries are duplicates if they have the same "
              "address).");
    EXPECT_FALSE(serializer.addExtendedInformation("more", 1));
    EXPECT_TRUE(serializer.json().is_null());
    EXPECT_TRUE(serializer.jsonStream().empty());
    LumoJson document = "as it was";
    EXPECT_THROW(serialize(JsonDocuments{{point, point}}.system(), document, {}), std::runtime_error);
    EXPECT_EQ(document.dump(), "\"as it was\"");
}

TEST(VrexSystem3DSerializer, NullsInTheListsAreRefused) {
    const auto refusal = [](const JsonDocuments& lists) { return thrownText([&] { (void)lists.json(); }); };
    EXPECT_EQ(refusal({{nullptr}}), "Null pointer to geometry!");
    EXPECT_EQ(refusal({{}, {nullptr}}), "Null pointer to variable!");
    EXPECT_EQ(refusal({{}, {}, {nullptr}}), "Null pointer to constraint!");
    EXPECT_EQ(refusal({{}, {}, {}, {nullptr}}), "Null pointer to equation!");
    EXPECT_EQ(refusal({{}, {}, {}, {}, {}, {nullptr}}), "Null pointer to geometry!");
}

TEST(VrexSystem3DSerializer, ReferencesAndDragsHaveToBeInTheSystem) {
    constexpr const char* TEXT =
        "Objects can only reference already serialized geometries. Try reordering the system.";
    const auto outside = makeSample<VrexPoint3D>();
    JsonDocuments lists;
    lists.referenceGeometries = {outside};
    EXPECT_EQ(thrownText([&] { (void)lists.json(); }), TEXT);
    lists.referenceGeometries.clear();
    lists.transform.applyTranslation(outside, {1.0, 0.0, 0.0});
    EXPECT_EQ(thrownText([&] { (void)lists.json(); }), TEXT);
    lists.transform.clear();
    lists.transform.applyTransformParameters(outside, VrexDragParameter3DType::Radius3D, 1.0);
    EXPECT_EQ(thrownText([&] { (void)lists.json(); }), TEXT);
}

/// The keys of the document of a point dragged by this matrix.
std::string dragOf(const VrexTransformMatrix3D& matrix) {
    JsonDocuments lists{{makeSample<VrexPoint3D>()}};
    lists.transform.applyTranslation(lists.geometries[0], {});
    EXPECT_TRUE(lists.transform.setTransformation(lists.geometries[0], matrix));
    const LumoJson json = lists.json();
    return (json.contains("dragTransforms") ? json["dragTransforms"].dump() : std::string("-")) +
           (json.contains("dragTranslations") ? json["dragTranslations"].dump() : std::string("-"));
}

TEST(VrexSystem3DSerializer, OnlyWhatTurnsNothingAtAllIsATranslation) {
    auto matrix = VrexTransformMatrix3D::translate({1.0, 2.0, 3.0});
    EXPECT_EQ(dragOf(matrix), R"(-[{"objectId":0,"translation":[1.0,2.0,3.0]}])");
    // What is off in the last row, within the tolerance, is lost.
    matrix[3] = {1e-7, 0.0, -1e-7, 1.0 + 1e-7};
    EXPECT_EQ(dragOf(matrix), R"(-[{"objectId":0,"translation":[1.0,2.0,3.0]}])");
    matrix[3] = {0.0, 0.0, 0.0, 2.0};
    EXPECT_EQ(dragOf(matrix), R"([{"objectId":0,"transformMatrix":[[1.0,0.0,0.0,1.0],[0.0,1.0,0.0,2.0],)"
                              R"([0.0,0.0,1.0,3.0],[0.0,0.0,0.0,2.0]]}]-)");
    // A shear with the trace of the identity turns nothing as a quaternion, and is no translation.
    matrix = VrexTransformMatrix3D();
    matrix[0][1] = matrix[1][0] = 0.5;
    EXPECT_EQ(dragOf(matrix), R"([{"objectId":0,"transformMatrix":[[1.0,0.5,0.0,0.0],[0.5,1.0,0.0,0.0],)"
                              R"([0.0,0.0,1.0,0.0],[0.0,0.0,0.0,1.0]]}]-)");
    matrix = VrexTransformMatrix3D();
    matrix[2][2] = std::nextafter(1.0, 2.0);
    EXPECT_THAT(dragOf(matrix), HasSubstr("[0.0,0.0,1.0000000000000002,0.0]"));
}

TEST(VrexSystem3DSerializer, DragVariablesAreLeftToTheCaller) {
    JsonDocuments lists{{}, {VrexGeometryVariable::create(1.0)}};
    lists.transform.applyVariableTransform(lists.variables[0], 2.0);
    EXPECT_FALSE(lists.json().contains("dragVariables"));
}

TEST(VrexSystem3DSerializer, ExtendedInformationStandsInValueAndText) {
    VrexSystem3DSerializer serializer({});
    serialized(serializer, {{VrexPoint3D::create(1.0, 2.0, 3.0)}});
    const std::string before(serializer.jsonStream());
    EXPECT_TRUE(serializer.addExtendedInformation("more", LumoJson::parse("[1,{}]")));
    EXPECT_TRUE(serializer.addExtendedInformation("moveAndEvaluate", true));
    EXPECT_TRUE(serializer.addExtendedInformation("more", 2));
    std::string expected = before;
    expected.insert(before.find("    \"LinearTolerance\""),
                    "    \"moveAndEvaluate\": true,\n    \"more\": 2,\n");
    EXPECT_EQ(serializer.jsonStream(), expected);
    EXPECT_EQ(serializer.json()["more"].dump(), "2");
    EXPECT_EQ(serializer.json()["objects"].size(), 1U);
}

TEST(VrexSystem3DSerializer, ExtendedInformationMayComeFromTheDocumentItself) {
    VrexSystem3DSerializer serializer({});
    serialized(serializer, {{VrexPoint3D::create(1.0, 2.0, 3.0)}});
    const std::string before = serializer.json().dump();
    EXPECT_TRUE(serializer.addExtendedInformation("all", serializer.json()));
    EXPECT_EQ(serializer.json()["all"].dump(), before);
    EXPECT_TRUE(serializer.addExtendedInformation("next", "k0"));
    for (int i = 0; i < 40; ++i) { // So many that the members of the document move more than once.
        std::string_view key;
        getValue(serializer.json()["next"], key);
        const std::string name(key);
        EXPECT_TRUE(serializer.addExtendedInformation(key, serializer.json()["LinearTolerance"]));
        EXPECT_EQ(serializer.json()[name].dump(), "1e-06");
        EXPECT_THAT(std::string(serializer.jsonStream()), HasSubstr("    \"" + name + "\": 1e-06,\n"));
        std::string next = "k";
        next.append(std::to_string(i + 1));
        EXPECT_TRUE(serializer.addExtendedInformation("next", next));
    }
}

TEST(VrexSystem3DSerializer, KeysOfTheSystemAreNotTakenAsExtendedInformation) {
    VrexSystem3DSerializer serializer({});
    serialized(serializer);
    for (const char* const key :
         {"objects", "variables", "constraints", "equations", "ReferenceGeometries", "dragTransforms",
          "dragTranslations", "dragParameters", "LinearTolerance", "AngularTolerance"}) {
        EXPECT_FALSE(serializer.addExtendedInformation(key, 1)) << key;
    }
    EXPECT_EQ(serializer.json().dump(), EMPTY_DOCUMENT);
    EXPECT_EQ(serializer.jsonStream(), EMPTY_TEXT);
    for (const char* const key : {"dragVariables", "moveAndEvaluate", "maxId", "Objects", ""}) {
        EXPECT_TRUE(serializer.addExtendedInformation(key, LumoJson::array())) << key;
    }
}

TEST(VrexSystem3DSerializer, DragVariablesThatAreNoArrayShowInTheTextAlone) {
    VrexSystem3DSerializer serializer({});
    serialized(serializer).addExtendedInformation("dragVariables", 1);
    EXPECT_EQ(serializer.json()["dragVariables"].dump(), "1");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(thrownText([&] { (void)serializer.jsonStream(); }),
                  "Array write error. The value by key is not a json array.");
    }
    serializer.addExtendedInformation("dragVariables", LumoJson::array());
    EXPECT_EQ(serializer.jsonStream(), EMPTY_TEXT);
}

TEST(VrexSystem3DSerializer, MissingIdentifiersAreGivenBeforeWriting) {
    VrexSerializationParameters parameters;
    parameters.generateMissingIds = true;
    VrexSystem3DSerializer serializer(parameters);
    const JsonDocuments lists{{makeSample<VrexPoint3D>(), numbered(makeSample<VrexPoint3D>(), 7)},
                              {makeSample<VrexGeometryVariable>()}};
    const std::string first(serialized(serializer, lists).jsonStream());
    // Geometries come before variables.
    EXPECT_EQ(lists.geometries[0]->getID(), 8U);
    EXPECT_EQ(lists.variables[0]->getID(), 9U);
    EXPECT_THAT(first, HasSubstr("\"id\":8"));
    EXPECT_EQ(serialized(serializer, lists).jsonStream(), first);
}

TEST(VrexSystem3DSerializer, IdentifiersThatRunOutAreAnException) {
    VrexSerializationParameters parameters;
    parameters.generateMissingIds = true;
    const JsonDocuments lists{
        {makeSample<VrexPoint3D>(),
         numbered(makeSample<VrexPoint3D>(), std::numeric_limits<std::uint64_t>::max())}};
    EXPECT_THROW((void)lists.json(parameters), std::out_of_range);
    EXPECT_EQ(lists.geometries[0]->getID(), 0U);
}

TEST(VrexSystem3DSerializer, AnIndentationBeyondAllMemoryIsAnException) {
    VrexSerializationParameters parameters;
    parameters.indentWidth = std::numeric_limits<std::uint64_t>::max();
    VrexSystem3DSerializer serializer(parameters);
    EXPECT_THROW(serializer.serialize(JsonDocuments{}.system()), std::length_error);
    EXPECT_TRUE(serializer.json().is_null());
    EXPECT_EQ(JsonDocuments{}.json(parameters).dump(), EMPTY_DOCUMENT); // The value has no blanks.
}

} // namespace
