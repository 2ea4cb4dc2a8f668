#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexInvalidArgumentException.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"
#include "support/SamplesRelations.h"
#include "support/SmallStack.h"
#include "support/StreamEncoding.h"
#include "support/StreamObjects.h"

namespace {

using nsStreamEncoding::encoded;
using nsStreamObjects::block;
using nsStreamObjects::Bytes;
using nsStreamObjects::f64;
using nsStreamObjects::ids;
using nsStreamObjects::join;
using nsStreamObjects::none;
using nsStreamObjects::u32;
using nsStreamObjects::u64;
using Geometries = VrexStreamGraphEncoder::Geometries;
using Constraints = VrexStreamGraphEncoder::Constraints;
using Components = VrexStreamGraphEncoder::Components;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// What the encoder hands over.
Bytes dumped(VrexStreamGraphEncoder& encoder) {
    unsigned int size = 0;
    unsigned char* const buffer = encoder.dumpBuffer(size);
    EXPECT_NE(buffer, nullptr);
    const Bytes bytes(buffer, buffer + size);
    VrexStreamGraphEncoder::freeBuffer(buffer);
    return bytes;
}

Bytes flat(const Geometries& geometries, const Constraints& constraints) {
    VrexStreamGraphEncoder3D encoder;
    EXPECT_TRUE(encoder.encodeConstraintGraph(geometries, constraints));
    return dumped(encoder);
}

Bytes ofComponents(const Components& components) {
    VrexStreamGraphEncoder3D encoder;
    EXPECT_TRUE(encoder.encodeConstraintGraphs(components));
    return dumped(encoder);
}

/// A list of objects, as each of them is written alone.
Bytes list(std::initializer_list<std::shared_ptr<VrexBaseObject>> objects) {
    Bytes payload;
    for (const auto& object : objects) {
        nsStreamProbe::append(payload, encoded(object));
    }
    return block(payload);
}

std::shared_ptr<VrexPoint3D> point(std::uint64_t id) { return numbered(VrexPoint3D::create(1, 2, 3), id); }
std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id) {
    return numbered(VrexGeometryVariable::create(2.5), id);
}
std::shared_ptr<VrexRigidSet3D> setOf(std::vector<std::shared_ptr<VrexGeometry3D>> members,
                                      std::uint64_t id) {
    return numbered(VrexRigidSet3D::create(std::move(members)), id);
}
std::shared_ptr<VrexDistance3D> distance(const std::shared_ptr<VrexGeometry3D>& first,
                                         const std::shared_ptr<VrexGeometry3D>& second, std::uint64_t id) {
    return numbered(VrexDistance3D::create(first, second, 1.0, WHOLE, WHOLE), id);
}
std::shared_ptr<VrexConnectedComponent> component(const Geometries& geometries,
                                                  const Constraints& constraints, std::uint64_t id) {
    auto made = std::make_shared<VrexConnectedComponent>(geometries, constraints);
    made->assignID(id);
    return made;
}
/// Cannot be written.
std::shared_ptr<VrexPattern3D> unfit() {
    return VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0);
}

double zero(const double* /*values*/, unsigned int /*count*/, double* /*gradient*/) { return 0.0; }

TEST(VrexStreamGraphEncoder3D, WithoutObjectsThereAreTwoEmptyBlocks) {
    EXPECT_EQ(flat({}, {}), (Bytes{0x30, 0x0A, 0, 0, 0, 0x30, 0, 0, 0, 0, 0x30, 0, 0, 0, 0}));
    EXPECT_EQ(flat({nullptr}, {nullptr, nullptr}), flat({}, {}));
}

