// Documents that something is wrong with: each ends in the refusal named here or is read, and nothing that
// one does afterwards crashes, hangs or leaks.

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "support/DocumentTexts.h"
#include "support/SmallStack.h"
#include "support/SystemUse.h"

using nsDocumentTexts::documentOf;
using nsDocumentTexts::Elements;
using nsDocumentTexts::expectRefused;
using nsDocumentTexts::geometryOf;
using nsDocumentTexts::joined;
using nsDocumentTexts::OUT_OF_RANGE;
using nsDocumentTexts::POINT;
using nsDocumentTexts::read;
using nsDocumentTexts::refusal;
using nsDocumentTexts::refusalOf;
using nsDocumentTexts::textOf;

namespace {

std::string repeated(std::size_t count, const std::string& text) {
    std::string all;
    all.reserve(count * text.size());
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

const std::string ID_LINE = R"({"type": "Line3D", "loc": [0, 0, 0], "dir": [0, 0, 2], "id": 3})";

Elements good() {
    return {.objects = joined({R"({"type": "Point3D", "loc": [0, 0, 0], "id": 1})",
                               R"({"type": "Point3D", "loc": [1, 0, 0], "id": 2})", ID_LINE}),
            .variables = R"({"id": 4, "changeStatus": "NotChanged", "val": 2.5})",
            .constraints = R"({"type": "Distance3D", "arguments": [0, 1], "value": 1, "id": 5})",
            .equations = R"({"type": "ExpressionEquation", "id": 6, "expression": "v - 2",
                             "descriptors": [{"name": "v", "index": 0, "type": "Variable",
                                              "variableIndex": 0}]})"};
}

TEST(VrexHostileDocuments, AGoodOneIsReadAndUsed) {
    const auto system = read(good());
    ASSERT_EQ(system.geometries().size(), 3U);
    EXPECT_EQ(system.variables().size(), 1U);
    EXPECT_EQ(system.constraints().size(), 1U);
    EXPECT_EQ(system.equations().size(), 1U);
    EXPECT_EQ(geometryOf<VrexLine3D>(system, 2).getDirection().z(), 1.0);
    EXPECT_EQ(nsSystemUse::walk(system), 3U); // The points, the line, the variable with its equation.
    EXPECT_TRUE(nsSystemUse::readAgain(system));
}

/// Every text that is none is refused before a system comes into it.
TEST(VrexHostileDocuments, TextsThatAreNoJsonAreRefused) {
    const std::string text = textOf(good());
    const std::string labelled = R"({"type": "Point3D", "loc": [0, 0, 0], "label": "LABEL"})";
    const auto withLabel = [&](const std::string& label) {
        std::string object = labelled;
        return textOf({.objects = object.replace(object.find("LABEL"), 5, label)});
    };
    std::vector<std::string> texts{
        "",
        " \n\t ",
        "\xef\xbb\xbf",
        text + "}",
        text.substr(0, text.size() - 1) + ",}",
        textOf({.objects = R"({"type": "Point3D", "loc": [NaN, 0, 0]})"}),
        R"({"LinearTolerance": Infinity, "AngularTolerance": 1})",
        withLabel("\xff\xc0\x80\xed\xa0\x80"),
        withLabel("\\ud800"),
        withLabel(std::string("a\x01\x00b", 4)),
        withLabel("\\x"),
        std::string(100'000, '['),
        repeated(100'000, "[") + repeated(100'000, "]"),
        textOf({.further = "\"x\": " + repeated(100'000, "[") + repeated(100'000, "]")}),
        textOf({.objects = R"({"type": "Point3D", "loc": [0, 0, 0], "label": )" +
                           repeated(100'000, R"({"a":)") + "1" + repeated(100'000, "}") + "}"}),
        textOf({.objects = R"({"type": "Point3D", "loc": [1e999, 0, 0]})"}),
        textOf({.objects = R"({"type": "Point3D", "loc": [)" + std::string(10'000, '9') + ", 0, 0]}"}),
        textOf({.objects = R"({"type": "Point3D", "loc": [-, 0, 0]})"}),
        textOf({.objects = R"({"type": "Point3D", "loc": [01, 0, 0]})"}),
    };
    for (std::size_t percent = 0; percent < 100; ++percent) {
        texts.push_back(text.substr(0, text.size() * percent / 100));
    }
    for (const std::string& wrong : texts) {
        EXPECT_THROW(LumoJson::parse(wrong), std::runtime_error) << wrong.substr(0, 80);
        EXPECT_FALSE(nsSystemUse::readAndUse(wrong)) << wrong.substr(0, 80);
    }
}

TEST(VrexHostileDocuments, OfEqualKeysTheLastCounts) {
    const auto tolerances = [](const std::string& members) {
        return nsDocumentTexts::jsonRefusal(LumoJson::parse("{" + members + R"("AngularTolerance": 1})"));
    };
    EXPECT_EQ(tolerances(R"("LinearTolerance": 1e-8, "LinearTolerance": "x", )"),
              "The linear tolerance should be named: LinearTolerance, and should be a number.");
    EXPECT_EQ(tolerances(R"("LinearTolerance": "x", "LinearTolerance": 1e-8, )"), "");
}

TEST(VrexHostileDocuments, ManyKeysAreNoTrouble) {
    std::string further;
    for (int i = 0; i < 20'000; ++i) {
        further.append(further.empty() ? "\"k" : ", \"k").append(std::to_string(i)).append("\": 0");
    }
    EXPECT_EQ(
        refusal({.objects = "{" + further + R"(, "type": "Point3D", "loc": [1, 2, 3]})", .further = further}),
        "");
}

std::string set(const std::string& members) {
    return R"({"type": "RigidSet3D", "cen": [0, 0, 0], "norm": [0, 0, 1], "dir": [1, 0, 0], "arguments": )" +
           members + "}";
}

std::string splineOf(const std::string& degree, const std::string& knots) {
    return R"({"type": "Spline3D", "periodic": false, "points": [0, 1, 2], "weights": [1, 1, 1], "degree": )" +
           degree + R"(, "knots": )" + knots + "}";
}

/// What the text of the format lets through, and what becomes of it.
TEST(VrexHostileDocuments, DegreesThatFitNoKnotsAreReadButNotEvaluated) {
    for (const auto& [degree, knots] : std::vector<std::pair<std::string, std::string>>{
             {"2147483647", "[0, 0, 0, 1, 1, 1]"}, {"-1", "[]"}, {"-2147483648", "[0, 1]"}, {"0", "[]"}}) {
        const auto system = read({.objects = joined({POINT, POINT, POINT, splineOf(degree, knots)})});
        const auto& spline = geometryOf<VrexSpline3D>(system, 3);
        EXPECT_EQ(std::to_string(spline.degree()), degree);
        EXPECT_THROW((void)spline.evaluate(0.5, 0), std::exception);
        nsSystemUse::use(system);
    }
    const std::string net = R"({"type": "NurbsSurface3D", "uDegree": 2147483647, "vDegree": 0, "uKnots": [],
                                "vKnots": [0, 1], "controlPoints": [0], "weights": [1]})";
    const auto system = read({.objects = joined({POINT, net})});
    EXPECT_THROW((void)geometryOf<VrexNURBSSurface3D>(system, 1).evaluate(0.5, 0.5, 0), std::exception);
    nsSystemUse::use(system);
}

TEST(VrexHostileDocuments, AnEmptyNetIsReadAndHasNoFreedom) {
    const auto system = read({.objects = R"({"type": "NurbsSurface3D", "uDegree": 1, "vDegree": 1,
        "uKnots": [], "vKnots": [], "controlPoints": [], "weights": []})"});
    EXPECT_EQ(system.geometries()[0]->dof(), 0);
    nsSystemUse::use(system);
    EXPECT_FALSE(nsSystemUse::readAgain(system)); // Written without its points, it cannot be read.
}

std::string curve(const std::string& descriptors, const std::string& x = "t") {
    return R"({"type": "EvaluatedCurve3D", "cen": [0, 0, 0], "rot": 0, "axis": [0, 0, 1], "y": "0", "z": "0",)"
           R"("x": ")" +
           x + R"(", "descriptors": [)" + descriptors + "]}";
}

std::string descriptor(const std::string& index, const std::string& object) {
    return R"({"name": "q", "type": "Geometry", "index": )" + index + R"(, "object": )" + object + "}";
}

TEST(VrexHostileDocuments, ParametersThatAreNotThereAreZero) {
    for (const char* index : {"4294967295", "3"}) {
        const auto system = read({.objects = joined({POINT, curve(descriptor(index, "0"), "q")})});
        const auto& evaluated = geometryOf<VrexEvaluatedCurve3D>(system, 1);
        EXPECT_EQ(evaluated.descriptors()[0].getValue(), 0.0);
        EXPECT_TRUE(nsSystemUse::readAgain(system));
        nsSystemUse::use(system);
    }
}

TEST(VrexHostileDocuments, RingsOfDescriptorsAreReadCopiedAndWalked) {
    // A curve cannot name one behind it when it is written, nor itself.
    for (const std::string& objects :
         {curve(descriptor("0", "0")), joined({curve(descriptor("0", "1")), curve(descriptor("0", "0"))})}) {
        const auto system = read({.objects = objects});
        nsSystemUse::walk(system);
        const auto copy = system.deepCopy();
        EXPECT_EQ(copy.geometries().size(), system.geometries().size());
        nsSystemUse::breakRings(copy);
        nsSystemUse::use(system);
    }
    const std::string distance = R"({"type": "Distance3D", "arguments": [0, 0], "value": 1})";
    const auto system = read({.objects = curve(R"({"name": "q", "type": "Constraint", "index": 0,
                                                   "constraint": 0})"),
                              .constraints = distance});
    nsSystemUse::use(system);
}

