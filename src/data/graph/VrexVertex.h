#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexVertexType.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// A vertex of a constraint graph: one object, a geometry or a constraint, whose owner it shares.
///
/// Many vertices may wrap one object. They are equal by kind and identifier, never by address.
class VREX_DATA_EXPORT VrexVertex {
public:
    virtual ~VrexVertex();
    virtual VrexVertexType getVertexType() = 0;
    /// The wrapped geometry, null for a constraint.
    virtual std::shared_ptr<VrexBaseGeometry> getGeometryPtr() = 0;
    /// The wrapped constraint, null for a geometry.
    virtual std::shared_ptr<VrexBaseConstraint> getConstraintPtr() = 0;
    /// The identifier of the wrapped object, as it is now.
    virtual std::uint64_t getID() const = 0;

protected:
    VrexVertex() = default;
    VrexVertex(const VrexVertex&) = default;
    VrexVertex(VrexVertex&&) = default;
    VrexVertex& operator=(const VrexVertex&) = default;
    VrexVertex& operator=(VrexVertex&&) = default;
};

/// Whether both wrap an object of the same kind with the same identifier: a geometry and a constraint of one
/// identifier are different vertices.
VREX_DATA_EXPORT bool operator==(const VrexVertex& left, const VrexVertex& right);