/// The example of docs/stream-format.md.
TEST(VrexStreamGraphEncoder3D, APointWithItsFixationByteForByte) {
    const auto fixed = numbered(VrexPoint3D::create(1.0, -2.0, 0.5), 1);
    fixed->label() = "A";
    const Bytes expected{
        0x30, 0xA0, 0x00, 0x00, 0x00,                   // system, 160 bytes
        0x30, 0x3C, 0x00, 0x00, 0x00,                   // geometries, 60 bytes
        0x30, 0x37, 0x00, 0x00, 0x00,                   // object, 55 bytes
        0x02, 0x00, 0x00, 0x00,                         // geometry
        0x00, 0x00, 0x00, 0x00,                         // Point3D
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F, // x = 1
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, // y = -2
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xE0, 0x3F, // z = 0.5
        0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // identifier 1
        0xFF, 0xFF, 0xFF, 0xFF,                         // status unknown
        0x02, 0x00, 0x00, 0x00,                         // not changed
        0x02, 0x00, 0x00, 0x00, 0x41, 0x00,             // label "A"
        0x01,                                           // dirty
        0x30, 0x5A, 0x00, 0x00, 0x00,                   // constraints, 90 bytes
        0x30, 0x55, 0x00, 0x00, 0x00,                   // object, 85 bytes
        0x00, 0x00, 0x00, 0x00,                         // constraint
        0x04, 0x00, 0x00, 0x00,                         // Fixation3D
        0x30, 0x08, 0x00, 0x00, 0x00,                   // arguments
        0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // the point
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // components: whole
        0x00, 0x00, 0x00, 0x00,                         // complete
        0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // identifier 1
        0xFF, 0xFF, 0xFF, 0xFF,                         // status unknown
        0xFF, 0xFF, 0xFF, 0xFF,                         // satisfied unknown
        0x01, 0x00, 0x00, 0x00, 0x00,                   // no label
        0x01,                                           // dirty
        0x00, 0x00, 0x00, 0x00,                         // alignment current
        0x00, 0x00, 0x00, 0x00,                         // orientation current
        0x30, 0x00, 0x00, 0x00, 0x00,                   // no help point 1
        0x30, 0x00, 0x00, 0x00, 0x00,                   // no help point 2
        0x30, 0x00, 0x00, 0x00, 0x00,                   // no help parameter 1
        0x30, 0x00, 0x00, 0x00, 0x00,                   // no help parameter 2
        0x00, 0x00,                                     // neither is held
    };
    EXPECT_EQ(flat({fixed}, {numbered(VrexFixation3D::create(fixed, VrexFixation3DType::Complete3D), 1)}),
              expected);
}

TEST(VrexStreamGraphEncoder3D, AGraphIsGeometriesThenConstraints) {
    const auto a = point(1);
    const auto b = point(2);
    const auto between = distance(a, b, 1);
    EXPECT_EQ(flat({a, b}, {between}), block(join({list({a, b}), list({between})})));
}

TEST(VrexStreamGraphEncoder3D, NullsAndRepeatsAreLeftOut) {
    const auto a = point(2);
    const auto b = point(1);
    const auto between = distance(a, b, 1);
    EXPECT_EQ(flat({nullptr, a, b, a, nullptr, b}, {between, nullptr, between}),
              block(join({list({a, b}), list({between})})));
}

TEST(VrexStreamGraphEncoder3D, APartStandsBeforeWhatIsMadeOfIt) {
    const auto a = point(5);
    const auto b = point(4);
    const auto inner = setOf({a}, 3);
    const auto outer = setOf({inner, b, a}, 2);
    const auto c = point(1);
    // The parts are not given.
    EXPECT_EQ(flat({outer, c}, {}), block(join({list({a, inner, b, outer, c}), none()})));
    // Given, they keep their place only where it is early enough.
    EXPECT_EQ(flat({c, b, outer, a}, {}), block(join({list({c, b, a, inner, outer}), none()})));
}

TEST(VrexStreamGraphEncoder3D, AVariableStandsBeforeTheCurveThatDependsOnIt) {
    const auto radius = variable(9);
    const auto base = point(8);
    const auto curve =
        numbered(VrexEvaluatedCurve3D::create({}, VrexQuaternionT<double>::ONE(),
                                              {{radius, 0, "r"}, {base, 0, "x"}}, "r * t", "x", "t"),
                 7);
    EXPECT_EQ(flat({curve}, {}), block(join({list({base, radius, curve}), none()})));
    EXPECT_EQ(flat({radius, curve, radius}, {}), block(join({list({radius, base, curve}), none()})));
}

