#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexVertex.h"

/// A vertex that wraps a geometry; one that wraps null has identifier 0.
class VREX_DATA_EXPORT VrexGeometryVertex : public VrexVertex {
public:
    explicit VrexGeometryVertex(std::shared_ptr<VrexBaseGeometry> geometry);
    VrexGeometryVertex(const VrexGeometryVertex&);
    VrexGeometryVertex(VrexGeometryVertex&&) noexcept;
    VrexGeometryVertex& operator=(const VrexGeometryVertex&);
    VrexGeometryVertex& operator=(VrexGeometryVertex&&) noexcept;
    ~VrexGeometryVertex() override;

    VrexVertexType getVertexType() override;
    std::shared_ptr<VrexBaseGeometry> getGeometryPtr() override;
    std::shared_ptr<VrexBaseConstraint> getConstraintPtr() override;
    std::uint64_t getID() const override;

private:
    friend class VrexConstraintGraph;

    std::shared_ptr<VrexBaseGeometry> m_geometry;
};
