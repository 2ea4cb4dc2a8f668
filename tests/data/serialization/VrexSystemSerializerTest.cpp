#include "data/serialization/VrexSystemSerializer.h"

#include <cstdint>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVisitable.h"
#include "support/JsonSamples.h"
#include "support/LogCapture.h"
#include "support/SamplesRelations.h"
#include "tolvbase/LumoJson.h"

namespace {

using nsJsonSamples::thrownText;
using testing::ElementsAre;

class Opened : public VrexSystemSerializer {
public:
    explicit Opened(const VrexSerializationParameters& parameters = {}) : VrexSystemSerializer(parameters) {}

    std::string text(const LumoJson& root) const {
        std::ostringstream stream;
        write(stream, root);
        return stream.str();
    }
    std::string text(const char* root) const { return text(LumoJson::parse(root)); }
    std::string array(const char* root, const char* key) const {
        std::ostringstream stream;
        writeArray(stream, LumoJson::parse(root), key);
        return stream.str();
    }
};

VrexSerializationParameters indented(std::uint64_t width, bool writeEmptyArrays = false) {
    VrexSerializationParameters parameters;
    parameters.indentWidth = width;
    parameters.writeEmptyArrays = writeEmptyArrays;
    return parameters;
}

constexpr const char* TOLERANCES = R"({"LinearTolerance":0.5,"AngularTolerance":1})";

TEST(VrexSerializationParameters, AskForNothingAndFourBlanksAtFirst) {
    const VrexSerializationParameters parameters;
    EXPECT_FALSE(parameters.writeEmptyArrays);
    EXPECT_FALSE(parameters.ignoreObjectIds);
    EXPECT_EQ(parameters.indentWidth, 4U);
    EXPECT_FALSE(parameters.generateMissingIds);
    EXPECT_FALSE(parameters.writeRegularStatus);
}

TEST(VrexSystemSerializer, RootBeginsWithFourEmptyArrays) {
    LumoJson root;
    Opened().initializeRootNode(root);
    EXPECT_EQ(root.dump(), R"({"objects":[],"variables":[],"constraints":[],"equations":[]})");
}

TEST(VrexSystemSerializer, WritesTolerancesWithoutACommaBehindTheLast) {
    EXPECT_EQ(Opened().text(TOLERANCES), "{\n    \"LinearTolerance\": 0.5,\n    \"AngularTolerance\": 1\n}");
}

TEST(VrexSystemSerializer, WritesEveryKeyAtItsPlaceWhateverTheOrderOfTheDocument) {
    EXPECT_EQ(Opened(indented(1)).text(R"({
        "AngularTolerance":2,"LinearTolerance":1,"more":3,"moveAndEvaluate":[1,{"a":null}],
        "dragVariables":[7],"dragParameters":[6],"dragTranslations":[5],"dragTransforms":[4],
        "ReferenceGeometries":[0,1],"equations":[{"e":[]}],"constraints":["c","d"],"variables":[1.5],
        "objects":[{"a":1,"b":"x"},{}]})"),
              "{\n"
              " \"objects\": [\n"
              "  {\"a\":1,\"b\":\"x\"},\n"
              "  {}\n"
              " ],\n"
              " \"variables\": [\n"
              "  1.5\n"
              " ],\n"
              " \"constraints\": [\n"
              "  \"c\",\n"
              "  \"d\"\n"
              " ],\n"
              " \"equations\": [\n"
              "  {\"e\":[]}\n"
              " ],\n"
              " \"ReferenceGeometries\": [0,1],\n"
              " \"dragTransforms\": [\n"
              "  4\n"
              " ],\n"
              " \"dragTranslations\": [\n"
              "  5\n"
              " ],\n"
              " \"dragParameters\": [\n"
              "  6\n"
              " ],\n"
              " \"dragVariables\": [\n"
              "  7\n"
              " ],\n"
              " \"moveAndEvaluate\": [1,{\"a\":null}],\n"
              " \"LinearTolerance\": 1,\n"
              " \"AngularTolerance\": 2\n"
              "}");
}

TEST(VrexSystemSerializer, WritesTaggedKeysOnceInTheOrderOfTheTags) {
    Opened serializer(indented(0));
    for (const char* const tag : {"b", "dragVariables", "a", "objects", "b", "missing", "LinearTolerance"}) {
        serializer.addExtendedInformationTag(tag);
    }
    EXPECT_EQ(serializer.text(R"({"a":1,"b":2,"c":3,"dragVariables":[4],"objects":[5],
                                  "LinearTolerance":6,"AngularTolerance":7})"),
              "{\n\"objects\": [\n5\n],\n\"dragVariables\": [\n4\n],\n\"b\": 2,\n\"a\": 1,\n"
              "\"LinearTolerance\": 6,\n\"AngularTolerance\": 7\n}");
}

TEST(VrexSystemSerializer, EscapesOnlyQuotationMarksAndBackslashesInKeys) {
    Opened serializer(indented(0));
    serializer.addExtendedInformationTag("a\"b\\c/d");
    EXPECT_EQ(serializer.text(R"({"a\"b\\c/d":"e\"","LinearTolerance":1,"AngularTolerance":1})"),
              "{\n\"a\\\"b\\\\c/d\": \"e\\\"\",\n\"LinearTolerance\": 1,\n\"AngularTolerance\": 1\n}");
}

