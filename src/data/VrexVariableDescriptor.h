#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/VrexExport.h"

class VrexBaseObject;

/// A handle of one real parameter of one object, with a name. Copies share the object.
class VREX_DATA_EXPORT VrexVariableDescriptor {
public:
    /// An empty or null `name` asks for the generated one: the object's prefix and identifier, and for an
    /// object of more than one parameter "_" and the index, such as "p17_3" or "v4". Without an object it
    /// stays empty.
    VrexVariableDescriptor(std::shared_ptr<VrexBaseObject> object, std::uint32_t index, const char* name);
    VrexVariableDescriptor(const VrexVariableDescriptor&) = default;
    VrexVariableDescriptor(VrexVariableDescriptor&&) noexcept = default;
    VrexVariableDescriptor& operator=(const VrexVariableDescriptor&) = default;
    VrexVariableDescriptor& operator=(VrexVariableDescriptor&&) noexcept = default;
    ~VrexVariableDescriptor();

    const std::shared_ptr<VrexBaseObject>& object() const { return m_object; }
    std::uint32_t index() const { return m_index; }
    const std::string& variableName() const { return m_variableName; }

    /// The parameter's value; 0.0 where there is no such parameter or no object.
    double getValue() const;
    /// Leaves the dirty flag alone; does nothing where there is no such parameter or no object.
    void setValue(double value);
    /// Whether there is an object.
    bool isValid() const { return m_object != nullptr; }
    /// Whether there is an object, and it has a parameter of this index.
    bool hasParameter() const;
    /// Whether the parameter differs from that of the object's latest snapshot by more than `tolerance`.
    /// False without an object or a snapshot, and where either has no such parameter.
    bool checkChanged(double tolerance) const;

private:
    std::string generatedName() const;

    std::shared_ptr<VrexBaseObject> m_object;
    std::uint32_t m_index;
    std::string m_variableName;
};
