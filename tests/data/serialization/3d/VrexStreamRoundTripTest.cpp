// Random systems through the stream and back.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
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
    return instance == nullptr || instance->checkData();
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

} // namespace
