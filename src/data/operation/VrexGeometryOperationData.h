#pragma once

#include <memory>

#include "data/VrexBaseGeometry.h"
#include "data/VrexExport.h"
#include "data/operation/VrexOperationData.h"

/// Names a geometry or a free scalar. Copies share the object; null is stored as given.
class VREX_DATA_EXPORT VrexGeometryOperationData final : public VrexOperationData {
public:
    explicit VrexGeometryOperationData(const std::shared_ptr<VrexBaseGeometry>& geometry);

    VrexOperationDataType getType() const override; ///< `Geometry`.

    const std::shared_ptr<VrexBaseGeometry>& getGeometry() const { return m_geometry; }

private:
    std::shared_ptr<VrexBaseGeometry> m_geometry;
};