TEST(VrexSystemSerializer, WritesAnEmptyArrayAsAnEmptyLineIfItIsAskedTo) {
    EXPECT_EQ(Opened(indented(2)).array(R"({"objects":[]})", "objects"), "");
    EXPECT_EQ(Opened(indented(2, true)).array(R"({"objects":[]})", "objects"), "  \"objects\": [\n\n  ],\n");
    EXPECT_EQ(Opened(indented(2, true)).array(R"({})", "objects"), "");
}

TEST(VrexSystemSerializer, RefusesAnArrayThatIsNone) {
    const LogCapture log;
    EXPECT_EQ(thrownText([] { (void)Opened().array(R"({"objects":{}})", "objects"); }),
              "Array write error. The value by key is not a json array.");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().level, 1U);
    for (const char* const key : {"variables", "constraints", "equations", "dragTransforms",
                                  "dragTranslations", "dragParameters", "dragVariables"}) {
        LumoJson root = LumoJson::parse(TOLERANCES);
        root[key] = "no array";
        EXPECT_EQ(thrownText([&] { (void)Opened().text(root); }),
                  "Array write error. The value by key is not a json array.")
            << key;
    }
}

TEST(VrexSystemSerializer, RefusesADocumentWithoutTolerances) {
    EXPECT_EQ(thrownText([] { (void)Opened().text(R"({"AngularTolerance":1})"); }),
              "The linear tolerance should be named: LinearTolerance, and should be a number.");
    EXPECT_EQ(thrownText([] { (void)Opened().text(R"({"LinearTolerance":"1","AngularTolerance":1})"); }),
              "The linear tolerance should be named: LinearTolerance, and should be a number.");
    EXPECT_EQ(thrownText([] { (void)Opened().text(R"({"LinearTolerance":1})"); }),
              "The angular tolerance should be named: AngularTolerance, and should be a number.");
    EXPECT_EQ(thrownText([] { (void)Opened().text("[]"); }),
              "The linear tolerance should be named: LinearTolerance, and should be a number.");
}

TEST(VrexSystemSerializer, WritesNothingWhenItThrows) {
    std::ostringstream stream;
    EXPECT_THROW(Opened().write(stream, LumoJson::parse(R"({"objects":[1],"LinearTolerance":1})")),
                 std::runtime_error);
    EXPECT_EQ(stream.str(), "");
}

TEST(VrexSystemSerializer, AnIndentationBeyondAllMemoryIsAnException) {
    for (const std::uint64_t width :
         {std::numeric_limits<std::uint64_t>::max(), std::numeric_limits<std::uint64_t>::max() / 2 + 1}) {
        EXPECT_THROW((void)Opened(indented(width)).text(R"({"objects":[1],"LinearTolerance":1,
                                                            "AngularTolerance":1})"),
                     std::length_error);
    }
}

/// What a system passes its visitor to.
class Objects : public VrexVisitable {
public:
    explicit Objects(const std::vector<std::uint64_t>& ids) {
        for (const std::uint64_t id : ids) {
            m_points.push_back(makeSample<VrexPoint3D>());
            m_points.back()->setID(id);
        }
    }
    void accept(VrexVisitor3D& visitor) const override {
        for (const auto& point : m_points) {
            point->accept(visitor);
        }
    }
    std::vector<std::uint64_t> ids() const {
        std::vector<std::uint64_t> all;
        for (const auto& point : m_points) {
            all.push_back(point->getID());
        }
        return all;
    }

private:
    std::vector<std::shared_ptr<VrexPoint3D>> m_points;
};

std::vector<std::uint64_t> generated(const std::vector<std::uint64_t>& ids) {
    VrexSerializationParameters parameters;
    parameters.generateMissingIds = true;
    const Objects objects(ids);
    Opened(parameters).generateMissingObjectIDs(objects);
    return objects.ids();
}

TEST(VrexSystemSerializer, MissingIdentifiersFollowTheHighestInTheOrderOfTheVisit) {
    EXPECT_THAT(generated({0, 7, 0}), ElementsAre(8, 7, 9));
    EXPECT_THAT(generated({0, 0}), ElementsAre(1, 2));
    EXPECT_THAT(generated({3, 5}), ElementsAre(3, 5));
}

TEST(VrexSystemSerializer, MissingIdentifiersStayWithoutBeingAskedFor) {
    const Objects objects({0, 7, 0});
    Opened().generateMissingObjectIDs(objects);
    EXPECT_THAT(objects.ids(), ElementsAre(0, 7, 0));
}

TEST(VrexSystemSerializer, IdentifiersThatRunOutChangeNothing) {
    constexpr std::uint64_t LAST = std::numeric_limits<std::uint64_t>::max();
    EXPECT_THAT(generated({LAST, 1}), ElementsAre(LAST, 1));
    EXPECT_THAT(generated({0, LAST - 1}), ElementsAre(LAST, LAST - 1));
    VrexSerializationParameters parameters;
    parameters.generateMissingIds = true;
    for (const std::uint64_t highest : {LAST, LAST - 1}) {
        const Objects objects({0, highest, 0});
        EXPECT_THROW(Opened(parameters).generateMissingObjectIDs(objects), std::out_of_range);
        EXPECT_THAT(objects.ids(), ElementsAre(0, highest, 0));
    }
}

} // namespace
