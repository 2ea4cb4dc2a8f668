#include "data/VrexConstraintSystemCloner.h"

#include <cstddef>
#include <stdexcept>

#include "data/VrexCloneReferences.h"
#include "data/VrexLog.h"
#include "data/constraint/VrexConstraint.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

[[noreturn]] void raiseNotFound() {
    VREX_RAISE(std::runtime_error, "VrexConstraintSystemCloner::getNewObjects: clone object not found");
}

} // namespace

/// Makes clones in the order of a recursive descent, on a stack of its own: what an object needs may go as
/// deep as there are objects.
class VrexConstraintSystemCloner::Walk {
public:
    explicit Walk(VrexConstraintSystemCloner& cloner) : m_cloner(cloner) {}

    /// Makes the clone of a new entry.
    void descend(Entry& entry) {
        enter(entry);
        while (!m_steps.empty()) {
            Step& step = m_steps.back();
            if (step.next == step.references.size()) {
                Entry& finished = *step.entry;
                m_steps.pop_back();
                leave(finished);
            } else {
                follow(step);
            }
        }
    }

private:
    struct Step {
        Entry* entry;
        VrexCloneReferences::Objects references;
        std::size_t next = 0;
    };

    void enter(Entry& entry) {
        m_references.clear();
        entry.first->accept(m_references);
        if (m_references.areDescribed()) {
            m_cloner.make(entry);
        }
        if (m_references.objects().empty()) {
            leave(entry);
        } else {
            m_steps.push_back({&entry, std::move(m_references.objects())});
        }
    }

    void follow(Step& step) {
        const auto& reference = step.references[step.next++];
        if (reference == nullptr) {
            return;
        }
        const auto [place, isNew] = m_cloner.m_clones.try_emplace(reference);
        if (isNew) {
            enter(*place);
        } else if (place->second == nullptr && step.entry->second == nullptr) {
            raiseNotFound();
        }
    }

    void leave(Entry& entry) {
        if (entry.second == nullptr) {
            m_cloner.make(entry);
        }
        m_cloner.list(entry.second);
    }

    VrexConstraintSystemCloner& m_cloner;
    VrexCloneReferences m_references;
    std::vector<Step> m_steps;
};

VrexConstraintSystemCloner::VrexConstraintSystemCloner() = default;

VrexConstraintSystemCloner::~VrexConstraintSystemCloner() = default;

void VrexConstraintSystemCloner::cloneAll(
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    m_clones.reserve(geometries.size() + constraints.size());
    m_geometries.reserve(geometries.size());
    m_constraints.reserve(constraints.size());
    for (const auto& geometry : geometries) {
        getClonedObject(geometry);
    }
    for (const auto& constraint : constraints) {
        getClonedObject(constraint);
    }
    linkParents();
}

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::findClone(const std::shared_ptr<VrexBaseObject>& object) const {
    const auto found = m_clones.find(object);
    return found != m_clones.end() ? found->second : nullptr;
}

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::getClonedObject(const std::shared_ptr<VrexBaseObject>& object) {
    if (object == nullptr) {
        return nullptr;
    }
    const auto [place, isNew] = m_clones.try_emplace(object);
    if (isNew) {
        Walk(*this).descend(*place);
        if (m_due == nullptr) {
            describe();
        }
    } else if (place->second == nullptr) {
        raiseNotFound();
    }
    return place->second;
}

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::getNewObject(const std::shared_ptr<VrexBaseObject>& object) const {
    auto clone = findClone(object);
    if (clone == nullptr && object != nullptr) {
        raiseNotFound();
    }
    return clone;
}

std::vector<VrexVariableDescriptor>
VrexConstraintSystemCloner::cloneDescriptors(const std::vector<VrexVariableDescriptor>& descriptors) {
    std::vector<VrexVariableDescriptor> clones;
    clones.reserve(descriptors.size());
    for (const VrexVariableDescriptor& descriptor : descriptors) {
        clones.emplace_back(getClonedObject(descriptor.object()), descriptor.index(),
                            descriptor.variableName().c_str());
    }
    return clones;
}

void VrexConstraintSystemCloner::make(Entry& entry) {
    Entry* const outer = std::exchange(m_due, &entry);
    entry.first->accept(*this);
    m_due = outer;
    if (entry.second == nullptr) {
        raiseNotFound();
    }
}

void VrexConstraintSystemCloner::list(const std::shared_ptr<VrexBaseObject>& clone) {
    switch (clone->baseType()) {
    case VrexObjectType::Geometry:
    case VrexObjectType::Variable:
        m_geometries.push_back(std::static_pointer_cast<VrexBaseGeometry>(clone));
        break;
    case VrexObjectType::Constraint:
    case VrexObjectType::Equation:
        m_constraints.push_back(std::static_pointer_cast<VrexBaseConstraint>(clone));
        break;
    }
}

void VrexConstraintSystemCloner::describe() {
    for (const auto& [source, clone] : std::exchange(m_undescribed, {})) {
        clone->setDescriptors(cloneDescriptors(source->descriptors()));
    }
}

void VrexConstraintSystemCloner::linkParents() {
    for (const auto& [clone, parent] : m_children) {
        clone->setParent(std::static_pointer_cast<VrexConstraint>(findClone(parent)));
    }
}

bool VrexConstraintSystemCloner::isDue(VrexBaseObject& object) {
    if (m_due != nullptr && m_due->first.get() == &object && m_due->second == nullptr) {
        return true;
    }
    getClonedObject(object.shared_from_this());
    return false;
}

void VrexConstraintSystemCloner::setClone(std::shared_ptr<VrexBaseObject> clone) {
    m_due->second = std::move(clone);
}

std::shared_ptr<VrexBaseObject> VrexConstraintSystemCloner::copyWithoutBackup(VrexBaseObject& object) {
    auto copy = object.makeCopy();
    copy->clearBackup();
    return copy;
}

void VrexConstraintSystemCloner::rebind(VrexConstraint& clone) {
    for (std::shared_ptr<VrexBaseGeometry>& geometry : clone.m_geometries) {
        const bool isVariable = geometry != nullptr && geometry->baseType() == VrexObjectType::Variable;
        geometry = std::static_pointer_cast<VrexBaseGeometry>(isVariable ? getClonedObject(geometry)
                                                                         : getNewObject(geometry));
    }
    clone.m_geometriesChanged = true;
    if (auto parent = clone.getParent()) {
        clone.setParent(nullptr);
        m_children.emplace_back(&clone, std::move(parent));
    }
}

void VrexConstraintSystemCloner::cloneLeaf(VrexBaseObject& object) {
    if (isDue(object)) {
        setClone(copyWithoutBackup(object));
    }
}

void VrexConstraintSystemCloner::visitBaseObject(VrexBaseObject&) {
    VREX_RAISE(std::runtime_error, "VrexConstraintSystemCloner: not implemented");
}

void VrexConstraintSystemCloner::visitGeometryVariable(VrexGeometryVariable& variable) {
    cloneLeaf(variable);
}

void VrexConstraintSystemCloner::visitCallbackEquation(VrexCallbackEquation& equation) {
    cloneDescribed(equation);
}

void VrexConstraintSystemCloner::visitExpressionEquation(VrexExpressionEquation& equation) {
    cloneDescribed(equation);
}
