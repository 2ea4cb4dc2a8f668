#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexVertex.h"

/// A vertex that wraps a constraint; one that wraps null has identifier 0.
class VREX_DATA_EXPORT VrexConstraintVertex : public VrexVertex {
public:
    explicit VrexConstraintVertex(std::shared_ptr<VrexBaseConstraint> constraint);
    VrexConstraintVertex(const VrexConstraintVertex&);
    VrexConstraintVertex(VrexConstraintVertex&&) noexcept;
    VrexConstraintVertex& operator=(const VrexConstraintVertex&);
    VrexConstraintVertex& operator=(VrexConstraintVertex&&) noexcept;
    ~VrexConstraintVertex() override;

    VrexVertexType getVertexType() override;
    std::shared_ptr<VrexBaseGeometry> getGeometryPtr() override;
    std::shared_ptr<VrexBaseConstraint> getConstraintPtr() override;
    std::uint64_t getID() const override;

private:
    friend class VrexConstraintGraph;

    std::shared_ptr<VrexBaseConstraint> m_constraint;
};
