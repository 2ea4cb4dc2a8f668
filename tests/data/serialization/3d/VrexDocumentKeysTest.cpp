// Every key of every kind, left out once and given a value of another type once.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/DocumentTexts.h"
#include "support/GoldenSystems.h"
#include "support/JsonDifference.h"

using nsDocumentTexts::jsonRefusal;
using nsDocumentTexts::readJson;
using nsDocumentTexts::written;

namespace {

enum class Value { Number, Text, Boolean, Vector, Array, Unread };

/// What becomes of an object without the key.
enum class Missing {
    Refused,    ///< As one with a value of another type.
    RefusedBy,  ///< `detail` is the text.
    Absent,     ///< Read; written without it again.
    Default,    ///< Read; written with `detail`.
    Unexamined, ///< Read.
};

struct Rule {
    std::vector<std::string> keys;
    std::vector<std::string> types; ///< Of the objects that have it; all if there is none.
    Value value;
    Missing missing;
    std::string detail = "";
};

const std::string NOT_CREATED = "Failed to replay: constraint was not created!";

/// The first one that fits counts.
const Rule GEOMETRIES[] = {
    {{"type"}, {}, Value::Text, Missing::RefusedBy, "The geometry type should be named \"type\"!"},
    {{"dir"}, {"RigidSet3D"}, Value::Vector, Missing::RefusedBy, "The value at key rot is not a number."},
    {{"axis"}, {"SpinSurface3D", "Pattern3D"}, Value::Number, Missing::Refused},
    {{"loc", "dir", "norm", "cen", "axis"}, {}, Value::Vector, Missing::Refused},
    {{"rad", "maj", "min", "ap", "rot", "uDegree", "vDegree", "degree", "profileSurface", "profileCurve",
      "trajectoryLine", "value"},
     {},
     Value::Number,
     Missing::Refused},
    {{"startParameterU", "endParameterU", "startParameterV", "endParameterV"},
     {"Torus3D"},
     Value::Unread,
     Missing::Absent},
    {{"startParameter", "endParameter", "startParameterU", "endParameterU", "startParameterV",
      "endParameterV"},
     {},
     Value::Number,
     Missing::Absent},
    {{"allowRadiusSignChange"}, {}, Value::Boolean, Missing::Absent},
    {{"arguments", "descriptors"}, {}, Value::Array, Missing::Default, "[]"},
    {{"controlPoints", "weights"},
     {"NurbsSurface3D"},
     Value::Array,
     Missing::RefusedBy,
     "Invalid data: NURBS surface control points are missing."},
    {{"points", "weights"},
     {"Spline3D"},
     Value::Array,
     Missing::RefusedBy,
     "Invalid data: spline control points are missing."},
    {{"uKnots", "vKnots", "knots"}, {}, Value::Array, Missing::Refused},
    {{"periodic"}, {}, Value::Boolean, Missing::Refused},
    {{"interpolatedPoints", "interpolatedParameters"}, {}, Value::Array, Missing::Absent},
    {{"x", "y", "z", "patternType"}, {}, Value::Text, Missing::Refused},
    {{"id"}, {}, Value::Number, Missing::Default, "1"},
    {{"label", "status"}, {}, Value::Text, Missing::Absent},
    {{"changeStatus"}, {}, Value::Text, Missing::Default, "\"Unknown\""},
};

const Rule VARIABLES[] = {
    {{"val"}, {}, Value::Number, Missing::Refused},
    {{"id"}, {}, Value::Number, Missing::Default, "1"},
    {{"label", "status"}, {}, Value::Text, Missing::Absent},
    {{"changeStatus"}, {}, Value::Text, Missing::Default, "\"Unknown\""},
};

const Rule CONSTRAINTS[] = {
    {{"type"}, {}, Value::Text, Missing::RefusedBy, "The constraint type should be named \"type\"!"},
    {{"arguments"}, {}, Value::Array, Missing::RefusedBy, NOT_CREATED},
    {{"direction"}, {}, Value::Vector, Missing::Refused},
    {{"radType"}, {"Radius3D"}, Value::Unread, Missing::Default, "\"Radius3D\""},
    {{"radType"}, {"MajorRadius3D"}, Value::Unread, Missing::Default, "\"MajorRadius3D\""},
    {{"radType"}, {"MinorRadius3D"}, Value::Unread, Missing::Default, "\"MinorRadius3D\""},
    {{"windingAngle", "minLimit", "maxLimit", "variable", "dimensionIndex"},
     {},
     Value::Number,
     Missing::Absent},
    {{"distanceMin", "distanceMax", "distanceXMin", "distanceXMax", "distanceYMin", "distanceYMax",
      "distanceZMin", "distanceZMax", "angleMin", "angleMax"},
     {},
     Value::Number,
     Missing::Absent},
    {{"distanceFix", "distanceXFix", "distanceYFix", "distanceZFix", "angleFix"},
     {},
     Value::Boolean,
     Missing::Absent},
    {{"distance", "distanceX", "distanceY", "distanceZ", "angle"},
     {},
     Value::Number,
     Missing::Default,
     "0.0"},
    {{"incType"}, {}, Value::Text, Missing::Default, "\"Default\""},
    {{"fixType"}, {}, Value::Text, Missing::Default, "\"Complete3D\""},
    {{"radType1", "radType2", "dimensionType"}, {}, Value::Text, Missing::Refused},
    {{"coefficients", "mateParameterIndexs"}, {}, Value::Array, Missing::Refused},
    {{"constraints"}, {"EqualParameter3D"}, Value::Array, Missing::RefusedBy, NOT_CREATED},
    {{"constraints"}, {}, Value::Array, Missing::Default, "[]"},
    {{"helpParameters"}, {}, Value::Array, Missing::Default, "[[0,0],[0,0]]"},
    {{"ratio"}, {}, Value::Number, Missing::Default, "1.0"},
    {{"value"}, {}, Value::Number, Missing::Refused},
    {{"rigid", "fixHelpParameter1", "fixHelpParameter2"}, {}, Value::Boolean, Missing::Absent},
    {{"id"}, {}, Value::Number, Missing::Default, "1"},
    {{"label", "status", "satisfiedStatus", "alignment", "orientation", "GeomComponent1", "GeomComponent2"},
     {},
     Value::Text,
     Missing::Absent},
    {{"solveMethodStatus"}, {}, Value::Text, Missing::Default, "\"Unknown\""},
    {{"helpPoint1", "helpPoint2"}, {}, Value::Vector, Missing::Absent},
    // Each takes its partner with it.
    {{"helpParameterU1", "helpParameterV1", "helpParameterU2", "helpParameterV2"},
     {},
     Value::Number,
     Missing::Unexamined},
};

const Rule EQUATIONS[] = {
    {{"type"}, {}, Value::Text, Missing::RefusedBy, "Equation must contain a type!"},
    {{"expression"}, {}, Value::Text, Missing::Refused},
    {{"coef"}, {}, Value::Number, Missing::Refused},
    {{"multipliers", "descriptors"}, {}, Value::Array, Missing::Refused},
    {{"conditionType", "label", "status", "satisfiedStatus"}, {}, Value::Text, Missing::Absent},
    {{"id"}, {}, Value::Number, Missing::Default, "1"},
    {{"solveMethodStatus"}, {}, Value::Text, Missing::Default, "\"Unknown\""},
};

const Rule DESCRIPTORS[] = {
    {{"type"}, {}, Value::Text, Missing::RefusedBy, "Equation descriptor must contain a type!"},
    {{"index", "variableIndex", "object", "constraint"}, {}, Value::Number, Missing::Refused},
    {{"name"}, {}, Value::Text, Missing::Unexamined}, // A generated one takes its place.
};

template <class Rules>
const Rule* ruleOf(const Rules& rules, std::string_view key, const std::string& type) {
    for (const Rule& rule : rules) {
        const bool fits = rule.types.empty() || std::ranges::count(rule.types, type) != 0;
        if (fits && std::ranges::count(rule.keys, key) != 0) {
            return &rule;
        }
    }
    return nullptr;
}

/// How a value of another type is refused.
std::string refusalOf(Value value, std::string_view key) {
    static const char* const EXPECTED[] = {"a number", "a string", "a boolean", "a vector3d", "an array"};
    return std::string("The value at key ").append(key) + " is not " +
           EXPECTED[static_cast<std::size_t>(value)] + ".";
}

/// An object without one of its members.
LumoJson without(const LumoJson& object, std::string_view key) {
    LumoJson rest = LumoJson::parse("{}");
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (member.key() != key) {
            rest[member.key()] = LumoJson(*member);
        }
    }
    return rest;
}

