#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexVariableDescriptorInterface.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "support/LogCapture.h"
#include "support/StreamObjects.h"

namespace nsStreamObjects {
namespace {

struct Row {
    const char* name;
    Bytes object; ///< With the identifier 99.
};

constexpr std::uint64_t ID = 99;
constexpr std::uint64_t UNKNOWN = 70;

// What the objects of the rows refer to, by identifier.
constexpr std::uint64_t POINT = 1, OTHER_POINT = 2, LINE = 3, CIRCLE = 4, SET = 5, PLUG = 6, OTHER_PLUG = 7,
                        VARIABLE = 8, PATTERN = 9, ARRAY = 10, ELEMENT = 11;
constexpr std::uint64_t DISTANCE = 21, SLIDER = 22, CYLINDER_MATE = 23, EQUATION = 24;

Bytes environment() {
    return join({point(POINT), point(OTHER_POINT), line(LINE), circle(CIRCLE), rigidSet(SET, {POINT}),
                 connector(PLUG, SET), connector(OTHER_PLUG, 0), variable(VARIABLE, 2.0),
                 geometry(17, join({u32(0), u64(LINE), f64(2.0)}), PATTERN),
                 geometry(18, ids({PATTERN}), ARRAY), geometry(19, f64(1.5), ELEMENT),
                 constraint({0, ids({POINT, OTHER_POINT})}, {}, DISTANCE, dimensionTail(1.0)),
                 constraint({21, ids({PLUG, OTHER_PLUG})}, {}, SLIDER, mateTail({0.5})),
                 constraint({23, ids({PLUG, OTHER_PLUG})}, {}, CYLINDER_MATE, mateTail({0.5, 1.0})),
                 expressionEquation(0, block(descriptor(VARIABLE, 0, "v")), "v", EQUATION)});
}

constexpr int ENVIRONMENT_SIZE = 15;

/// Expects each row to be refused, with nothing known, and the position as it was.
void expectRefused(const std::vector<Row>& rows) {
    const Bytes before = environment();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Reader reader(join({before, row.object}));
        reader.skip(ENVIRONMENT_SIZE);
        ASSERT_EQ(reader.decoder().position(), before.size());
        EXPECT_EQ(reader.next(), nullptr);
        EXPECT_EQ(reader.decoder().position(), before.size());
        EXPECT_EQ(reader.decoder().findObject(ID), nullptr);
    }
}

/// Expects each row to be read.
void expectRead(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Reader reader(join({environment(), row.object}));
        reader.skip(ENVIRONMENT_SIZE);
        const auto read = reader.next();
        EXPECT_NE(read, nullptr);
        EXPECT_EQ(reader.decoder().findObject(ID), read);
        EXPECT_TRUE(reader.decoder().isAtEnd());
    }
}

Bytes nurbs(const Bytes& rows) {
    return geometry(4, join({u32(1), u32(1), numbers({0.0}), numbers({1.0}), rows}), ID);
}
Bytes spline(const Bytes& controlPoints, const Bytes& interpolated) {
    return geometry(
        8, join({u32(2), numbers({0.0}), flag(false), controlPoints, interpolated, none(), none(), none()}),
        ID);
}
Bytes turned(std::int64_t type, const Bytes& rotation, const Bytes& tail) {
    return geometry(type, join({vector(0.0, 0.0, 0.0), rotation, tail}), ID);
}
Bytes curve(const Bytes& descriptors) {
    return geometry(15,
                    join({vector(0.0, 0.0, 0.0), f64(0.0), vector(1.0, 0.0, 0.0), string("t"), string("t"),
                          string("t"), descriptors, none(), none()}),
                    ID);
}
Bytes pair(std::uint64_t id) { return join({u64(id), f64(1.0)}); }

