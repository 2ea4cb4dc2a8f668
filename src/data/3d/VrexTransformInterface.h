#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "data/3d/VrexDragVariable.h"
#include "data/VrexExport.h"
#include "data/geometry/VrexGeometry.h"

/// What a drag asks of the solver, as far as it knows no dimension: the variables, and which entities are
/// meant. It holds all that it names strongly: what is removed from a system stays here.
class VREX_DATA_EXPORT VrexTransformInterface {
public:
    virtual ~VrexTransformInterface();
    virtual bool isEmpty() const = 0;
    /// Whether the entity is moved, or one of its parameters driven.
    virtual bool isTransformed(const std::shared_ptr<VrexGeometry>& geometry) const;
    /// The entities that are moved, each once.
    virtual std::vector<std::shared_ptr<VrexGeometry>> getTransformedGeoms() const = 0;
    /// The entities of which a parameter is driven, each once.
    virtual std::vector<std::shared_ptr<VrexGeometry>> getDragParamGeoms() const = 0;

    bool isTransformed(const std::shared_ptr<VrexGeometryVariable>& variable) const;
    /// Appends a target value; one that the variable had before stays. False, and nothing changed, for null.
    bool applyVariableTransform(const std::shared_ptr<VrexGeometryVariable>& variable, double value);
    /// The variables in the order of their records, repeats included.
    std::vector<std::shared_ptr<VrexGeometryVariable>> getTransformedVariables() const;
    const std::vector<VrexDragVariable>& variableTransformations() const { return m_variableTransformations; }

protected:
    VrexTransformInterface() = default;
    VrexTransformInterface(const VrexTransformInterface&) = default;
    VrexTransformInterface(VrexTransformInterface&&) = default;
    VrexTransformInterface& operator=(const VrexTransformInterface&) = default;
    VrexTransformInterface& operator=(VrexTransformInterface&&) = default;

    std::unordered_map<std::shared_ptr<VrexGeometry>, std::uint64_t> m_geometryIndex;
    std::unordered_map<std::shared_ptr<VrexGeometry>, std::vector<std::uint64_t>> m_parameterIndex;
    /// To the latest record of a variable.
    std::unordered_map<std::shared_ptr<VrexGeometryVariable>, std::uint64_t> m_variableIndex;
    std::vector<VrexDragVariable> m_variableTransformations;
};
