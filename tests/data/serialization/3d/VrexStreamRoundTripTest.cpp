// Random systems through the stream and back.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
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
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "support/ObjectGraph.h"
#include "support/RandomSystems.h"

namespace {

using Geometries = VrexStreamGraphEncoder::Geometries;
using Constraints = VrexStreamGraphEncoder::Constraints;
using Components = VrexStreamGraphEncoder::Components;
using Bytes = std::vector<unsigned char>;

constexpr int SYSTEMS = 20'000;

struct Graph {
    Geometries geometries;
    Constraints constraints;
};

/// All objects of a system and all that they refer to, numbered apart, without what has no form in a stream.
Graph graphOf(const VrexImmutableSystem3D& system) {
    const ObjectGraph all(system.geometries(), system.variables(), system.constraints(), system.equations());
    Graph graph;
    std::uint64_t geometryId = 0;
    std::uint64_t constraintId = 0;
    for (const auto& object : all.objects()) {
        if (auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(object)) {
            geometry->setID(++geometryId);
            graph.geometries.push_back(std::move(geometry));
        } else if (auto constraint = std::dynamic_pointer_cast<VrexBaseConstraint>(object)) {
            constraint->setID(++constraintId);
            if (std::dynamic_pointer_cast<VrexCallbackEquation>(constraint) == nullptr) {
                graph.constraints.push_back(std::move(constraint));
            }
        }
    }
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

/// Whether the stream can bring it back: a null that a constraint binds, or an instance that fits no more,
/// cannot.
struct Counts {
    int encoded = 0;
    int decoded = 0;
};

TEST(VrexStream, RandomSystemsComeBackAsTheyWere) {
    RandomSystems systems;
    Counts counts;
    for (int i = 0; i < SYSTEMS; ++i) {
        const Graph graph = graphOf(systems.next());
        const auto bytes = flatBytes(graph);
        if (!bytes) {
            continue;
        }
        ++counts.encoded;
        const auto read = decoded(*bytes);
        if (!read) {
            continue;
        }
        ++counts.decoded;
        ASSERT_EQ(idSet(read->geometries), idSet(graph.geometries));
        ASSERT_EQ(idSet(read->constraints), idSet(graph.constraints));
        expectClosed(*read);
        const auto again = flatBytes(*read);
        ASSERT_TRUE(again.has_value());
        ASSERT_TRUE(areAlike(*bytes, *again)) << i;
    }
    std::printf("%d of %d encoded, %d decoded\n", counts.encoded, SYSTEMS, counts.decoded);
    EXPECT_GT(counts.decoded, SYSTEMS / 10);
}

} // namespace
