#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/3d/VrexStreamDecoder3D.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint.h"
#include "support/SmallStack.h"
#include "support/StreamOfAllKinds.h"

namespace {

using nsStreamObjects::block;
using nsStreamObjects::Bytes;
using nsStreamObjects::constraint;
using nsStreamObjects::dimensionTail;
using nsStreamObjects::f64;
using nsStreamObjects::ids;
using nsStreamObjects::join;
using nsStreamObjects::line;
using nsStreamObjects::none;
using nsStreamObjects::point;
using nsStreamObjects::rigidSet;
using nsStreamObjects::u32;
using nsStreamObjects::u64;
using nsStreamObjects::variable;
using nsStreamOfAllKinds::component;
using nsStreamOfAllKinds::drag;
using nsStreamOfAllKinds::dragParameter;
using nsStreamOfAllKinds::flat;
using nsStreamOfAllKinds::transform;
using testing::ElementsAre;
using testing::IsEmpty;

using Geometries = VrexStreamGraphDecoder::Geometries;
using Constraints = VrexStreamGraphDecoder::Constraints;
using Components = VrexStreamGraphDecoder::Components;

unsigned int sizeOf(const Bytes& bytes) { return static_cast<unsigned int>(bytes.size()); }

/// What a flat stream gives; the lists are not empty before.
struct Flat {
    Geometries geometries{nullptr, nullptr};
    Constraints constraints{nullptr};
    bool decode(const Bytes& bytes) {
        return VrexStreamGraphDecoder3D().decodeConstraintGraph(bytes.data(), sizeOf(bytes), geometries,
                                                                constraints);
    }
};

std::optional<Components> decodeComponents(const Bytes& bytes) {
    Components components{nullptr};
    const bool read =
        VrexStreamGraphDecoder3D().decodeConstraintGraphs(bytes.data(), sizeOf(bytes), components);
    return read ? std::optional(components) : std::nullopt;
}

template <class List>
std::vector<std::uint64_t> idsOf(const List& list) {
    std::vector<std::uint64_t> result;
    for (const auto& object : list) {
        result.push_back(object->getID());
    }
    return result;
}

Bytes distance(std::uint64_t id) { return constraint({0, ids({1, 2})}, {}, id, dimensionTail(1.0)); }

Bytes fixation(std::uint64_t id, std::uint64_t geometry) {
    return constraint({4, ids({geometry})}, u32(0), id);
}

TEST(VrexStreamGraphDecoder3D, AGraphWithoutObjectsIsTwoEmptyBlocks) {
    const Bytes bytes{0x30, 0x0A, 0, 0, 0, 0x30, 0, 0, 0, 0, 0x30, 0, 0, 0, 0};
    Flat graph;
    ASSERT_TRUE(graph.decode(bytes));
    EXPECT_THAT(graph.geometries, IsEmpty());
    EXPECT_THAT(graph.constraints, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, AGraphKeepsTheOrderOfItsObjects) {
    Flat graph;
    ASSERT_TRUE(
        graph.decode(flat(join({point(2), variable(9, 1.0), point(1)}), join({distance(2), distance(1)}))));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(2, 9, 1));
    EXPECT_THAT(idsOf(graph.constraints), ElementsAre(2, 1));
    EXPECT_THAT(graph.constraints[0]->getGeometries(), ElementsAre(graph.geometries[2], graph.geometries[0]));
}

TEST(VrexStreamGraphDecoder3D, OfGeometriesWithEqualIdentifiersTheLastIsReferredTo) {
    Flat graph;
    ASSERT_TRUE(graph.decode(flat(join({point(1), point(2), point(1)}), join({distance(7), distance(7)}))));
    ASSERT_THAT(idsOf(graph.geometries), ElementsAre(1, 2, 1));
    ASSERT_THAT(idsOf(graph.constraints), ElementsAre(7, 7));
    for (const auto& read : graph.constraints) {
        EXPECT_THAT(read->getGeometries(), ElementsAre(graph.geometries[2], graph.geometries[1]));
    }
}

TEST(VrexStreamGraphDecoder3D, AGraphHasObjectsOfAllKinds) {
    Flat graph;
    ASSERT_TRUE(graph.decode(flat(nsStreamOfAllKinds::geometries(), nsStreamOfAllKinds::constraints())));
    EXPECT_EQ(graph.geometries.size(), nsStreamOfAllKinds::GEOMETRY_COUNT);
    EXPECT_EQ(graph.constraints.size(), nsStreamOfAllKinds::CONSTRAINT_COUNT);
}

TEST(VrexStreamGraphDecoder3D, ListsHaveObjectsOfTheirBranch) {
    Flat graph;
    EXPECT_FALSE(graph.decode(flat(join({point(1), point(2), distance(1)}), {})));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(1, 2));
    EXPECT_FALSE(graph.decode(flat(point(1), point(2))));
    EXPECT_FALSE(graph.decode(flat(point(1), variable(2, 1.0))));
    EXPECT_THAT(graph.constraints, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, WhatWasReadBeforeAFailureIsInTheLists) {
    Flat graph;
    EXPECT_FALSE(
        graph.decode(flat(join({point(1), point(2)}), join({distance(3), constraint({0, none()}, {}, 4)}))));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(1, 2));
    EXPECT_THAT(idsOf(graph.constraints), ElementsAre(3));
    EXPECT_FALSE(graph.decode(flat(join({point(1), block(u32(2))}), {})));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(1));
    EXPECT_THAT(graph.constraints, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, AnObjectKindThatThereIsNotPassesThrough) {
    const Bytes bytes = flat(join({point(1), block(u32(4))}), {});
    Flat graph;
    EXPECT_THROW(graph.decode(bytes), std::bad_optional_access);
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(1));
    EXPECT_THAT(graph.constraints, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, ABufferThatIsNoBlockIsRefusedAndTheListsAreCleared) {
    const Bytes good = flat({}, {});
    std::vector<Bytes> rows;
    for (std::size_t size = 0; size < good.size(); ++size) {
        rows.emplace_back(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size));
    }
    rows.push_back(block(join({none(), none(), Bytes(1)})));
    rows.push_back(block(none()));
    rows.push_back(none());
    rows.push_back(good);
    rows.back()[0] = 0;
    for (const Bytes& bytes : rows) {
        Flat graph;
        EXPECT_FALSE(graph.decode(bytes)) << bytes.size();
        EXPECT_THAT(graph.geometries, IsEmpty());
        EXPECT_THAT(graph.constraints, IsEmpty());
    }
}

