// Random systems through the stream and back.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexInvalidArgumentException.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "support/CopyChecks.h"
#include "support/ObjectGraph.h"
#include "support/RandomFields.h"
#include "support/RandomSystems.h"
#include "support/RandomTurns.h"

namespace {

using Geometries = VrexStreamGraphEncoder::Geometries;
using Constraints = VrexStreamGraphEncoder::Constraints;
using Components = VrexStreamGraphEncoder::Components;
using Bytes = std::vector<unsigned char>;

constexpr int SYSTEMS = randomTurns(20'000);

struct Graph {
    Geometries geometries;
    Constraints constraints;
};

bool namesConstraints(const VrexBaseConstraint& constraint) {
    const auto* const equation = dynamic_cast<const VrexBaseEquation*>(&constraint);
    return equation != nullptr && std::ranges::any_of(equation->descriptors(), [](const auto& descriptor) {
               return std::dynamic_pointer_cast<VrexBaseConstraint>(descriptor.object()) != nullptr;
           });
}

/// Whether the stream has a form of it, and, where constraints are numbered as geometries are, a descriptor
/// means the right one of them.
bool isStreamed(const VrexBaseConstraint& constraint, bool isNumberedApart) {
    return dynamic_cast<const VrexCallbackEquation*>(&constraint) == nullptr &&
           (isNumberedApart || !namesConstraints(constraint));
}

/// All objects of a system and all that they refer to, with new identifiers.
Graph graphOf(const VrexImmutableSystem3D& system, bool isNumberedApart) {
    const ObjectGraph all(system.geometries(), system.variables(), system.constraints(), system.equations());
    Graph graph;
    std::uint64_t geometryId = 0;
    std::uint64_t constraintId = isNumberedApart ? 1'000 : 0;
    for (const auto& object : all.objects()) {
        if (auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(object)) {
            geometry->setID(++geometryId);
            graph.geometries.push_back(std::move(geometry));
        } else if (auto constraint = std::dynamic_pointer_cast<VrexBaseConstraint>(object)) {
            constraint->setID(++constraintId);
            if (isStreamed(*constraint, isNumberedApart)) {
                graph.constraints.push_back(std::move(constraint));
            }
        }
    }
    return graph;
}

/// The lists of a system as they are, variables first, without the equations that streams do not have.
Graph listsOf(const VrexImmutableSystem3D& system) {
    const auto& variables = system.variables();
    const auto& geometries = system.geometries();
    const auto& constraints = system.constraints();
    Graph graph{{variables.begin(), variables.end()}, {constraints.begin(), constraints.end()}};
    graph.geometries.insert(graph.geometries.end(), geometries.begin(), geometries.end());
    std::ranges::copy_if(system.equations(), std::back_inserter(graph.constraints),
                         [](const auto& equation) { return isStreamed(*equation, true); });
    return graph;
}

/// The buffer of what `encode` encodes; empty where that fails.
template <class Encode>
std::optional<Bytes> bytesOf(Encode encode) {
    VrexStreamGraphEncoder3D encoder;
    try {
        if (!encode(encoder)) {
            return std::nullopt;
        }
    } catch (const VrexInvalidArgumentException&) {
        return std::nullopt;
    }
    unsigned int size = 0;
    unsigned char* const buffer = encoder.dumpBuffer(size);
    Bytes bytes(buffer, buffer + size);
    VrexStreamGraphEncoder::freeBuffer(buffer);
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data() + 1, sizeof length);
    EXPECT_EQ(length + 5, size);
    return bytes;
}

std::optional<Bytes> flatBytes(const Graph& graph) {
    return bytesOf(
        [&](auto& encoder) { return encoder.encodeConstraintGraph(graph.geometries, graph.constraints); });
}

std::optional<Graph> decoded(const Bytes& bytes) {
    Graph graph;
    const bool read = VrexStreamGraphDecoder3D().decodeConstraintGraph(
        bytes.data(), static_cast<unsigned int>(bytes.size()), graph.geometries, graph.constraints);
    return read ? std::optional(graph) : std::nullopt;
}

double numberAt(const Bytes& bytes, std::size_t place) {
    double number = 0.0;
    std::memcpy(&number, bytes.data() + place, sizeof number);
    return number;
}

/// Whether these eight bytes are one number in either, but for roundings. Neither is tiny: what is no number
/// but an identifier would look so.
bool areAlike(double a, double b) {
    const auto isUsual = [](double x) { return x == 0.0 || (std::fabs(x) > 1e-30 && std::fabs(x) < 1e30); };
    return isUsual(a) && isUsual(b) && std::fabs(a - b) <= 1e-12;
}

/// Whether two streams differ in roundings of numbers at most.
bool areAlike(const Bytes& a, const Bytes& b) {
    if (a.size() != b.size()) {
        return false;
    }
    std::size_t place = 0;
    while (place < a.size()) {
        if (a[place] == b[place]) {
            ++place;
            continue;
        }
        std::optional<std::size_t> end;
        for (std::size_t start = place > 7 ? place - 7 : 0; start <= place && start + 8 <= a.size();
             ++start) {
            if (areAlike(numberAt(a, start), numberAt(b, start))) {
                end = std::max(end.value_or(0), start + 8);
            }
        }
        if (!end) {
            return false;
        }
        place = *end;
    }
    return true;
}

/// Expects objects to refer to none but those of the lists.
void expectClosed(const Graph& graph) {
    const std::set<std::shared_ptr<VrexBaseGeometry>> geometries(graph.geometries.begin(),
                                                                 graph.geometries.end());
    const std::set<std::shared_ptr<VrexBaseConstraint>> constraints(graph.constraints.begin(),
                                                                    graph.constraints.end());
    const auto expectKnown = [](const auto& list, const auto& known) {
        for (const auto& object : list) {
            EXPECT_EQ(known.count(object), 1U);
        }
    };
    for (const auto& geometry : graph.geometries) {
        expectKnown(geometry->getGeometries(), geometries);
        expectKnown(geometry->getVariables(), geometries);
    }
    for (const auto& constraint : graph.constraints) {
        expectKnown(constraint->getGeometries(), geometries);
        expectKnown(constraint->getConstraints(), constraints);
    }
}

template <class List>
std::vector<std::uint64_t> idsOf(const List& list) {
    std::vector<std::uint64_t> ids;
    for (const auto& object : list) {
        ids.push_back(object->getID());
    }
    return ids;
}

template <class List>
std::set<std::uint64_t> idSet(const List& list) {
    const auto ids = idsOf(list);
    return {ids.begin(), ids.end()};
}

/// Whether a constraint has all that its kind needs.
bool isReadable(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    const auto& arguments = constraint->getGeometries();
    if (std::ranges::count(arguments, nullptr) > 0) {
        return false;
    }
    if (const auto relation = std::dynamic_pointer_cast<VrexMateRelation3D>(constraint)) {
        return VrexMateRelation3D::canCreate(relation->getMates(), relation->getMateParameterIndexs());
    }
    if (std::dynamic_pointer_cast<VrexEqualParameter3D>(constraint) != nullptr) {
        return constraint->getConstraints().size() == 2;
    }
    const auto instance = std::dynamic_pointer_cast<VrexInstance3D>(constraint);
    // Nulls of the pattern are left out, and then the coefficients are too many.
    return instance == nullptr ||
           (instance->checkData() &&
            std::ranges::count(instance->getArrayPattern()->getPatterns(), nullptr) == 0);
}

/// Whether a net has equally long rows, and a curve refers to none but geometries, which all stand before the
/// constraints.
bool isReadable(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (const auto surface = std::dynamic_pointer_cast<VrexNURBSSurface3D>(geometry)) {
        const auto& rows = surface->controlPoints();
        return std::ranges::all_of(rows, [&](const auto& row) { return row.size() == rows[0].size(); });
    }
    const auto curve = std::dynamic_pointer_cast<VrexEvaluatedCurve3D>(geometry);
    return curve == nullptr || std::ranges::all_of(curve->descriptors(), [](const auto& descriptor) {
               return std::dynamic_pointer_cast<VrexBaseGeometry>(descriptor.object()) != nullptr;
           });
}

bool isReadable(const Graph& graph) {
    const auto isElementReadable = [](const auto& element) { return isReadable(element); };
    return std::ranges::all_of(graph.geometries, isElementReadable) &&
           std::ranges::all_of(graph.constraints, isElementReadable);
}

TEST(VrexStream, RandomSystemsComeBackAsTheyWere) {
    RandomSystems systems;
    int compared = 0;
    for (int i = 0; i < SYSTEMS; ++i) {
        const Graph graph = graphOf(systems.next(), i % 2 == 0);
        const auto bytes = flatBytes(graph);
        if (!bytes) {
            continue;
        }
        const auto read = decoded(*bytes);
        ASSERT_EQ(read.has_value(), isReadable(graph)) << i;
        if (!read) {
            continue;
        }
        ++compared;
        ASSERT_EQ(idSet(read->geometries), idSet(graph.geometries));
        ASSERT_EQ(idSet(read->constraints), idSet(graph.constraints));
        expectClosed(*read);
        const auto again = flatBytes(*read);
        ASSERT_TRUE(again.has_value());
        ASSERT_TRUE(areAlike(*bytes, *again)) << i;
    }
    EXPECT_GT(compared, SYSTEMS / 3) << "the others have nulls, or objects that streams do not have";
}

/// Expects a list that is in order to be written as it is: as long as measured, and into no less.
void expectWritten(const Graph& graph, const Bytes& expected) {
    const auto write = [&](VrexOutputStream& output) {
        VrexStreamEncoder3D encoder(&output);
        return encoder.beginBlock() && encoder.writeObjectList(graph.geometries) &&
               encoder.writeObjectList(graph.constraints) && encoder.endBlock();
    };
    VrexOutputLength length;
    ASSERT_TRUE(write(length));
    Bytes bytes(length.length());
    VrexOutputMemory memory(bytes.data(), length.length());
    ASSERT_TRUE(write(memory));
    ASSERT_EQ(memory.length(), length.length());
    ASSERT_EQ(memory.position(), length.length());
    ASSERT_EQ(bytes, expected);
    VrexOutputMemory less(bytes.data(), length.length() - 1);
    ASSERT_FALSE(write(less));
}

/// With directions along Z and no rotations there is nothing to be rounded.
TEST(VrexStream, RandomFieldsComeBackByteForByte) {
    RandomSystems systems(RandomSystems::Style::Writable);
    RandomFields fields(RandomFields::Directions::Exact);
    int compared = 0;
    for (int i = 0; i < SYSTEMS && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        system.accept(fields);
        const Graph graph = listsOf(system);
        for (const auto& geometry : graph.geometries) {
            geometry->setDirty(i % 2 == 0);
        }
        for (const auto& constraint : graph.constraints) {
            constraint->setDirty(i % 2 == 0);
        }
        const auto bytes = flatBytes(graph);
        if (!bytes || !isReadable(graph)) {
            continue;
        }
        ++compared;
        expectWritten(graph, *bytes);
        const auto read = decoded(*bytes);
        ASSERT_TRUE(read.has_value());
        ASSERT_EQ(idsOf(read->geometries), idsOf(graph.geometries));
        ASSERT_EQ(idsOf(read->constraints), idsOf(graph.constraints));
        ASSERT_EQ(flatBytes(*read), bytes);
    }
    EXPECT_GT(compared, SYSTEMS / 3) << "the others have objects that streams do not have";
}

TEST(VrexStream, DeepCopiesAreEncodedAsTheirSources) {
    const auto encode = [](const VrexImmutableSystem3D& system) { return flatBytes(listsOf(system)); };
    RandomSystems systems;
    int compared = 0;
    for (int i = 0; i < SYSTEMS / 10 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        if (encode(system).has_value()) {
            ++compared;
            nsCopyChecks::expectCopyIsWrittenAlike(system, encode);
        }
    }
    EXPECT_GT(compared, SYSTEMS / 40);
}

/// A constraint with what it is made of, and the entities that these bind.
void addWithParts(VrexConnectedComponent& component, const std::shared_ptr<VrexBaseConstraint>& constraint) {
    component.addConstraint(constraint);
    for (const auto& geometry : constraint->getGeometries()) {
        if (geometry->baseType() == VrexObjectType::Geometry) {
            component.addGeometry(geometry);
        }
    }
    for (const auto& part : constraint->getConstraints()) {
        addWithParts(component, part);
    }
}

/// Some of the constraints with what they bind, and some of the geometries; what these are built on is left
/// out.
std::shared_ptr<VrexConnectedComponent> componentOf(const Graph& graph, std::uint64_t id,
                                                    std::mt19937& engine) {
    auto component = std::make_shared<VrexConnectedComponent>();
    std::bernoulli_distribution isTaken(0.5);
    for (const auto& geometry : graph.geometries) {
        if (isTaken(engine)) {
            component->addGeometry(geometry);
        }
    }
    for (const auto& constraint : graph.constraints) {
        if (isTaken(engine)) {
            addWithParts(*component, constraint);
        }
    }
    component->assignID(id);
    component->getOverConstrainedSubsets() = {{id, 7}, {}, {1}};
    return component;
}

/// The geometries with all that they are built on, and the variables that constraints bind.
std::set<std::uint64_t> expectedGeometries(const VrexConnectedComponent& component) {
    Geometries found = component.getGeometries();
    for (const auto& constraint : component.getConstraints()) {
        const auto& arguments = constraint->getGeometries();
        found.insert(found.end(), arguments.begin(), arguments.end());
    }
    std::set<std::shared_ptr<VrexBaseGeometry>> known;
    while (!found.empty()) {
        const auto geometry = found.back();
        found.pop_back();
        if (known.insert(geometry).second) {
            const auto parts = geometry->getGeometries();
            const auto variables = geometry->getVariables();
            found.insert(found.end(), parts.begin(), parts.end());
            found.insert(found.end(), variables.begin(), variables.end());
        }
    }
    return idSet(known);
}

void expectSame(VrexConnectedComponent& read, VrexConnectedComponent& component) {
    EXPECT_EQ(read.getID(), component.getID());
    EXPECT_EQ(idSet(read.getGeometries()), expectedGeometries(component));
    EXPECT_EQ(idSet(read.getConstraints()), idSet(component.getConstraints()));
    EXPECT_EQ(read.getOverConstrainedSubsets(), component.getOverConstrainedSubsets());
    std::map<std::uint64_t, std::shared_ptr<VrexBaseGeometry>> byId;
    for (const auto& geometry : read.getGeometries()) {
        byId[geometry->getID()] = geometry;
    }
    for (const auto& geometry : component.getGeometries()) {
        const auto fixation = component.getCompleteFixation(geometry);
        const auto found = read.getCompleteFixation(byId[geometry->getID()]);
        ASSERT_EQ(found != nullptr, fixation != nullptr);
        EXPECT_TRUE(fixation == nullptr || found->getID() == fixation->getID());
    }
    expectClosed({read.getGeometries(), read.getConstraints()});
}

TEST(VrexStream, RandomComponentsComeBackAsTheyWere) {
    RandomSystems systems;
    std::mt19937 engine(4);
    int compared = 0;
    for (int i = 0; i < SYSTEMS; ++i) {
        const Graph graph = graphOf(systems.next(), false);
        if (!isReadable(graph)) {
            continue;
        }
        // Of equal identifiers every other time; an object may be in both.
        const Components components{componentOf(graph, 5, engine), componentOf(graph, 5 + i % 2, engine)};
        const auto bytes = bytesOf([&](auto& encoder) { return encoder.encodeConstraintGraphs(components); });
        if (!bytes) {
            continue;
        }
        Components read;
        ASSERT_TRUE(VrexStreamGraphDecoder3D().decodeConstraintGraphs(
            bytes->data(), static_cast<unsigned int>(bytes->size()), read))
            << i;
        ASSERT_EQ(read.size(), 2U);
        expectSame(*read[0], *components[0]);
        expectSame(*read[1], *components[1]);
        ++compared;
    }
    EXPECT_GT(compared, SYSTEMS / 4);
}

VrexTransform3D randomDrag(const Geometries& geometries, std::mt19937& engine) {
    std::uniform_real_distribution<double> number(-3.0, 3.0);
    VrexTransform3D drag;
    for (const auto& element : geometries) {
        const auto geometry = std::dynamic_pointer_cast<VrexGeometry3D>(element);
        const auto turn =
            VrexQuaternionT<double>::makeFromAngleAndAxis(number(engine), {1.0, 2.0, 2.0}, 1e-6);
        auto matrix = VrexTransformMatrix3D::makeFromQuaternion(turn);
        matrix[0][3] = number(engine);
        drag.applyTransformation(geometry, matrix);
        drag.applyTransformParameters(geometry, VrexDragParameter3DType::Radius3D, number(engine));
        drag.applyTransformParameters(geometry, VrexDragParameter3DType::Unknown, number(engine));
    }
    return drag;
}

TEST(VrexStream, RandomDragsComeBackBitByBit) {
    RandomSystems systems;
    std::mt19937 engine(5);
    int compared = 0;
    for (int i = 0; i < SYSTEMS / 10; ++i) {
        const Graph graph = graphOf(systems.next(), true);
        const auto isElementReadable = [](const auto& geometry) { return isReadable(geometry); };
        if (!std::ranges::all_of(graph.geometries, isElementReadable) || !flatBytes({graph.geometries, {}})) {
            continue;
        }
        const VrexTransform3D drag = randomDrag(graph.geometries, engine);
        const auto bytes =
            bytesOf([&](auto& encoder) { return encoder.encodeDragData(graph.geometries, drag); });
        ASSERT_TRUE(bytes.has_value());
        Geometries geometries;
        VrexTransform3D read;
        ASSERT_TRUE(VrexStreamGraphDecoder3D().decodeDragData(
            bytes->data(), static_cast<unsigned int>(bytes->size()), geometries, read));
        ASSERT_EQ(read.transformations().size(), drag.transformations().size());
        for (std::size_t k = 0; k < drag.transformations().size(); ++k) {
            EXPECT_EQ(read.transformations()[k].matrix, drag.transformations()[k].matrix);
            EXPECT_EQ(read.transformations()[k].geometry->getID(),
                      drag.transformations()[k].geometry->getID());
        }
        ASSERT_EQ(read.transformParameters().size(), drag.transformParameters().size());
        for (std::size_t k = 0; k < drag.transformParameters().size(); ++k) {
            EXPECT_EQ(read.transformParameters()[k].value, drag.transformParameters()[k].value);
            EXPECT_EQ(read.transformParameters()[k].type, drag.transformParameters()[k].type);
        }
        ++compared;
    }
    EXPECT_GT(compared, SYSTEMS / 40);
}

} // namespace