/// The golden document of a name, with each of its keys changed in turn.
class Keys {
public:
    explicit Keys(const std::string& name) : m_json(LumoJson::parse(GoldenSystems::text(name))) {
        for (const char* array : {"objects", "variables", "constraints", "equations"}) {
            m_json[array].makeArray(); // The text leaves out those that are empty.
        }
    }

    template <class Rules>
    void check(const char* array, const Rules& rules) {
        for (std::size_t i = 0; i < m_json[array].size(); ++i) {
            checkObject(m_json[array][i], rules);
            if (m_json[array][i].contains("descriptors")) {
                checkDescriptors(m_json[array][i]["descriptors"]);
            }
        }
    }
    int count() const { return m_count; }

private:
    void checkDescriptors(LumoJson& descriptors) {
        for (LumoJson& descriptor : descriptors) {
            checkObject(descriptor, DESCRIPTORS);
        }
    }

    template <class Rules>
    void checkObject(LumoJson& object, const Rules& rules) {
        const LumoJson before = object;
        const std::string type =
            before.contains("type") ? nsJsonSamples::valueOf<std::string>(before["type"]) : "";
        for (auto member = before.begin(); member != before.end(); ++member) {
            SCOPED_TRACE(type + " " + std::string(member.key()) + " of " + before.dump());
            const Rule* const rule = ruleOf(rules, member.key(), type);
            ASSERT_NE(rule, nullptr) << "a key without a rule";
            checkMissing(object, member.key(), *rule);
            object = before;
            checkOtherTypes(object, member.key(), *rule);
            object = before;
            ++m_count;
        }
    }

