#pragma once

#include <cstdint>

#include <gtest/gtest.h>

#include "data/VrexBaseObject.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "support/ObjectGraph.h"

/// What has to hold of a system and its deep copy, for any way of writing systems down.
namespace nsCopyChecks {

/// All that a system reaches, but what is dragged.
inline ObjectGraph graphOf(const VrexImmutableSystem3D& system) {
    return ObjectGraph(system.geometries(), system.variables(), system.constraints(), system.equations(),
                       system.referenceGeometries());
}

/// Changes what all objects have: every parameter, the identifier, the label, the dirty flag, the snapshots.
inline void change(VrexBaseObject& object) {
    struct Access : VrexBaseObject {
        using VrexBaseObject::getParameter;
        using VrexBaseObject::getParameterSize;
        using VrexBaseObject::setParameter;
    };
    const std::uint32_t size = (object.*(&Access::getParameterSize))();
    for (std::uint32_t i = 0; i < size; ++i) {
        (object.*(&Access::setParameter))(i, (object.*(&Access::getParameter))(i) + 1.0);
    }
    object.setID(object.getID() + 1);
    object.label() += "changed";
    object.setDirty(!object.isDirty());
    object.backup();
}

/// `write` gives something comparable for a system, such as its document: the same for a copy, which is as
/// independent as its source.
template <class Write>
void expectCopyIsWrittenAlike(const VrexImmutableSystem3D& system, const Write& write) {
    const auto written = write(system);
    const VrexImmutableSystem3D copy = system.deepCopy();
    ASSERT_EQ(write(copy), written);
    const ObjectGraph copies = graphOf(copy);
    for (const auto& object : copies.objects()) {
        change(*object);
    }
    ASSERT_EQ(write(system), written);
}

} // namespace nsCopyChecks