TEST(VrexHostileDocuments, ExpressionsThatAreNoneAreReadButNotEvaluated) {
    const std::string deep = repeated(20'000, "(") + "1" + repeated(20'000, ")");
    const std::string sum = "1" + repeated(20'000, "+1");
    for (const std::string& text : {std::string("2 $ 3"), repeated(20'000, "("), deep, sum, std::string()}) {
        const Elements elements{.objects = curve("", text),
                                .equations = R"({"type": "ExpressionEquation", "descriptors": [],)"
                                             R"("expression": ")" +
                                             text + "\"}"};
        runOnSmallStack([&] { EXPECT_TRUE(nsSystemUse::readAndUse(textOf(elements))) << text.substr(0, 9); });
    }
    const auto system = read({.objects = curve("", "2 $ 3")});
    EXPECT_THROW((void)geometryOf<VrexEvaluatedCurve3D>(system, 0).evaluate(0.5, 0), std::exception);
}

TEST(VrexHostileDocuments, ALinearEquationIsEvaluatedWithAllItsArguments) {
    const auto system = read({.variables = R"({"val": 2})",
                              .equations = R"({"type": "LinearEquation", "coef": 1, "multipliers": [],
                                               "descriptors": []},
                                              {"type": "LinearEquation", "coef": 1, "multipliers": [2, 3],
                                               "descriptors": []})"});
    EXPECT_EQ(system.equations()[0]->evaluate({}).value(), 1.0);
    EXPECT_EQ(refusalOf([&] { (void)system.equations()[1]->evaluate({}); }), "Size mismatch");
}

TEST(VrexHostileDocuments, EqualIdentifiersAreRead) {
    const std::string point = R"({"type": "Point3D", "loc": [1, 2, 3], "id": 1})";
    const auto system = read({.objects = joined({point, point}), .constraints = R"(
        {"type": "Distance3D", "arguments": [0, 1], "value": 1, "id": 1})"});
    nsSystemUse::use(system);
    EXPECT_EQ(system.geometries()[1]->getID(), 1U);
}

TEST(VrexHostileDocuments, LabelsMayHoldAnyCharacter) {
    const auto system = read({.objects = R"({"type": "Point3D", "loc": [1, 2, 3],
                                             "label": "a\u0000b\ud83d\ude00"})"});
    EXPECT_EQ(system.geometries()[0]->label(), std::string("a\0b\xf0\x9f\x98\x80", 7));
    EXPECT_TRUE(nsSystemUse::readAgain(system));
}

/// Sets in pairs, each of all sets of the pair before: as many ways down as there are numbers of 30 bits.
TEST(VrexHostileDocuments, ALatticeOfSetsIsReadAndWalkedSetBySet) {
    std::vector<std::string> objects{R"({"type": "Point3D", "loc": [1, 2, 3], "id": 1})"};
    for (int i = 0; i < 30; ++i) {
        const auto first = static_cast<int>(objects.size()) - 2;
        const std::string members =
            i == 0 ? "[0]" : "[" + std::to_string(first) + ", " + std::to_string(first + 1) + "]";
        for (int k = 0; k < 2; ++k) {
            std::string object = set(members);
            object.insert(object.size() - 1, R"(, "id": )" + std::to_string(objects.size() + 1));
            objects.push_back(object);
        }
    }
    // Without a memory of what was visited it takes minutes.
    EXPECT_TRUE(nsSystemUse::readAndUse(textOf(
        {.objects = joined(objects), .constraints = R"({"type": "Fixation3D", "arguments": [60], "id": 1000,
                                                        "fixType": "Complete3D"})"})));
}

TEST(VrexHostileDocuments, AChainOfSetsNeedsNoStack) {
    std::string objects = POINT;
    for (int i = 0; i < 20'000; ++i) {
        std::string member = "[";
        member.append(std::to_string(i)).append("]");
        objects.append(", ").append(set(member));
    }
    runOnSmallStack([&] { EXPECT_TRUE(nsSystemUse::readAndUse(textOf({.objects = objects}))); });
}

TEST(VrexHostileDocuments, TheFirstOfManyWrongObjectsEndsTheReading) {
    EXPECT_EQ(refusal({.variables = "{}" + repeated(99'999, ",{}")}),
              "The value at key val is not a number.");
}

TEST(VrexHostileDocuments, PlacesBeyondEveryArrayAreRefused) {
    const std::string huge = "18446744073709551615";
    expectRefused({
        {{.objects = set("[" + huge + "]")}, OUT_OF_RANGE},
        {{.objects = joined({POINT, curve(descriptor("0", huge))})}, OUT_OF_RANGE},
        {{.objects = POINT, .constraints = R"({"type": "Fixation3D", "arguments": [)" + huge + "]}"},
         OUT_OF_RANGE},
        {{.objects = POINT, .further = R"("ReferenceGeometries": [)" + huge + "]"}, OUT_OF_RANGE},
        {{.objects = POINT,
          .further = R"("dragTranslations": [{"translation": [1, 0, 0], "objectId": )" + huge + "}]"},
         OUT_OF_RANGE},
        {{.further = R"("dragVariables": [{"targetValue": 1, "objectId": )" + huge + "}]"}, OUT_OF_RANGE},
    });
}

} // namespace
