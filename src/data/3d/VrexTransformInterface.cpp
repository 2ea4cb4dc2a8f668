#include "data/3d/VrexTransformInterface.h"

#include "data/3d/VrexDragRecords.h"

VrexTransformInterface::~VrexTransformInterface() = default;

bool VrexTransformInterface::isTransformed(const std::shared_ptr<VrexGeometry>& geometry) const {
    return m_geometryIndex.contains(geometry) || m_parameterIndex.contains(geometry);
}

bool VrexTransformInterface::isTransformed(const std::shared_ptr<VrexGeometryVariable>& variable) const {
    return m_variableIndex.contains(variable);
}

bool VrexTransformInterface::applyVariableTransform(const std::shared_ptr<VrexGeometryVariable>& variable,
                                                    double value) {
    if (variable == nullptr) {
        return false;
    }
    const auto enter = [this](const VrexDragVariable& record, std::uint64_t place) {
        m_variableIndex[record.variable] = place;
    };
    nsDragRecords::append(m_variableTransformations, {variable, value}, enter);
    return true;
}

std::vector<std::shared_ptr<VrexGeometryVariable>> VrexTransformInterface::getTransformedVariables() const {
    std::vector<std::shared_ptr<VrexGeometryVariable>> variables;
    variables.reserve(m_variableTransformations.size());
    for (const VrexDragVariable& record : m_variableTransformations) {
        variables.push_back(record.variable);
    }
    return variables;
}
