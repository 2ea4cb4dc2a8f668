#pragma once

#include <memory>
#include <stdexcept>
#include <utility>

#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// A number that travels with an object through copies, snapshots and updates: its first parameter, or the
/// first bias record of an object without parameters.
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
        double number = 0.0;
        withBias([&number](const auto& bias) {
            if (bias.has_value() && !bias->first.empty()) {
                number = bias->first.front().second;
            }
        });
        return number;
    }

    void set(double value) {
        if (m_hasParameter) {
            m_parameter.setValue(value);
        } else {
            withBias([value](auto& bias) { bias.emplace().first = {{0, value}}; });
        }
    }

private:
    template <class Action>
    void withBias(const Action& action) const {
        if (const auto entity = std::dynamic_pointer_cast<VrexGeometry3D>(m_object)) {
            action(entity->biasData());
        } else if (const auto constraint = std::dynamic_pointer_cast<VrexConstraint3D>(m_object)) {
            action(constraint->biasData());
        } else {
            throw std::logic_error("An object of this class has nothing to mark it by.");
        }
    }

    std::shared_ptr<VrexBaseObject> m_object;
    VrexVariableDescriptor m_parameter;
    bool m_hasParameter;
};
