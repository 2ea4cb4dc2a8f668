#include "data/operation/VrexGeometryOperationData.h"

VrexGeometryOperationData::VrexGeometryOperationData(const std::shared_ptr<VrexBaseGeometry>& geometry)
    : m_geometry(geometry) {}

VrexOperationDataType VrexGeometryOperationData::getType() const { return VrexOperationDataType::Geometry; }
