#pragma once

#include <cstdint>
#include <memory>

#include <gtest/gtest.h>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "support/StreamProbe.h"

/// Objects as `VrexStreamEncoder3D` writes them.
namespace nsStreamEncoding {

using nsStreamProbe::Bytes;

/// Whether the object can be written; measured alone.
inline bool isEncoded(const std::shared_ptr<VrexBaseObject>& object) {
    VrexOutputLength length;
    return VrexStreamEncoder3D(&length).encodeObject(object);
}

/// Expects that both passes agree, and that nothing fits into one byte less.
inline Bytes encoded(const std::shared_ptr<VrexBaseObject>& object) {
    VrexOutputLength length;
    EXPECT_TRUE(VrexStreamEncoder3D(&length).encodeObject(object));
    Bytes bytes(length.length());
    VrexOutputMemory memory(bytes.data(), length.length());
    EXPECT_TRUE(VrexStreamEncoder3D(&memory).encodeObject(object));
    EXPECT_EQ(memory.length(), length.length());
    EXPECT_EQ(memory.position(), length.length());
    Bytes short_(length.length());
    VrexOutputMemory less(short_.data(), length.length() - 1);
    EXPECT_FALSE(VrexStreamEncoder3D(&less).encodeObject(object));
    EXPECT_EQ(less.position(), 0U);
    return bytes;
}

/// Sets what `nsStreamObjects::common(id)` says.
template <class Geometry>
std::shared_ptr<Geometry> marked(std::shared_ptr<Geometry> object, std::uint64_t id) {
    object->setID(id);
    object->label() = "mark";
    object->setDirty(false);
    if constexpr (std::is_base_of_v<VrexBaseGeometry, Geometry>) {
        object->status() = VrexGeometryStatus::Overdefined;
        object->setChangeStatus(VrexGeometryChangeStatus::Changed);
    } else {
        object->status() = VrexConstraintStatus::BetweenSetMembers;
        object->satisfiedStatus() = VrexConstraintSatisfiedStatus::NotSatisfied;
    }
    return object;
}

} // namespace nsStreamEncoding