TEST(VrexStreamDecoder3D, GeometriesReferToKnownGeometriesOfTheirKinds) {
    const Bytes axis = vector(0.0, 0.0, 1.0);
    const auto setOf = [&](std::uint64_t id) { return turned(3, join({axis, f64(0.0)}), ids({POINT, id})); };
    const auto plugOf = [&](std::uint64_t id) {
        return geometry(12, join({u64(id), vector(0.0, 0.0, 0.0), axis, f64(0.0)}), ID);
    };
    const auto two = [](std::int64_t type, std::uint64_t first, std::uint64_t second, const Bytes& tail) {
        return geometry(type, join({u64(first), u64(second), tail}), ID);
    };
    const Bytes range = join({none(), none()});
    expectRead({{"set", setOf(SET)},
                {"connector", plugOf(SET)},
                {"surface", nurbs(block(block(pair(POINT))))},
                {"spline", spline(block(pair(POINT)), ids({OTHER_POINT}))},
                {"spin surface", two(13, LINE, CIRCLE, {})},
                {"sweep surface", two(16, CIRCLE, LINE, range)},
                {"pattern", geometry(17, join({u32(1), u64(LINE), f64(1.0)}), ID)},
                {"array pattern", geometry(18, ids({PATTERN}), ID)}});
    expectRefused({{"set of an unknown member", setOf(UNKNOWN)},
                   {"set of itself", setOf(ID)},
                   {"set of a variable", setOf(VARIABLE)},
                   {"set of a constraint", setOf(DISTANCE)},
                   {"connector of an unknown set", plugOf(UNKNOWN)},
                   {"connector of a point", plugOf(POINT)},
                   {"surface over an unknown point", nurbs(block(block(pair(UNKNOWN))))},
                   {"surface over a line", nurbs(block(block(pair(LINE))))},
                   {"spline over an unknown point", spline(block(pair(UNKNOWN)), none())},
                   {"spline over a line", spline(block(pair(LINE)), none())},
                   {"spline through a line", spline(none(), ids({LINE}))},
                   {"spline through an unknown point", spline(none(), ids({UNKNOWN}))},
                   {"spin surface about its profile", two(13, CIRCLE, LINE, {})},
                   {"spin surface about an unknown line", two(13, UNKNOWN, CIRCLE, {})},
                   {"spin surface of a point", two(13, LINE, POINT, {})},
                   {"sweep surface along its profile", two(16, LINE, CIRCLE, range)},
                   {"sweep surface of an unknown profile", two(16, UNKNOWN, LINE, range)},
                   {"pattern along a point", geometry(17, join({u32(1), u64(POINT), f64(1.0)}), ID)},
                   {"array pattern of a line", geometry(18, ids({PATTERN, LINE}), ID)},
                   {"array pattern of an unknown pattern", geometry(18, ids({UNKNOWN}), ID)}});
}

TEST(VrexStreamDecoder3D, RowsOfControlPointsAreEquallyLong) {
    const Bytes one = block(pair(POINT));
    const Bytes two = block(join({pair(POINT), pair(POINT)}));
    expectRead({{"as long", nurbs(block(join({two, two})))}, {"no rows", nurbs(none())}});
    expectRefused({{"shorter", nurbs(block(join({two, one})))},
                   {"longer", nurbs(block(join({one, two})))},
                   {"empty", nurbs(block(join({one, none()})))}});
}

TEST(VrexStreamDecoder3D, ListsEndWithTheirBlocks) {
    const Bytes number = f64(1.0);
    const Bytes half(4);
    expectRefused(
        {{"a pair and a half", spline(block(join({pair(POINT), u64(POINT)})), none())},
         {"identifiers and a half", spline(none(), block(join({u64(POINT), half})))},
         {"knots and a half", geometry(8,
                                       join({u32(2), block(join({number, half})), flag(false), none(), none(),
                                             none(), none(), none()}),
                                       ID)},
         {"an option of two", geometry(7,
                                       join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), number,
                                             block(join({number, number})), none()}),
                                       ID)},
         {"half an option",
          geometry(7, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), number, block(half), none()}),
                   ID)}});
}

TEST(VrexStreamDecoder3D, RotationsNeedAnAxis) {
    const Bytes zero = vector(0.0, 0.0, 0.0);
    const Bytes texts = join({string(""), string(""), string(""), none(), none(), none()});
    expectRead({{"a set not turned", turned(3, join({zero, f64(0.0)}), none())},
                {"a curve not turned", turned(15, join({f64(0.0), zero}), texts)}});
    expectRefused({{"set", turned(3, join({zero, f64(1.0)}), none())},
                   {"curve", turned(15, join({f64(1.0), zero}), texts)}});
}

TEST(VrexStreamDecoder3D, DescriptorsNameParametersThatAreThere) {
    const auto equation = [](const Bytes& descriptors) {
        return expressionEquation(0, descriptors, "v", ID);
    };
    const auto of = [](std::uint64_t id, std::int32_t index) { return block(descriptor(id, index, "v")); };
    expectRead({{"curve", curve(of(POINT, 2))},
                {"equation", equation(of(VARIABLE, 0))},
                {"a constraint has no parameters to count", equation(of(DISTANCE, 6))},
                {"nor has an equation", equation(of(EQUATION, -1))}});
    expectRefused({{"curve of an unknown object", curve(of(UNKNOWN, 0))},
                   {"equation of an unknown object", equation(of(UNKNOWN, 0))},
                   {"curve, one too far", curve(of(POINT, 3))},
                   {"equation, one too far", equation(of(VARIABLE, 1))},
                   {"below the first", equation(of(POINT, -1))},
                   {"a callback's, one too far", callbackEquation(0, of(VARIABLE, 1), 0, ID)}});
}

