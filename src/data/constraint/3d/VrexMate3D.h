#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// The base of the joints between two connectors: one dimension for each free degree.
///
/// An update takes over the dimensions and keeps the connectors.
class VREX_DATA_EXPORT VrexMate3D : public VrexConstraint3D {
public:
    void accept(VrexVisitor3D& visitor) override;
    /// Whether the dimension of this index can have these limits; true by default. Limits that are set are
    /// not held against this: the caller asks.
    virtual bool checkDimensionLimits(std::uint64_t index, const VrexDimensionLimits& limits) const;

    /// Unchecked: callers use the class's index constants, or compare with `getDimensionSize()` first.
    VrexMateDimension3D& getDimension(std::uint64_t index);
    const VrexMateDimension3D& getDimension(std::uint64_t index) const;
    std::uint64_t getDimensionSize() const { return m_dimensions.size(); }

protected:
    VrexMate3D(VrexConstraint3DType type, const std::shared_ptr<VrexConnector3D>& connector1,
               const std::shared_ptr<VrexConnector3D>& connector2, std::uint64_t dimensionCount);
    VrexMate3D(const VrexMate3D&) = default;
    VrexMate3D(VrexMate3D&&) = default;
    VrexMate3D& operator=(const VrexMate3D&) = default;
    VrexMate3D& operator=(VrexMate3D&&) = default;

private:
    std::vector<VrexMateDimension3D> m_dimensions;
};
