#include "data/VrexBaseObject.h"

#include <utility>

#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/VrexVariableDescriptor.h"

VREX_OBJECT_ACCEPT(VrexBaseObject)

VrexBaseObject::VrexBaseObject(VrexObjectType type, std::uint32_t parameterCount)
    : m_type(type), m_parameters(parameterCount) {}

VrexBaseObject::VrexBaseObject(const VrexBaseObject& other) = default;

VrexBaseObject::VrexBaseObject(VrexBaseObject&& other) noexcept = default;

VrexBaseObject& VrexBaseObject::operator=(const VrexBaseObject& other) = default;

VrexBaseObject& VrexBaseObject::operator=(VrexBaseObject&& other) noexcept = default;

VrexBaseObject::~VrexBaseObject() {
    if (m_backup != nullptr) {
        nsRelease::drop(std::move(m_backup));
    }
}

void VrexBaseObject::backup() { m_backup = makeCopy(); }

void VrexBaseObject::restore() {
    // Held here, since the assignment replaces the backup that it reads.
    if (const std::shared_ptr<VrexBaseObject> snapshot = m_backup) {
        doRestore(*snapshot);
    }
}

void VrexBaseObject::clearBackup() { m_backup.reset(); }

void VrexBaseObject::updateFrom(std::shared_ptr<VrexBaseObject> other) {
    // Held here, since the update may drop the last other share: a snapshot of this object, for one.
    if (const std::shared_ptr<VrexBaseObject> source = std::move(other)) {
        doUpdateFrom(*source);
    }
}

void VrexBaseObject::doUpdateFrom(const VrexBaseObject& other) { doRestore(other); }

void VrexBaseObject::doRestore(const VrexBaseObject& source) {
    const VrexMemberKeeper kept(m_id, m_label);
    restoreFromCopy(source);
}

bool VrexBaseObject::isEqualParameters(const VrexBaseObject& other) const {
    if (getParameterSize() != other.getParameterSize()) {
        return false;
    }
    for (std::uint32_t i = 0; i < getParameterSize(); ++i) {
        if (!(getParameter(i) == other.getParameter(i))) {
            return false;
        }
    }
    return true;
}

VrexVariableDescriptor VrexBaseObject::makeVariableDescriptor(std::uint32_t index, const char* name) {
    return VrexVariableDescriptor(shared_from_this(), index, name);
}
