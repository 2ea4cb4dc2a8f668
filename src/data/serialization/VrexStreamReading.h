#pragma once

#include <cstdint>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexEnumTable.h"
#include "data/serialization/VrexStreamDecoder.h"

/// Hidden: fields of objects in a stream, and what they refer to.
namespace nsStreamReading {

/// An enumerator; false outside its table.
template <class E>
bool readKnown(VrexStreamDecoder& stream, E& out) {
    E value{};
    if (!stream.readPacked(value) || !nsEnum::isKnown(value)) {
        return false;
    }
    out = value;
    return true;
}

/// Null for an object of another class.
template <class Target, class Source>
std::shared_ptr<Target> castTo(std::shared_ptr<Source> object) {
    if constexpr (std::is_final_v<Target>) {
        // Of a final class the type alone tells, in less time than a dynamic cast takes.
        const Source* const source = object.get();
        return source != nullptr && typeid(*source) == typeid(Target)
                   ? std::static_pointer_cast<Target>(std::move(object))
                   : nullptr;
    } else {
        return std::dynamic_pointer_cast<Target>(std::move(object));
    }
}

/// The known object of a class; null for an identifier that is not known, or names an object of another one.
template <class Target>
std::shared_ptr<Target> find(const VrexStreamDecoder& stream, std::uint64_t id) {
    if constexpr (std::is_same_v<VrexGeometry3D, Target>) {
        if (auto entity = stream.findEntity(id)) {
            return entity; // Most references are to these.
        }
    }
    if constexpr (std::is_base_of_v<VrexBaseGeometry, Target>) {
        return castTo<Target>(stream.findGeometry(id));
    } else {
        static_assert(std::is_base_of_v<VrexBaseConstraint, Target>);
        return castTo<Target>(stream.findConstraint(id));
    }
}

/// An identifier, which has to name a known object of the class.
template <class Target>
bool readReference(VrexStreamDecoder& stream, std::shared_ptr<Target>& out) {
    std::uint64_t id = 0;
    return stream.readU64(id) && (out = find<Target>(stream, id)) != nullptr;
}

/// A list of identifiers of just these objects.
template <class... Target>
bool readReferences(VrexStreamDecoder& stream, std::shared_ptr<Target>&... out) {
    return stream.readBlock([&] { return (readReference(stream, out) && ...); });
}

/// A list of any number of identifiers.
template <class Target>
bool readReferenceList(VrexStreamDecoder& stream, std::vector<std::shared_ptr<Target>>& out) {
    return stream.readList([&] { return readReference(stream, out.emplace_back()); });
}

} // namespace nsStreamReading