Bytes bound(std::int64_t type, const Bytes& arguments, const Bytes& fields = {}, const Bytes& tail = {}) {
    return constraint({type, arguments}, fields, ID, tail);
}

TEST(VrexStreamDecoder3D, ConstraintsReferToKnownGeometriesOfTheirKinds) {
    const Bytes tail = dimensionTail(1.0);
    expectRead({{"parallelism", bound(7, ids({LINE, CIRCLE}))},
                {"distance of a geometry from itself", bound(0, ids({LINE, LINE}), {}, tail)}});
    expectRefused(
        {{"unknown geometry", bound(7, ids({LINE, UNKNOWN}))},
         {"a variable", bound(7, ids({LINE, VARIABLE}))},
         {"a constraint", bound(7, ids({LINE, DISTANCE}))},
         {"direction distance of a line", bound(1, ids({POINT, LINE}), vector(0.0, 0.0, 1.0), tail)},
         {"parallel distance of a line", bound(2, ids({LINE, POINT, LINE}), {}, tail)},
         {"symmetry about a line", bound(13, ids({POINT, OTHER_POINT, LINE}))},
         {"midpoint that is a line", bound(14, ids({LINE, LINE, LINE}))},
         {"half angle of a circle", bound(29, ids({CIRCLE}), {}, tail)},
         {"normal of a curve", bound(30, ids({CIRCLE, LINE}))},
         {"pattern value of a line", bound(32, ids({LINE}), {}, tail)},
         {"length from a line", bound(33, ids({LINE, POINT, CIRCLE}), {}, tail)},
         {"value of a point", bound(40, ids({POINT}), {}, tail)},
         {"fixation of a geometry as a variable", bound(12, ids({POINT}))},
         {"fixation of a variable as a geometry", bound(4, ids({VARIABLE}), u32(0))},
         {"interval of a geometry", bound(20, ids({POINT}))},
         {"mate of a rigid set", bound(21, ids({PLUG, SET}), {}, mateTail({0.5}))},
         {"mate of a point", bound(22, ids({POINT, PLUG}), {}, mateTail({}))}});
}

TEST(VrexStreamDecoder3D, ConstraintsHaveAsManyGeometriesAsTheirKinds) {
    const Bytes tail = dimensionTail(1.0);
    expectRefused(
        {{"none of two", bound(7, none())},
         {"one of two", bound(7, ids({LINE}))},
         {"three of two", bound(7, ids({LINE, LINE, LINE}))},
         {"two of three", bound(13, ids({POINT, OTHER_POINT}))},
         {"none of one", bound(4, none(), u32(0))},
         {"none of one dimension", bound(29, none(), {}, tail)},
         {"one of two of a mate", bound(22, ids({PLUG}), {}, mateTail({}))},
         {"no variable", bound(12, none())},
         {"two variables", bound(20, ids({VARIABLE, VARIABLE}))},
         {"a relation's", bound(41, ids({PLUG}), join({ids({SLIDER, SLIDER}), u64(0), u64(0), f64(1.0)}))},
         {"half an identifier", bound(4, block(Bytes(4)), u32(0))}});
}

