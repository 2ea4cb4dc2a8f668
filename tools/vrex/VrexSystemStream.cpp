#include "tools/vrex/VrexSystemStream.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexStreamEncoder.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexSystemLists.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

[[noreturn]] void fail(const std::string& sentence) {
    throw VrexToolFailure(VrexExitCode::INVALID, sentence);
}

template <class Target, class List>
std::vector<std::shared_ptr<Target>> only(const List& list) {
    std::vector<std::shared_ptr<Target>> kept;
    for (const auto& element : list) {
        if (auto target = std::dynamic_pointer_cast<Target>(element)) {
            kept.push_back(std::move(target));
        }
    }
    return kept;
}

/// Objects of one numbering have to be told apart by identifier.
template <class List>
void expectOwnIds(const std::string& title, const List& objects) {
    std::unordered_map<std::uint64_t, const VrexBaseObject*> known;
    for (const auto& object : objects) {
        const auto [place, isNew] = known.try_emplace(object->getID(), object.get());
        if (!isNew) {
            fail(fmt::format("{} cannot be written as a stream: {} and {} have one identifier.", title,
                             nsVrexObjectNames::nameOf(*place->second), nsVrexObjectNames::nameOf(*object)));
        }
    }
}

/// Why the object cannot be written; nothing where it can.
std::optional<std::string> refusalOf(const std::shared_ptr<VrexBaseObject>& object) {
    try {
        VrexOutputLength length;
        const bool isWritten = VrexStreamEncoder3D(&length).encodeObject(object);
        return isWritten ? std::nullopt : std::optional<std::string>("It has no place in a stream.");
    } catch (const std::exception& error) {
        return error.what();
    }
}

template <class List>
void expectWritable(const std::string& title, const List& objects) {
    for (const auto& object : objects) {
        if (const auto refusal = refusalOf(object)) {
            fail(fmt::format("{} cannot be written as a stream at {}: {}", title,
                             nsVrexObjectNames::nameOf(*object), *refusal));
        }
    }
}

/// What the stream tells to be its length: that of the outermost block.
std::size_t lengthOf(std::string_view stream) {
    constexpr std::size_t BEGIN = 1 + sizeof(std::uint32_t); // tag and length
    std::uint32_t rest = 0;
    for (std::size_t i = std::min(BEGIN, stream.size()); i > 1; --i) {
        rest = rest << 8 | static_cast<std::uint8_t>(stream[i - 1]);
    }
    return BEGIN + rest;
}

/// A file holds one stream, and that whole.
void expectWhole(const std::string& title, std::string_view stream) {
    const std::size_t length = lengthOf(stream);
    if (stream.size() < length) {
        fail(fmt::format("{} is neither a document nor a whole stream: it would have {} bytes and has {}.",
                         title, length, stream.size()));
    }
    if (stream.size() > length) {
        fail(fmt::format(
            "{} is neither a document nor one stream alone: {} behind its end at offset {}.", title,
            nsVrexObjectNames::countOf(stream.size() - length, "byte stands", "bytes stand"), length));
    }
}

bool encodeInto(VrexStreamGraphEncoder3D& encoder, const nsVrexSystemLists::Geometries& geometries,
                const nsVrexSystemLists::Constraints& constraints) {
    try {
        return encoder.encodeConstraintGraph(geometries, constraints);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

bool nsVrexSystemStream::isStream(std::string_view text) {
    return !text.empty() && static_cast<std::uint8_t>(text.front()) == VrexStreamEncoder::TAG;
}

VrexImmutableSystem3D nsVrexSystemStream::decode(const std::string& title, std::string_view stream) {
    expectWhole(title, stream);
    nsVrexSystemLists::Geometries geometries;
    nsVrexSystemLists::Constraints constraints;
    VrexStreamGraphDecoder3D decoder;
    decoder.setCallbacksAllowed(false);
    bool isRead = false;
    try {
        isRead =
            decoder.decodeConstraintGraph(reinterpret_cast<const unsigned char*>(stream.data()),
                                          static_cast<unsigned int>(stream.size()), geometries, constraints);
    } catch (const std::bad_optional_access&) {
        isRead = false;
    }
    if (!isRead) {
        fail(fmt::format("{} is neither a document nor a stream of a system: reading ended behind {} and {}.",
                         title, nsVrexObjectNames::countOf(geometries.size(), "geometry", "geometries"),
                         nsVrexObjectNames::countOf(constraints.size(), "constraint", "constraints")));
    }
    return {only<VrexGeometry3D>(geometries),
            only<VrexGeometryVariable>(geometries),
            only<VrexConstraint3D>(constraints),
            only<VrexBaseEquation>(constraints),
            VrexDefaultToleranceGetter::LINEAR_TOLERANCE,
            VrexDefaultToleranceGetter::ANGULAR_TOLERANCE,
            {},
            {}};
}

std::string nsVrexSystemStream::encode(const std::string& title, const VrexImmutableSystem3D& system) {
    const auto geometries = nsVrexSystemLists::geometriesOf(system);
    const auto constraints = nsVrexSystemLists::constraintsOf(system);
    expectOwnIds(title, geometries);
    expectOwnIds(title, constraints);
    VrexStreamGraphEncoder3D encoder;
    if (!encodeInto(encoder, geometries, constraints)) {
        expectWritable(title, geometries);
        expectWritable(title, constraints);
        fail(title + " cannot be written as a stream: it takes more than four gigabytes.");
    }
    unsigned int size = 0;
    const std::unique_ptr<unsigned char, decltype(&VrexStreamGraphEncoder::freeBuffer)> buffer(
        encoder.dumpBuffer(size), VrexStreamGraphEncoder::freeBuffer);
    return {reinterpret_cast<const char*>(buffer.get()), size};
}

bool nsVrexSystemStream::leavesOut(const VrexImmutableSystem3D& system) {
    return system.linearTolerance() != VrexDefaultToleranceGetter::LINEAR_TOLERANCE ||
           system.angularTolerance() != VrexDefaultToleranceGetter::ANGULAR_TOLERANCE ||
           !system.transform().isEmpty() || !system.referenceGeometries().empty();
}
