#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "data/VrexExport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexGeometry3D;

/// The objects that were read from a stream, by identifier. Geometries and variables are numbered apart from
/// constraints and equations, so an identifier has a slot for either.
///
/// Identifiers near the first one have their places in a row, however many there are; others are found in
/// logarithmic time. Nothing is hashed, so that no choice of identifiers makes it slow.
class VREX_DATA_EXPORT VrexDecodedObjects {
public:
    struct Slots {
        std::shared_ptr<VrexBaseGeometry> geometry;
        VrexGeometry3D* entity = nullptr; ///< The geometry, if it is known to be an entity in space.
        std::shared_ptr<VrexBaseConstraint> constraint;
    };

    /// `most`: how many objects the stream can hold. Room is made for these; the row has at most twice as
    /// many places.
    explicit VrexDecodedObjects(std::uint32_t most);
    VrexDecodedObjects(const VrexDecodedObjects&) = delete;
    VrexDecodedObjects& operator=(const VrexDecodedObjects&) = delete;
    ~VrexDecodedObjects();

    /// The slots of an identifier, empty at first; valid until the next call.
    Slots& at(std::uint64_t id);
    /// Null, or empty slots, for an identifier that was never asked `at`.
    const Slots* find(std::uint64_t id) const;

private:
    void openRow(std::uint64_t id);

    std::uint64_t m_most;
    std::uint64_t m_first = 0; ///< The identifier of the row's first place.
    std::vector<Slots> m_row;
    std::map<std::uint64_t, Slots> m_others;
};