TEST(VrexStreamGraphEncoder3D, VariablesOfConstraintsAreAddedOnce) {
    const auto a = point(1);
    const auto b = point(2);
    const auto held = variable(3);
    const auto bound = variable(4);
    const auto dimension = distance(a, b, 1);
    dimension->bindVariable(bound);
    const auto again = distance(b, a, 2);
    again->bindVariable(bound);
    const auto fixation = numbered(VrexVariableFixation3D::create(held), 3);
    const auto interval =
        numbered(VrexMateDimensionInterval3D::create(variable(5), {}, 0,
                                                     VrexMateDimensionInterval3DType::LinearDimension3D),
                 4);
    EXPECT_EQ(flat({held, a, b}, {dimension, again, fixation, interval}),
              block(join({list({held, a, b, bound, interval->variable()}),
                          list({dimension, again, fixation, interval})})));
}

/// Equations tell their geometries apart by identifier; the stream must not lose one for that.
TEST(VrexStreamGraphEncoder3D, VariablesOfEquationsAreAddedWhateverTheirIdentifiers) {
    const auto a = VrexGeometryVariable::create(1.0);
    const auto b = VrexGeometryVariable::create(2.0);
    const auto equation = VrexExpressionEquation::create({{a, 0, "a"}, {b, 0, "b"}, {a, 0, "c"}},
                                                         VrexEquationConditionType::equalToZero, "a - b + c");
    EXPECT_EQ(flat({}, {equation}), block(join({list({a, b}), list({equation})})));
}

TEST(VrexStreamGraphEncoder3D, GeometriesOfConstraintsAreNotAdded) {
    const auto a = point(1);
    const auto between = distance(a, point(2), 1);
    EXPECT_EQ(flat({a}, {between}), block(join({list({a}), list({between})})));
}

TEST(VrexStreamGraphEncoder3D, AConstraintStandsBehindThoseThatItIsMadeOf) {
    const auto a = point(1);
    const auto b = point(2);
    const auto bound = variable(3);
    const auto first = distance(a, b, 9);
    first->bindVariable(bound);
    const auto second = distance(b, a, 8);
    const auto element = numbered(VrexEqualDimensionElement3D::create(1.0), 4);
    const auto equal = numbered(VrexEqualDimension3D::create({first, second}, element), 7);
    // The variable of a part is added, too.
    EXPECT_EQ(flat({a, b, element}, {equal, second}),
              block(join({list({a, b, element, bound}), list({first, second, equal})})));
}

TEST(VrexStreamGraphEncoder3D, WithoutComponentsTheBlockIsEmpty) {
    EXPECT_EQ(ofComponents({}), none());
    EXPECT_EQ(ofComponents({nullptr}), none());
}

TEST(VrexStreamGraphEncoder3D, AComponentIsIdentifierListsAndSubsets) {
    const auto a = point(1);
    const auto b = point(2);
    const auto between = distance(a, b, 1);
    const auto first = component({a, b}, {between}, 0x0807060504030201);
    first->getOverConstrainedSubsets() = {{6, 5}, {}, {7}};
    const auto second = component({}, {}, 5);
    EXPECT_EQ(ofComponents({first, nullptr, second}),
              block(join({Bytes{1, 2, 3, 4, 5, 6, 7, 8}, list({a, b}), list({between}),
                          block(join({ids({6, 5}), none(), ids({7})})), u64(5), none(), none(), none()})));
}

TEST(VrexStreamGraphEncoder3D, ComponentsWithEqualIdentifiersKeepTheirObjects) {
    const auto a = point(1);
    const auto b = point(2);
    const auto c = point(3);
    EXPECT_EQ(ofComponents({component({a}, {}, 0), component({b}, {}, 0), component({c}, {}, 0)}),
              block(join({u64(0), list({a}), none(), none(), u64(0), list({b}), none(), none(), u64(0),
                          list({c}), none(), none()})));
}