    void checkMissing(LumoJson& object, std::string_view key, const Rule& rule) {
        object = without(object, key);
        switch (rule.missing) {
        case Missing::Refused:
            EXPECT_EQ(jsonRefusal(m_json), refusalOf(rule.value, key));
            break;
        case Missing::RefusedBy:
            EXPECT_EQ(jsonRefusal(m_json), rule.detail);
            break;
        case Missing::Unexamined:
            EXPECT_EQ(jsonRefusal(m_json), "");
            break;
        default:
            checkWritten(object, key, rule);
        }
    }

    /// What is read is written as it stands, with what a missing key is taken for.
    void checkWritten(LumoJson& object, std::string_view key, const Rule& rule) {
        const auto again = written(readJson(m_json));
        if (rule.missing == Missing::Default) {
            object[key] = LumoJson::parse(rule.detail);
        }
        EXPECT_EQ(JsonDifference().find(asWritten(m_json), again), "");
    }

    void checkOtherTypes(LumoJson& object, std::string_view key, const Rule& rule) {
        const std::string expected = rule.value == Value::Unread ? "" : refusalOf(rule.value, key);
        for (const LumoJson& other : {LumoJson(), LumoJson(7), LumoJson("text"), LumoJson(true),
                                      LumoJson::parse("{}"), LumoJson::parse("[[]]")}) {
            const bool isOther = (rule.value != Value::Number || !other.is_number()) &&
                                 (rule.value != Value::Text || !other.is_string()) &&
                                 (rule.value != Value::Boolean || !other.is_bool()) &&
                                 (rule.value != Value::Array || !other.is_array());
            if (isOther) {
                object[key] = other;
                EXPECT_EQ(jsonRefusal(m_json), expected) << other.dump();
            }
        }
    }

    /// Without what no reader takes: the range of a torus.
    static LumoJson asWritten(LumoJson json) {
        for (LumoJson& object : json["objects"]) {
            for (const char* key : {"startParameterU", "endParameterU", "startParameterV", "endParameterV"}) {
                if (nsJsonSamples::valueOf<std::string>(object["type"]) == "Torus3D") {
                    object = without(object, key);
                }
            }
        }
        return json;
    }

    LumoJson m_json;
    int m_count = 0;
};

TEST(VrexDocumentKeys, OfGeometries) {
    Keys keys("geometries");
    keys.check("objects", GEOMETRIES);
    keys.check("variables", VARIABLES);
    EXPECT_GT(keys.count(), 0);
}

TEST(VrexDocumentKeys, OfConstraints) {
    Keys keys("constraints");
    keys.check("constraints", CONSTRAINTS);
    EXPECT_GT(keys.count(), 0);
}

TEST(VrexDocumentKeys, OfEquations) {
    Keys keys("equations");
    keys.check("equations", EQUATIONS);
    EXPECT_GT(keys.count(), 0);
}

} // namespace
