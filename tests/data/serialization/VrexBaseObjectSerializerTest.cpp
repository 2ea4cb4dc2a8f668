#include "data/serialization/VrexBaseObjectSerializer.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/VrexConstraint.h"
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonObject.h"
#include "support/JsonSamples.h"
#include "support/LogCapture.h"
#include "support/SamplesRelations.h"

namespace {

using nsJsonSamples::thrownText;

/// Opens what the base keeps for the classes below it.
class Opened : public VrexBaseObjectSerializer {
public:
    explicit Opened(VrexJsonLines& target) : VrexBaseObjectSerializer({}, target) {}

    using VrexBaseObjectSerializer::constraintIndex;
    using VrexBaseObjectSerializer::equationIndex;
    using VrexBaseObjectSerializer::geometryIndex;
    using VrexBaseObjectSerializer::variableIndex;

    template <class Object>
    void write(Object& object, void (VrexBaseObjectSerializer::*serialize)(Object&, VrexJsonObject&)) {
        VrexJsonObject json(m_text, [](VrexJsonObject& start) { start.put("key", 1); });
        (this->*serialize)(object, json);
    }
    void add(VrexConstraint& object) { write(object, &Opened::serializeConstraint); }
    void add(VrexBaseEquation& object) { write(object, &Opened::serializeEquation); }
    void add(VrexGeometry& object) { write(object, &Opened::serializeGeometry); }
    void add(VrexGeometryVariable& object) { write(object, &Opened::serializeVariable); }
    std::string textOf(const VrexVariableDescriptor& descriptor) {
        std::string text;
        const VrexJsonObject json(
            text, [&](VrexJsonObject& start) { serializeVariableDescriptor(descriptor, start); });
        return text;
    }

private:
    std::string m_text;
};

class VrexBaseObjectSerializerTest : public testing::Test {
protected:
    /// What `work` throws, which the log has to tell as that of `operation`.
    template <class Work>
    static std::string refusal(const std::string& operation, const Work& work) {
        const LogCapture log;
        const std::string text = thrownText(work);
        EXPECT_EQ(log.lines().size(), 1U);
        if (!log.lines().empty()) {
            EXPECT_EQ(log.lines().back().level, 1U);
            EXPECT_EQ(log.lines().back().channel, 1U);
            EXPECT_EQ(log.lines().back().text, "VrexBaseObjectSerializer::" + operation + "(): " + text);
        }
        return text;
    }