TEST(VrexStreamGraphEncoder3D, AGeometryOfTwoComponentsIsWrittenInEach) {
    const auto fixed = point(1);
    const auto fixation = numbered(VrexFixation3D::create(fixed, VrexFixation3DType::Complete3D), 1);
    const auto a = setOf({fixed}, 2);
    const LogCapture log;
    EXPECT_EQ(ofComponents({component({}, {fixation}, 1), component({a}, {fixation}, 2)}),
              block(join({u64(1), list({fixed}), list({fixation}), none(), u64(2), list({fixed, a}),
                          list({fixation}), none()})));
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexStreamGraphEncoder3D, ADragIsGeometriesTransformsParameters) {
    const auto a = point(1);
    const auto circle = numbered(VrexCircle3D::create({}, {0.0, 0.0, 1.0}, 1.0), 2);
    VrexTransform3D transform;
    const VrexTransformMatrix3D matrix({{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {0, 0, 0, 1}}});
    ASSERT_TRUE(transform.applyTransformation(a, matrix));
    ASSERT_TRUE(transform.applyTransformParameters(circle, VrexDragParameter3DType::MinorRadius3D, 0.5));
    ASSERT_TRUE(transform.applyTransformParameters(circle, VrexDragParameter3DType::Unknown, 1.5));
    // Left out.
    ASSERT_TRUE(transform.applyVariableTransform(variable(3), 1.0));
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.encodeDragData({a, circle}, transform));
    Bytes numbers;
    for (const double number : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0, 0, 0, 1}) {
        nsStreamProbe::append(numbers, f64(number));
    }
    EXPECT_EQ(dumped(encoder), block(join({list({a, circle}), block(block(join({u64(1), numbers}))),
                                           block(join({block(join({u64(2), f64(0.5), u32(3)})),
                                                       block(join({u64(2), f64(1.5), u32(-1)}))}))})));
}

TEST(VrexStreamGraphEncoder3D, ADragOfNothing) {
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.encodeDragData({}, {}));
    EXPECT_EQ(dumped(encoder), block(join({none(), none(), none()})));
    // Records without an entity, which only a replacement of all lets in.
    VrexTransform3D transform;
    transform.setDragParameters({{nullptr, VrexDragParameter3DType::Radius3D, 1.0}});
    ASSERT_TRUE(encoder.encodeDragData({}, transform));
    EXPECT_EQ(dumped(encoder), block(join({none(), none(), none()})));
}

/// The stream ends where the object is refused, in blocks of length 0.
TEST(VrexStreamGraphEncoder3D, ADragThatCannotBeWrittenIsEncodedAllTheSame) {
    VrexStreamGraphEncoder3D encoder;
    const auto a = point(1);
    EXPECT_TRUE(encoder.encodeDragData({a, unfit(), point(2)}, {}));
    const Bytes bytes = dumped(encoder);
    EXPECT_EQ(bytes, join({none(), none(), encoded(a)}));
    VrexStreamGraphDecoder3D decoder;
    Geometries geometries;
    VrexTransform3D transform;
    EXPECT_FALSE(
        decoder.decodeDragData(bytes.data(), static_cast<unsigned int>(bytes.size()), geometries, transform));
    EXPECT_THROW((void)encoder.encodeDragData({makeSample<VrexEvaluatedSurface3D>()}, {}),
                 VrexInvalidArgumentException);
}

TEST(VrexStreamGraphEncoder3D, TheBufferIsHandedOverOnce) {
    VrexStreamGraphEncoder3D encoder;
    unsigned int size = 7;
    EXPECT_EQ(encoder.dumpBuffer(size), nullptr);
    EXPECT_EQ(size, 0U);
    ASSERT_TRUE(encoder.encodeConstraintGraph({}, {}));
    unsigned char* const buffer = encoder.dumpBuffer(size);
    EXPECT_NE(buffer, nullptr);
    EXPECT_EQ(size, 15U);
    EXPECT_EQ(encoder.dumpBuffer(size), nullptr);
    EXPECT_EQ(size, 0U);
    VrexStreamGraphEncoder::freeBuffer(buffer);
    VrexStreamGraphEncoder::freeBuffer(nullptr);
}