TEST(VrexStreamGraphDecoder3D, WithoutABufferNothingIsRead) {
    VrexStreamGraphDecoder3D decoder;
    Flat graph;
    Components components{nullptr};
    VrexTransform3D dragged;
    EXPECT_FALSE(decoder.decodeConstraintGraph(nullptr, 20, graph.geometries, graph.constraints));
    EXPECT_FALSE(decoder.decodeConstraintGraphs(nullptr, 20, components));
    EXPECT_FALSE(decoder.decodeDragData(nullptr, 20, graph.geometries, dragged));
    EXPECT_THAT(graph.geometries, IsEmpty());
    EXPECT_THAT(components, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, WhatStandsBehindTheBlockIsNotLookedAt) {
    Flat graph;
    EXPECT_TRUE(graph.decode(join({flat(point(1), {}), {0x30, 0xFF}})));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(1));
    EXPECT_TRUE(decodeComponents(join({none(), Bytes(7)})));
}

TEST(VrexStreamGraphDecoder3D, AnEmptyListOfComponentsIsAnEmptyBlock) {
    const auto components = decodeComponents(Bytes{0x30, 0, 0, 0, 0});
    ASSERT_TRUE(components.has_value());
    EXPECT_THAT(*components, IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, ComponentsHaveIdentifierObjectsAndSubsets) {
    const Bytes empty = join({u64(7), none(), none(), none()});
    const auto components =
        decodeComponents(block(join({component(7, join({point(2), point(1)}), distance(4)), empty})));
    ASSERT_TRUE(components.has_value());
    ASSERT_EQ(components->size(), 2U);
    VrexConnectedComponent& first = *components->front();
    EXPECT_EQ(first.getID(), 7U);
    EXPECT_THAT(idsOf(first.getGeometries()), ElementsAre(2, 1));
    EXPECT_THAT(idsOf(first.getConstraints()), ElementsAre(4));
    EXPECT_THAT(first.getOverConstrainedSubsets(), ElementsAre(ElementsAre(3, 1, 2), IsEmpty()));
    EXPECT_TRUE(first.needAnalysisStatus());
    VrexConnectedComponent& second = *components->back();
    EXPECT_EQ(second.getID(), 7U);
    EXPECT_EQ(second.getScale(), 0U);
    EXPECT_THAT(second.getOverConstrainedSubsets(), IsEmpty());
}

TEST(VrexStreamGraphDecoder3D, CompleteFixationsAreFoundAgain) {
    const auto components = decodeComponents(block(component(1, join({point(1), point(2)}), fixation(9, 2))));
    ASSERT_TRUE(components.has_value());
    const VrexConnectedComponent& read = *components->front();
    const auto geometries = read.getGeometries();
    EXPECT_EQ(read.getCompleteFixation(geometries[0]), nullptr);
    EXPECT_EQ(read.getCompleteFixation(geometries[1]), read.getConstraints()[0]);
}

TEST(VrexStreamGraphDecoder3D, EachComponentRefersToItsOwnCopies) {
    const Bytes shared = join({point(1), point(2)});
    const auto components =
        decodeComponents(block(join({component(1, shared, distance(5)), component(2, shared, distance(5))})));
    ASSERT_TRUE(components.has_value());
    for (const auto& read : *components) {
        const auto geometries = read->getGeometries();
        EXPECT_THAT(read->getConstraints()[0]->getGeometries(), testing::ContainerEq(geometries));
    }
    EXPECT_NE(components->front()->getGeometries()[0], components->back()->getGeometries()[0]);
}

TEST(VrexStreamGraphDecoder3D, ComponentsThatAreNotWholeAreRefused) {
    const Bytes good = component(1, point(1), {});
    const Bytes broken[] = {block(u64(1)),
                            block(join({u64(1), block(point(1))})),
                            block(join({u64(1), none(), none()})),
                            block(join({good, u32(1)})),
                            block(join({u64(1), none(), none(), block(block(u32(1)))})),
                            block(join({u64(1), none(), block(point(1)), none()})),
                            block(join({u64(1), block(distance(1)), none(), none()}))};
    for (const Bytes& bytes : broken) {
        EXPECT_FALSE(decodeComponents(bytes));
    }
    Components components{nullptr, nullptr};
    const Bytes half = block(join({good, u64(2)}));
    EXPECT_FALSE(VrexStreamGraphDecoder3D().decodeConstraintGraphs(half.data(), sizeOf(half), components));
    ASSERT_EQ(components.size(), 1U) << "what was read by then";
    EXPECT_EQ(components[0]->getID(), 1U);
}

TEST(VrexStreamGraphDecoder3D, CallbacksAreReadByDefaultAndRefusedOnDemand) {
    const Bytes bytes = flat({}, nsStreamObjects::callbackEquation(0, none(), 0, 5));
    const Bytes components = block(component(1, {}, nsStreamObjects::callbackEquation(0, none(), 0, 5)));
    VrexStreamGraphDecoder3D decoder;
    Flat graph;
    Components list;
    for (const bool allowed : {true, false, true}) {
        EXPECT_EQ(decoder.areCallbacksAllowed(), allowed);
        EXPECT_EQ(
            decoder.decodeConstraintGraph(bytes.data(), sizeOf(bytes), graph.geometries, graph.constraints),
            allowed);
        EXPECT_EQ(decoder.decodeConstraintGraphs(components.data(), sizeOf(components), list), allowed);
        decoder.setCallbacksAllowed(!allowed);
    }
}

TEST(VrexStreamGraphDecoder3D, GeometriesDOFAreNoPartOfTheStream) {
    VrexStreamGraphDecoder3D decoder;
    auto component = std::make_shared<VrexConnectedComponent>();
    const auto stream = decoder.getDecoder(nullptr, 0);
    EXPECT_NE(dynamic_cast<VrexStreamDecoder3D*>(stream.get()), nullptr);
    EXPECT_TRUE(decoder.decodeGeometriesDOF(stream.get(), component));
    EXPECT_EQ(stream->position(), 0U);
}

/// Makes nothing known that it decodes: eight bytes an object, its identifier, of which 0 is a constraint.
class ForgetfulDecoder final : public VrexStreamDecoder {
public:
    using VrexStreamDecoder::VrexStreamDecoder;
    std::shared_ptr<VrexBaseObject> decodeObject() override {
        std::uint64_t id = 0;
        if (!readU64(id)) {
            return nullptr;
        }
        if (id == 0) {
            return std::make_shared<ProbeConstraint>();
        }
        return numbered(VrexGeometryVariable::create(1.0), id);
    }
};

class ForgetfulGraphDecoder final : public VrexStreamGraphDecoder3D {
public:
    std::unique_ptr<VrexStreamDecoder> getDecoder(const unsigned char* buffer, unsigned int size) override {
        return std::make_unique<ForgetfulDecoder>(buffer, size);
    }
};

TEST(VrexStreamGraphDecoder3D, TheObjectsOfADecoderNeedNotBeKnown) {
    Flat graph;
    const Bytes good = flat(join({u64(7), u64(8)}), u64(0));
    const Bytes swapped = flat(u64(0), u64(7));
    ForgetfulGraphDecoder decoder;
    ASSERT_TRUE(
        decoder.decodeConstraintGraph(good.data(), sizeOf(good), graph.geometries, graph.constraints));
    EXPECT_THAT(idsOf(graph.geometries), ElementsAre(7, 8));
    EXPECT_EQ(graph.constraints.size(), 1U);
    EXPECT_FALSE(
        decoder.decodeConstraintGraph(swapped.data(), sizeOf(swapped), graph.geometries, graph.constraints));
}

TEST(VrexStreamGraphDecoder3D, ADragMovesEntitiesAndDrivesParameters) {
    const Bytes bytes = drag(join({point(1), line(2)}), join({transform(2, 0.1), transform(1, -3.0)}),
                             join({dragParameter(1, 2.5, 1), dragParameter(1, -2.5, 77)}));
    VrexStreamGraphDecoder3D decoder;
    Geometries geometries{nullptr};
    VrexTransform3D dragged;
    ASSERT_TRUE(decoder.decodeDragData(bytes.data(), sizeOf(bytes), geometries, dragged));
    EXPECT_THAT(idsOf(geometries), ElementsAre(1, 2));
    ASSERT_EQ(dragged.transformations().size(), 2U);
    EXPECT_EQ(dragged.transformations()[0].geometry, geometries[1]);
    EXPECT_EQ(dragged.transformations()[0].matrix, VrexTransformMatrix3D::translate({0.1, 0.0, 0.0}));
    EXPECT_EQ(dragged.transformations()[1].geometry, geometries[0]);
    ASSERT_EQ(dragged.transformParameters().size(), 2U);
    EXPECT_EQ(dragged.transformParameters()[0].geometry, geometries[0]);
    EXPECT_EQ(dragged.transformParameters()[0].value, 2.5);
    EXPECT_EQ(dragged.transformParameters()[0].type, VrexDragParameter3DType::Radius3D);
    EXPECT_EQ(static_cast<int>(dragged.transformParameters()[1].type), 77);
}

TEST(VrexStreamGraphDecoder3D, ADragComesToWhatIsThereAlready) {
    const Bytes bytes = drag(point(1), join({transform(1, 1.0), transform(1, 2.0)}), {});
    VrexStreamGraphDecoder3D decoder;
    Geometries geometries;
    VrexTransform3D dragged;
    for (int round = 1; round <= 2; ++round) {
        ASSERT_TRUE(decoder.decodeDragData(bytes.data(), sizeOf(bytes), geometries, dragged));
        EXPECT_EQ(geometries.size(), 1U);
        ASSERT_EQ(dragged.transformations().size(), static_cast<std::size_t>(round));
        EXPECT_EQ(dragged.transformations().back().matrix, VrexTransformMatrix3D::translate({3.0, 0.0, 0.0}));
    }
}

TEST(VrexStreamGraphDecoder3D, DragsOfWhatCannotBeDraggedAreRefused) {
    Bytes longTransform = transform(1, 1.0);
    longTransform.push_back(0);
    longTransform[1] += 1;
    const Bytes broken[] = {drag(point(1), transform(2, 1.0), {}),
                            drag(variable(1, 1.0), transform(1, 1.0), {}),
                            drag(point(1), {}, dragParameter(2, 1.0, 0)),
                            drag(variable(1, 1.0), {}, dragParameter(1, 1.0, 0)),
                            drag(point(1), longTransform, {}),
                            drag(point(1), block(u64(1)), {}),
                            drag(point(1), {}, block(join({u64(1), f64(1.0)}))),
                            drag(distance(1), {}, {}),
                            block(join({none(), none()})),
                            block(join({none(), none(), none(), none()}))};
    for (const Bytes& bytes : broken) {
        Geometries geometries;
        VrexTransform3D dragged;
        EXPECT_FALSE(
            VrexStreamGraphDecoder3D().decodeDragData(bytes.data(), sizeOf(bytes), geometries, dragged));
        EXPECT_TRUE(dragged.isEmpty());
    }
}

TEST(VrexStreamGraphDecoder3D, AMatrixThatIsNoMotionIsRefusedWithAMessage) {
    Bytes entry = u64(1);
    for (int i = 0; i < 16; ++i) {
        nsStreamProbe::append(entry, f64(i == 12 ? 0.5 : 1.0));
    }
    const Bytes bytes = drag(point(1), block(entry), dragParameter(1, 1.0, 0));
    const LogCapture log;
    Geometries geometries;
    VrexTransform3D dragged;
    EXPECT_FALSE(VrexStreamGraphDecoder3D().decodeDragData(bytes.data(), sizeOf(bytes), geometries, dragged));
    EXPECT_TRUE(dragged.isEmpty());
    EXPECT_EQ(geometries.size(), 1U);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Failed to applyTransformation for dragging");
}

TEST(VrexStreamGraphDecoder3D, ADeepChainOfSetsIsReadOnASmallStack) {
    constexpr std::uint64_t DEPTH = 100'000;
    Bytes list = point(0);
    for (std::uint64_t i = 1; i <= DEPTH; ++i) {
        nsStreamProbe::append(list, rigidSet(i, {i - 1}));
    }
    const Bytes bytes = flat(list, {});
    runOnSmallStack([&] {
        Flat graph;
        EXPECT_TRUE(graph.decode(bytes));
        EXPECT_EQ(graph.geometries.size(), DEPTH + 1);
    });
}

} // namespace
