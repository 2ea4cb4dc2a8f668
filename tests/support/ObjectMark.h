#pragma once

#include <memory>
#include <stdexcept>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// A number that travels with an object through copies, snapshots and updates: its first parameter, or, of
/// one without parameters, the first bias record of an entity and the status of what binds entities.
class ObjectMark {
public:
    explicit ObjectMark(std::shared_ptr<VrexBaseObject> object)
        : m_object(std::move(object)), m_parameter(m_object, 0, nullptr) {
        const double before = m_parameter.getValue();
        m_parameter.setValue(before + 1.0);
        m_hasParameter = m_parameter.getValue() == before + 1.0;
        m_parameter.setValue(before);
    }

    double get() const {
        if (m_hasParameter) {
            return m_parameter.getValue();
        }
        if (const auto* const binding = bindingOrNull()) {
            return static_cast<double>(binding->status());
        }
        const auto& bias = entity().biasData();
        return bias.has_value() && !bias->first.empty() ? bias->first.front().second : 0.0;
    }

    void set(double value) {
        if (m_hasParameter) {
            m_parameter.setValue(value);
        } else if (auto* const binding = bindingOrNull()) {
            binding->status() = static_cast<VrexConstraintStatus>(value);
        } else {
            entity().biasData() = VrexGeometryBiasData3D{{{0, value}}, {}};
        }
    }

private:
    VrexBaseConstraint* bindingOrNull() const { return dynamic_cast<VrexBaseConstraint*>(m_object.get()); }
    VrexGeometry3D& entity() const {
        const auto entity = std::dynamic_pointer_cast<VrexGeometry3D>(m_object);
        if (entity == nullptr) {
            throw std::logic_error("An object of this class has nothing to mark it by.");
        }
        return *entity;
    }

    std::shared_ptr<VrexBaseObject> m_object;
    VrexVariableDescriptor m_parameter;
    bool m_hasParameter;
};