TEST(VrexStreamGraphEncoder3D, ResetFreesTheBuffer) {
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.encodeConstraintGraph({}, {}));
    encoder.reset();
    unsigned int size = 7;
    EXPECT_EQ(encoder.dumpBuffer(size), nullptr);
    EXPECT_EQ(size, 0U);
    encoder.reset();
}

TEST(VrexStreamGraphEncoder3D, ABufferCanBeAssigned) {
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.assign(7));
    ASSERT_TRUE(encoder.assign(100));
    unsigned int size = 0;
    VrexStreamGraphEncoder::freeBuffer(encoder.dumpBuffer(size));
    EXPECT_EQ(size, 100U);
}

TEST(VrexStreamGraphEncoder3D, AMoveTakesTheBufferAlong) {
    VrexStreamGraphEncoder3D source;
    ASSERT_TRUE(source.encodeConstraintGraph({}, {}));
    VrexStreamGraphEncoder3D target(std::move(source));
    unsigned int size = 7;
    EXPECT_EQ(source.dumpBuffer(size), nullptr); // NOLINT: what was moved from has no buffer
    VrexStreamGraphEncoder3D assigned;
    ASSERT_TRUE(assigned.encodeConstraintGraphs({}));
    assigned = std::move(target);
    EXPECT_EQ(dumped(assigned), flat({}, {}));
    static_assert(!std::is_copy_constructible_v<VrexStreamGraphEncoder3D> &&
                  !std::is_copy_assignable_v<VrexStreamGraphEncoder3D>);
}

TEST(VrexStreamGraphEncoder3D, AFailureLeavesTheFormerBuffer) {
    const Geometries surface{makeSample<VrexEvaluatedSurface3D>()};
    const Constraints lambda{VrexCallbackEquation::create(VrexEquationConditionType::equalToZero, {})};
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.encodeConstraintGraph({}, {}));
    EXPECT_FALSE(encoder.encodeConstraintGraph({point(1), unfit()}, {}));
    EXPECT_FALSE(encoder.encodeConstraintGraph({point(1)}, lambda));
    EXPECT_FALSE(encoder.encodeConstraintGraphs({component({unfit()}, {}, 1)}));
    EXPECT_THROW((void)encoder.encodeConstraintGraph(surface, {}), VrexInvalidArgumentException);
    EXPECT_THROW((void)encoder.encodeConstraintGraphs({component(surface, {}, 1)}),
                 VrexInvalidArgumentException);
    EXPECT_EQ(dumped(encoder), flat({}, {}));
}

TEST(VrexStreamGraphEncoder3D, APlainCallbackIsEncoded) {
    const auto equation =
        VrexCallbackEquation::create(VrexEquationConditionType::equalToZero, VrexEquationCallback(&zero));
    EXPECT_EQ(flat({}, {equation}), block(join({none(), list({equation})})));
}

class Advice {
public:
    /// How often equal identifiers were advised of; nothing else is logged.
    std::size_t count() const {
        for (const LogCapture::Line& line : m_log.lines()) {
            EXPECT_EQ(line.level, 2U);
            EXPECT_NE(line.text.find("equal identifiers"), std::string::npos);
        }
        return m_log.lines().size();
    }

private:
    LogCapture m_log;
};

TEST(VrexStreamGraphEncoder3D, EqualIdentifiersAreAdvisedOfOnce) {
    const Advice advice;
    flat({point(0), point(0), point(0)}, {distance(point(1), point(2), 3), distance(point(1), point(2), 3)});
    EXPECT_EQ(advice.count(), 1U);
    flat({point(2), point(1), point(2)}, {});
    EXPECT_EQ(advice.count(), 2U);
    flat({}, {distance(point(1), point(2), 3), distance(point(1), point(2), 3)});
    EXPECT_EQ(advice.count(), 3U);
    ofComponents({component({point(1)}, {}, 1), component({point(1)}, {}, 2)});
    EXPECT_EQ(advice.count(), 4U);
    VrexStreamGraphEncoder3D encoder;
    ASSERT_TRUE(encoder.encodeDragData({point(1), point(1)}, {}));
    EXPECT_EQ(advice.count(), 5U);
}

