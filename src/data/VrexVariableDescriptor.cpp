#include "data/VrexVariableDescriptor.h"

#include <cmath>
#include <utility>

#include "data/VrexBaseObject.h"
#include "data/VrexDeferredRelease.h"

VrexVariableDescriptor::VrexVariableDescriptor(std::shared_ptr<VrexBaseObject> object, std::uint32_t index,
                                               const char* name)
    : m_object(std::move(object)), m_index(index) {
    m_variableName = name != nullptr && *name != '\0' ? name : generatedName();
}

// An object may own descriptors of others that own descriptors, and so on.
VrexVariableDescriptor::~VrexVariableDescriptor() { nsRelease::drop(std::move(m_object)); }

std::string VrexVariableDescriptor::generatedName() const {
    if (!isValid()) {
        return {};
    }
    std::string name = m_object->getNamePrefix();
    name += std::to_string(m_object->getID());
    if (m_object->getParameterSize() > 1) {
        name += '_';
        name += std::to_string(m_index);
    }
    return name;
}

bool VrexVariableDescriptor::hasParameter() const {
    return isValid() && m_index < m_object->getParameterSize();
}

double VrexVariableDescriptor::getValue() const {
    return hasParameter() ? m_object->getParameter(m_index) : 0.0;
}

void VrexVariableDescriptor::setValue(double value) {
    if (hasParameter()) {
        m_object->setParameter(m_index, value);
    }
}

bool VrexVariableDescriptor::checkChanged(double tolerance) const {
    if (!hasParameter()) {
        return false;
    }
    const std::shared_ptr<const VrexBaseObject> backup = m_object->getBackup();
    if (backup == nullptr || m_index >= backup->getParameterSize()) {
        return false;
    }
    return std::fabs(m_object->getParameter(m_index) - backup->getParameter(m_index)) > tolerance;
}