    VrexJsonLines m_lines{4};
    Opened m_serializer{m_lines};
    std::shared_ptr<VrexPoint3D> m_point = makeSample<VrexPoint3D>();
    std::shared_ptr<VrexGeometryVariable> m_variable = makeSample<VrexGeometryVariable>();
    std::shared_ptr<VrexParallelism3D> m_constraint = makeSample<VrexParallelism3D>();
    std::shared_ptr<VrexExpressionEquation> m_equation = makeSample<VrexExpressionEquation>();
};

TEST_F(VrexBaseObjectSerializerTest, CountsEachTableByItself) {
    const auto second = makeSample<VrexLine3D>();
    m_serializer.add(*m_point);
    m_serializer.add(*m_variable);
    m_serializer.add(*m_constraint);
    m_serializer.add(*m_equation);
    m_serializer.add(*second);
    EXPECT_EQ(m_serializer.geometryIndex(m_point), 0U);
    EXPECT_EQ(m_serializer.geometryIndex(second), 1U);
    EXPECT_EQ(m_serializer.variableIndex(m_variable), 0U);
    EXPECT_EQ(m_serializer.constraintIndex(m_constraint), 0U);
    EXPECT_EQ(m_serializer.equationIndex(m_equation), 0U);
}

TEST_F(VrexBaseObjectSerializerTest, RefusesNullsByWhatTheyStandFor) {
    EXPECT_EQ(refusal("geometryIndex", [&] { m_serializer.geometryIndex(nullptr); }),
              "Null pointer to geometry!");
    EXPECT_EQ(refusal("variableIndex", [&] { m_serializer.variableIndex(nullptr); }),
              "Null pointer to variable!");
    EXPECT_EQ(refusal("constraintIndex", [&] { m_serializer.constraintIndex(nullptr); }),
              "Null pointer to constraint!");
    EXPECT_EQ(refusal("equationIndex", [&] { m_serializer.equationIndex(nullptr); }),
              "Null pointer to equation!");
}

TEST_F(VrexBaseObjectSerializerTest, RefusesReferencesToWhatIsNotThereYet) {
    EXPECT_EQ(refusal("geometryIndex", [&] { m_serializer.geometryIndex(m_point); }),
              "Objects can only reference already serialized geometries. Try reordering the system.");
    EXPECT_EQ(refusal("variableIndex", [&] { m_serializer.variableIndex(m_variable); }),
              "Objects can only reference already serialized variables. Try reordering the system.");
    EXPECT_EQ(refusal("constraintIndex", [&] { m_serializer.constraintIndex(m_constraint); }),
              "Objects can only reference already serialized constraints. Try reordering the system.");
    EXPECT_EQ(refusal("equationIndex", [&] { m_serializer.equationIndex(m_equation); }),
              "Objects can only reference already serialized equations. Try reordering the system.");
}

TEST_F(VrexBaseObjectSerializerTest, RefusesDuplicates) {
    m_serializer.add(*m_point);
    m_serializer.add(*m_variable);
    m_serializer.add(*m_constraint);
    m_serializer.add(*m_equation);
    EXPECT_EQ(refusal("serializeConstraint", [&] { m_serializer.add(*m_constraint); }),
              "The system contains a duplicate constraint (constraints are duplicates if they have the same "
              "address)!");
    EXPECT_EQ(refusal("serializeEquation", [&] { m_serializer.add(*m_equation); }),
              "The system contains a duplicate equation (equations are duplicates if they have the same "
              "address).");
    EXPECT_EQ(refusal("serializeGeometry", [&] { m_serializer.add(*m_point); }),
              "The system contains a duplicate geometry (geometries are duplicates if they have the same "
              "address).");
    EXPECT_EQ(refusal("serializeVariable", [&] { m_serializer.add(*m_variable); }),
              "The system contains a duplicate variable (variables are duplicates if they have the same "
              "address).");
}

TEST_F(VrexBaseObjectSerializerTest, KeepsManyApart) {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    for (int i = 0; i < 5'000; ++i) {
        points.push_back(VrexPoint3D::create(i, 0.0, 0.0));
        m_serializer.add(*points.back());
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(m_serializer.geometryIndex(points[i]), i);
    }
}

TEST_F(VrexBaseObjectSerializerTest, DescriptorsTellTheKindAndThePlace) {
    m_serializer.add(*m_point);
    m_serializer.add(*m_variable);
    m_serializer.add(*m_constraint);
    EXPECT_EQ(m_serializer.textOf({m_variable, 0, "v"}),
              R"({"index":0,"type":"Variable","variableIndex":0})");
    EXPECT_EQ(m_serializer.textOf({m_point, 2, "p"}), R"({"index":2,"type":"Geometry","object":0})");
    EXPECT_EQ(m_serializer.textOf({m_constraint, 4294967295U, "c"}),
              R"({"index":4294967295,"type":"Constraint","constraint":0})");
}

TEST_F(VrexBaseObjectSerializerTest, RefusesDescriptorsOfNothingAndOfEquations) {
    m_serializer.add(*m_equation);
    EXPECT_EQ(refusal("geometryIndex",
                      [&] {
                          (void)m_serializer.textOf({nullptr, 0, "n"});
                      }),
              "Null pointer to geometry!");
    EXPECT_EQ(refusal("serializeVariableDescriptor",
                      [&] {
                          (void)m_serializer.textOf({m_equation, 0, "e"});
                      }),
              "Unknown value of the VrexObjectType enumeration.");
}

TEST_F(VrexBaseObjectSerializerTest, RefusesObjectsThatNobodyWrites) {
    EXPECT_EQ(refusal("visitBaseObject", [&] { m_point->accept(m_serializer); }),
              "Serializer: Not implemented");
}

} // namespace