TEST(VrexStreamGraphEncoder3D, DifferentIdentifiersAreNotAdvisedOf) {
    const Advice advice;
    const auto a = point(1);
    const auto b = point(2);
    // Geometries and constraints may have the same, and an object equals itself.
    flat({b, a, b}, {distance(a, b, 2), distance(a, b, 1)});
    ofComponents({component({a}, {}, 1), component({b, a}, {}, 1)});
    EXPECT_EQ(advice.count(), 0U);
}

TEST(VrexStreamGraphEncoder3D, AChainOfAMillionSetsIsOrdered) {
    constexpr std::uint64_t COUNT = 1'000'000;
    runOnSmallStack([] {
        std::shared_ptr<VrexRigidSet3D> set = setOf({}, 1);
        for (std::uint64_t id = 2; id <= COUNT; ++id) {
            set = setOf({set}, id);
        }
        const Bytes bytes = flat({set}, {});
        const std::size_t each = encoded(set).size();
        ASSERT_EQ(bytes.size(), 15 + COUNT * each - sizeof(std::uint64_t));
        // The last is the outermost.
        EXPECT_TRUE(std::equal(bytes.end() - static_cast<std::ptrdiff_t>(each) - 5, bytes.end() - 5,
                               encoded(set).begin()));
    });
}

TEST(VrexStreamGraphEncoder3D, ALongChainOfConstraintsIsOrdered) {
    constexpr std::uint64_t COUNT = 100'000;
    runOnSmallStack([] {
        const auto first = distance(nullptr, nullptr, 1);
        std::shared_ptr<VrexConstraint3D> last = first;
        for (std::uint64_t id = 2; id <= COUNT; ++id) {
            last = numbered(VrexEqualParameter3D::create(last, {}, first, {}), id);
        }
        const std::size_t each = encoded(last).size();
        EXPECT_EQ(flat({}, {last}).size(), 15 + encoded(first).size() + (COUNT - 1) * each);
    });
}

TEST(VrexStreamGraphEncoder3D, ARingIsCutWhereItCloses) {
    const auto inner = setOf({}, 1);
    const auto outer = setOf({inner}, 2);
    inner->geometries().push_back(outer);
    EXPECT_EQ(flat({outer}, {}), block(join({list({inner, outer}), none()})));
    inner->geometries().clear();
}

/// Of another dimension, say.
class Freedoms final : public VrexStreamGraphEncoder {
public:
    int passes = 100; ///< That it has an encoder for.

    std::unique_ptr<VrexStreamEncoder> getEncoder(VrexOutputStream* output) override {
        return passes-- > 0 ? std::make_unique<VrexStreamEncoder3D>(output) : nullptr;
    }
    bool encodeGeometriesDOF(const std::shared_ptr<VrexConnectedComponent>& component,
                             VrexStreamEncoder* encoder) override {
        return component->getID() != 0 && encoder->writeU64(component->getID() + 1);
    }
};

TEST(VrexStreamGraphEncoder, FreedomsStandBehindTheSubsets) {
    Freedoms encoder;
    ASSERT_TRUE(encoder.encodeConstraintGraphs({component({}, {}, 4), component({}, {}, 6)}));
    EXPECT_EQ(dumped(encoder),
              block(join({u64(4), none(), none(), none(), u64(5), u64(6), none(), none(), none(), u64(7)})));
    EXPECT_FALSE(encoder.encodeConstraintGraphs({component({}, {}, 0)}));
}

TEST(VrexStreamGraphEncoder, WithoutAnEncoderNothingIsEncoded) {
    for (const int passes : {0, 1}) {
        Freedoms encoder;
        encoder.passes = passes;
        EXPECT_FALSE(encoder.encodeConstraintGraph({point(1)}, {}));
        encoder.passes = passes;
        EXPECT_FALSE(encoder.encodeConstraintGraphs({component({point(1)}, {}, 1)}));
    }
}

} // namespace
