#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexBasicEdge.h"
#include "data/graph/VrexVertex.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// An edge of a constraint graph, as a rule from a geometry to a constraint that binds it.
///
/// Made of objects it wraps them in vertices of its own. An edge between two geometries has the second one at
/// its constraint end, and one between two constraints the first one at its geometry end.
class VREX_DATA_EXPORT VrexEdge : public VrexBasicEdge<std::shared_ptr<VrexVertex>> {
public:
    VrexEdge(std::shared_ptr<VrexVertex> first, std::shared_ptr<VrexVertex> second);
    VrexEdge(std::shared_ptr<VrexBaseGeometry> geometry, std::shared_ptr<VrexBaseConstraint> constraint);
    VrexEdge(std::shared_ptr<VrexBaseGeometry> first, std::shared_ptr<VrexBaseGeometry> second);
    VrexEdge(std::shared_ptr<VrexBaseConstraint> first, std::shared_ptr<VrexBaseConstraint> second);
    VrexEdge(const VrexEdge&) = default;
    VrexEdge(VrexEdge&&) noexcept = default;
    VrexEdge& operator=(const VrexEdge&) = default;
    VrexEdge& operator=(VrexEdge&&) noexcept = default;
    ~VrexEdge() override;

    /// The second end where `end` equals the first one by kind and identifier, otherwise the first, also for
    /// what is no end.
    const std::shared_ptr<VrexVertex>& getAnother(const std::shared_ptr<VrexVertex>& end) const override;

    std::shared_ptr<VrexVertex>& getGeometryEnd() { return getFirst(); }
    const std::shared_ptr<VrexVertex>& getGeometryEnd() const { return getFirst(); }
    std::shared_ptr<VrexVertex>& getConstraintEnd() { return getSecond(); }
    const std::shared_ptr<VrexVertex>& getConstraintEnd() const { return getSecond(); }
};