TEST(VrexStreamDecoder3D, ValuesThatSelectBehaviourStandInTheirTables) {
    const Bytes distances = ids({POINT, OTHER_POINT});
    const auto withComponents = [&](std::int64_t first, std::int64_t second) {
        return constraint({0, distances, first, second}, {}, ID, dimensionTail(1.0));
    };
    const auto incidence = [&](std::int64_t type) { return bound(3, distances, u32(type)); };
    const auto fixation = [](std::int64_t type) { return bound(4, ids({POINT}), u32(type)); };
    const auto radii = [](std::int64_t first, std::int64_t second) {
        return bound(18, ids({CIRCLE, CIRCLE}), join({u32(first), u32(second)}));
    };
    const auto pattern = [](std::int64_t type) {
        return geometry(17, join({u32(type), u64(LINE), f64(1.0)}), ID);
    };
    const auto condition = [](std::int64_t type) { return expressionEquation(type, none(), "1", ID); };
    expectRead({{"components", withComponents(0, 8)},
                {"lowest incidence", incidence(-1)},
                {"highest incidence", incidence(1)},
                {"lowest fixation", fixation(-1)},
                {"highest fixation", fixation(7)},
                {"radii", radii(0, 2)},
                {"pattern", pattern(1)},
                {"lowest condition", condition(-1)},
                {"highest condition", condition(5)}});
    expectRefused({{"first component too high", withComponents(9, 0)},
                   {"second component too high", withComponents(0, 9)},
                   {"component below", withComponents(-1, 0)},
                   {"incidence above", incidence(2)},
                   {"incidence below", incidence(-2)},
                   {"fixation above", fixation(8)},
                   {"fixation below", fixation(-2)},
                   {"first radius above", radii(3, 0)},
                   {"second radius below", radii(0, -1)},
                   {"pattern above", pattern(2)},
                   {"pattern below", pattern(-1)},
                   {"condition above", condition(6)},
                   {"condition below", condition(-2)},
                   {"highest number", condition(0x7FFFFFFF)}});
}

TEST(VrexStreamDecoder3D, ValueVariablesAreKnownVariables) {
    const auto dimension = [](const Bytes& id) {
        return bound(0, ids({POINT, LINE}), {}, join({f64(1.0), flag(false), id, none(), none()}));
    };
    expectRead({{"variable", dimension(ids({VARIABLE}))}});
    expectRefused({{"unknown", dimension(ids({UNKNOWN}))},
                   {"a point", dimension(ids({POINT}))},
                   {"two", dimension(ids({VARIABLE, VARIABLE}))}});
}

TEST(VrexStreamDecoder3D, MatesHaveARecordForEachOfTheirDegrees) {
    const auto slider = [](const Bytes& tail) { return bound(21, ids({PLUG, OTHER_PLUG}), {}, tail); };
    const Bytes record = block(join({none(), none(), f64(0.5), flag(true)}));
    const Bytes longer = block(join({none(), none(), f64(0.5), flag(true), flag(true)}));
    expectRead({{"one", slider(join({block(record), none()}))}});
    expectRefused({{"none", slider(join({none(), none()}))},
                   {"two", slider(join({block(join({record, record})), none()}))},
                   {"one that is too long", slider(join({block(longer), none()}))},
                   {"nothing behind the records", slider(block(record))},
                   {"something behind the records", slider(join({block(record), some(1.0)}))},
                   {"of a kind without degrees",
                    bound(22, ids({PLUG, OTHER_PLUG}), {}, join({block(record), none()}))}});
}

TEST(VrexStreamDecoder3D, RelationsReferToConstraintsOfTheirKinds) {
    const auto relation = [](const Bytes& mates, std::uint64_t first, std::uint64_t second) {
        return bound(41, none(), join({mates, u64(first), u64(second), f64(1.0)}));
    };
    const auto equalDimensions = [](const Bytes& list) { return bound(39, ids({ELEMENT}), list); };
    const auto equalParameters = [](const Bytes& list) {
        return bound(19, ids({CIRCLE}), join({list, u32(6), u32(7), u32(8), u32(9)}));
    };
    expectRead({{"relation", relation(ids({SLIDER, CYLINDER_MATE}), 0, 1)},
                {"dimensions", equalDimensions(ids({DISTANCE, DISTANCE}))},
                {"no dimensions", equalDimensions(none())},
                {"parameters", equalParameters(ids({DISTANCE, SLIDER}))}});
    expectRefused({{"first index too high", relation(ids({SLIDER, CYLINDER_MATE}), 1, 1)},
                   {"second index too high", relation(ids({SLIDER, CYLINDER_MATE}), 0, 2)},
                   {"index far too high", relation(ids({SLIDER, SLIDER}), 1ULL << 63U, 0)},
                   {"one mate", relation(ids({SLIDER}), 0, 0)},
                   {"three mates", relation(ids({SLIDER, SLIDER, SLIDER}), 0, 0)},
                   {"unknown mate", relation(ids({SLIDER, UNKNOWN}), 0, 0)},
                   {"a distance as mate", relation(ids({SLIDER, DISTANCE}), 0, 0)},
                   {"a geometry as mate", relation(ids({SLIDER, POINT}), 0, 0)},
                   {"a mate as dimension", equalDimensions(ids({DISTANCE, SLIDER}))},
                   {"unknown dimension", equalDimensions(ids({UNKNOWN}))},
                   {"dimensions of a point", bound(39, ids({POINT}), none())},
                   {"parameters of one", equalParameters(ids({DISTANCE}))},
                   {"parameters of three", equalParameters(ids({DISTANCE, DISTANCE, DISTANCE}))},
                   {"parameters of an equation", equalParameters(ids({DISTANCE, EQUATION}))}});
}

