#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexBaseGeometry.h"
#include "data/VrexExport.h"

/// A geometric entity, as against a free scalar: base kind `Geometry`.
class VREX_DATA_EXPORT VrexGeometry : public VrexBaseGeometry {
public:
    void accept(VrexVisitor3D& visitor) override;
    /// `getGeometries()` without what is no entity.
    std::vector<std::shared_ptr<VrexGeometry>> geometries() const;

protected:
    VrexGeometry();
    explicit VrexGeometry(std::uint32_t parameterCount);
    VrexGeometry(const VrexGeometry&) = default;
    VrexGeometry(VrexGeometry&&) = default;
    VrexGeometry& operator=(const VrexGeometry&) = default;
    VrexGeometry& operator=(VrexGeometry&&) = default;
};