TEST(VrexStreamDecoder3D, InstancesHaveToFit) {
    const auto instance = [](const Bytes& arguments, const Bytes& coefficients) {
        return bound(31, arguments, coefficients);
    };
    const Bytes points = ids({POINT, OTHER_POINT, ARRAY});
    expectRead({{"points", instance(points, block(u32(-1)))}});
    expectRefused({{"no coefficient", instance(points, none())},
                   {"a coefficient too many", instance(points, block(join({u32(1), u32(1)})))},
                   {"a coefficient and a half", instance(points, block(Bytes(6)))},
                   {"of two kinds", instance(ids({POINT, LINE, ARRAY}), block(u32(1)))},
                   {"by a pattern", instance(ids({POINT, OTHER_POINT, PATTERN}), block(u32(1)))}});
}

TEST(VrexStreamDecoder3D, TypesWithoutAFormAreRefused) {
    const Bytes much(200);
    expectRefused({{"evaluated surface", geometry(14, {}, ID)},
                   {"geometry above", geometry(20, much, ID)},
                   {"geometry below", geometry(-1, much, ID)},
                   {"constraint above", constraint({42, none()}, {}, ID)},
                   {"constraint below", constraint({-1, none()}, {}, ID)}});
}

TEST(VrexStreamDecoder3D, AnObjectFillsItsBlock) {
    const Bytes good = point(ID);
    Bytes longer = good;
    longer.push_back(0);
    longer[1] += 1;
    const Bytes cut(good.begin(), good.end() - 1);
    Bytes shorter = cut;
    shorter[1] -= 1;
    Bytes untagged = good;
    untagged[0] = 0x31;
    expectRead({{"good", good}});
    expectRefused({{"longer", longer},
                   {"shorter", shorter},
                   {"cut", cut},
                   {"without tag", untagged},
                   {"without kind", block(Bytes(3))},
                   {"empty", none()},
                   {"nothing", {}}});
}

TEST(VrexStreamDecoder3D, LabelsAreCheckedStrings) {
    const auto labelled = [](const Bytes& label) {
        return block(join({u32(3), f64(1.0), u64(ID), u32(0), u32(0), label, flag(false)}));
    };
    expectRead({{"empty", labelled(string(""))}, {"ends early", labelled(join({u32(4), {'a', 0, 'b', 0}}))}});
    expectRefused({{"without terminator", labelled(join({u32(2), {'a', 'b'}}))},
                   {"without a byte", labelled(u32(0))},
                   {"longer than the block", labelled(join({u32(100), {'a', 0}}))},
                   {"longest", labelled(join({u32(-1), {'a', 0}}))}});
}

TEST(VrexStreamDecoder3D, AConstraintBeforeItsPointsCannotBeRead) {
    Reader reader(join({constraint({0, ids({1, 2})}, {}, 5, dimensionTail(1.0)), point(1), point(2)}));
    EXPECT_EQ(reader.next(), nullptr);
}

TEST(VrexStreamDecoder3D, AVariableTakesThePlaceOfAnEntityOfItsIdentifier) {
    Reader reader(join({point(5), rigidSet(6, {5}), variable(5, 1.0), rigidSet(7, {5})}));
    EXPECT_EQ(reader.skip(3).next(), nullptr);
    EXPECT_EQ(reader.decoder().findEntity(5), nullptr);
    EXPECT_NE(reader.decoder().findEntity(6), nullptr);
}

TEST(VrexStreamDecoder3D, AnObjectKindThatThereIsNotThrows) {
    for (const std::int64_t kind : {4, -1}) {
        const LogCapture log;
        Reader reader(join({point(1), block(join({u32(kind), f64(1.0)}))}));
        reader.skip(1);
        const std::uint32_t position = reader.decoder().position();
        EXPECT_THROW(reader.next(), std::bad_optional_access);
        EXPECT_EQ(reader.decoder().position(), position);
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].text, "VrexObjectDecoder::decode(): bad optional access");
    }
}

TEST(VrexStreamDecoder3D, AnObjectKindThatThereIsNotIsNotReadBeyondTheInput) {
    Bytes bytes = block(join({u32(4), f64(1.0)}));
    bytes.pop_back();
    EXPECT_EQ(Reader(bytes).next(), nullptr);
}

} // namespace
} // namespace nsStreamObjects
