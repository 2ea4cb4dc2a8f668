#include "data/VrexConstraintSystemCloner.h"

#include <algorithm>
#include <stdexcept>
#include <typeinfo>

#include "data/VrexCloneTable.h"
#include "data/VrexLog.h"
#include "data/constraint/VrexConstraint.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"

using Objects = std::vector<std::shared_ptr<VrexBaseObject>>;

/// One attempt to make the clone of an object.
class VrexConstraintSystemCloner::Visit {
public:
    Visit(VrexConstraintSystemCloner& cloner, VrexBaseObject& object) : m_source(object) {
        const Active active(cloner.m_visit, *this);
        VrexBaseObject*& place = (*cloner.m_clones)[object];
        place = &object;
        object.accept(cloner);
        if (m_clone != nullptr) {
            place = m_clone.get();
        } else if (m_missing.empty()) {
            raiseNotFound();
        }
    }

    bool isDue(const VrexBaseObject& object) const { return &object == &m_source && m_clone == nullptr; }
    void setClone(std::shared_ptr<VrexBaseObject> clone) {
        if (const VrexBaseObject* const made = clone.get();
            made == nullptr || typeid(*made) != typeid(m_source)) {
            raiseNotFound();
        }
        if (m_missing.empty()) {
            m_clone = std::move(clone);
        }
    }
    void need(const std::shared_ptr<VrexBaseObject>& object) { m_missing.push_back(object); }

    /// Null where the clone cannot be made before those that are missing.
    std::shared_ptr<VrexBaseObject>& clone() { return m_clone; }
    /// What has to be cloned besides, in order.
    Objects& missing() { return m_missing; }

private:
    /// The cloner's visit, for the time of a scope.
    struct Active {
        Visit*& current;
        Visit* const outer;

        Active(Visit*& place, Visit& visit) : current(place), outer(std::exchange(place, &visit)) {}
        Active(const Active&) = delete;
        Active& operator=(const Active&) = delete;
        ~Active() { current = outer; }
    };

    VrexBaseObject& m_source;
    std::shared_ptr<VrexBaseObject> m_clone;
    Objects m_missing;
};

/// Makes clones in the order of a recursive descent, on a stack of its own: what an object needs may go as
/// deep as there are objects.
///
/// A ring closes where an object is needed whose clone is being made. It can be made after all, by a second
/// step beside the first, where the ring goes through descriptors: the clone that has them is there already.
class VrexConstraintSystemCloner::Walk {
public:
    explicit Walk(VrexConstraintSystemCloner& cloner) : m_cloner(cloner) {}

    /// Ends the attempt to clone `source`; all but its own clone are listed.
    std::shared_ptr<VrexBaseObject> finish(const std::shared_ptr<VrexBaseObject>& source, Visit& visit) {
        push(source, visit, false);
        while (m_steps.size() > 1 || !isDone(m_steps.back())) {
            advance();
        }
        return std::move(m_steps.back().clone);
    }

private:
    struct Step {
        std::shared_ptr<VrexBaseObject> source;
        std::shared_ptr<VrexBaseObject> clone; ///< Null until it can be made; at once if it is described.
        Objects missing;
        bool isSecond;
        std::size_t next = 0;
    };

    static bool isDone(const Step& step) { return step.clone != nullptr && step.next == step.missing.size(); }

    void advance() {
        Step& step = m_steps.back();
        if (isDone(step)) {
            complete(step.source, step.clone, step.isSecond);
            m_steps.pop_back();
        } else if (step.next < step.missing.size()) {
            follow(step);
        } else {
            visitAgain(step);
        }
    }

    void push(const std::shared_ptr<VrexBaseObject>& source, Visit& visit, bool isSecond) {
        m_steps.push_back({source, std::move(visit.clone()), std::move(visit.missing()), isSecond});
    }

    void complete(const std::shared_ptr<VrexBaseObject>& source, const std::shared_ptr<VrexBaseObject>& clone,
                  bool isSecond) {
        if (isSecond) {
            Step& first = *std::ranges::find(m_steps, source, &Step::source);
            first.clone = clone;
            first.next = first.missing.size();
        } else {
            m_cloner.list(source, clone);
        }
    }

    void follow(Step& step) {
        const std::shared_ptr<VrexBaseObject> object = step.missing[step.next++];
        const VrexBaseObject* const clone = m_cloner.m_clones->find(*object);
        const bool isSecond = clone == object.get();
        if (isSecond && !isBehindDescribed(object)) {
            raiseNotFound();
        }
        if (clone == nullptr || isSecond) {
            Visit visit(m_cloner, *object);
            if (visit.missing().empty()) {
                complete(object, visit.clone(), isSecond);
            } else {
                push(object, visit, isSecond);
            }
        }
    }

    /// Whether a clone was there since the last step of this object.
    bool isBehindDescribed(const std::shared_ptr<VrexBaseObject>& object) const {
        const auto last = std::find_if(m_steps.rbegin(), m_steps.rend(), [&object](const Step& step) {
            return step.source == object || step.clone != nullptr;
        });
        return last != m_steps.rend() && last->source != object;
    }

    void visitAgain(Step& step) {
        step.clone = m_cloner.findMade(step.source.get());
        if (step.clone == nullptr) {
            Visit visit(m_cloner, *step.source);
            step.clone = std::move(visit.clone());
            step.missing = std::move(visit.missing());
            step.next = 0;
        }
    }

    VrexConstraintSystemCloner& m_cloner;
    std::vector<Step> m_steps;
};

VrexConstraintSystemCloner::VrexConstraintSystemCloner() : m_clones(std::make_unique<VrexCloneTable>()) {}

VrexConstraintSystemCloner::~VrexConstraintSystemCloner() = default;

void VrexConstraintSystemCloner::cloneAll(
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    reserve(geometries.size() + constraints.size());
    m_sources.reserve(geometries.size() + constraints.size());
    m_geometries.reserve(geometries.size());
    m_constraints.reserve(constraints.size());
    const auto clone = [this](const std::shared_ptr<VrexBaseObject>& object) { getClonedObject(object); };
    forEach(geometries, clone);
    forEach(constraints, clone);
    linkParents();
}

void VrexConstraintSystemCloner::reserve(std::size_t count) { m_clones->reserve(count); }

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::findClone(const std::shared_ptr<VrexBaseObject>& object) const {
    return findMade(object.get());
}

std::shared_ptr<VrexBaseObject> VrexConstraintSystemCloner::findMade(const VrexBaseObject* object) const {
    VrexBaseObject* const clone = object != nullptr ? (*m_clones)[*object] : nullptr;
    return clone != nullptr && clone != object ? clone->shared_from_this() : nullptr;
}

std::shared_ptr<VrexBaseObject> VrexConstraintSystemCloner::findKnown(const VrexBaseObject* object) const {
    if (object != nullptr && (*m_clones)[*object] == object) {
        raiseNotFound();
    }
    return findMade(object);
}

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::getClonedObject(const std::shared_ptr<VrexBaseObject>& object) {
    auto clone = cloneIfKnown(object);
    if (clone == nullptr && object != nullptr) {
        clone = makeClone(object);
        list(object, clone);
        describe();
    }
    return clone;
}

std::shared_ptr<VrexBaseObject>
VrexConstraintSystemCloner::makeClone(const std::shared_ptr<VrexBaseObject>& object) {
    Visit visit(*this, *object);
    return visit.missing().empty() ? std::move(visit.clone()) : Walk(*this).finish(object, visit);
}

void VrexConstraintSystemCloner::list(const std::shared_ptr<VrexBaseObject>& source,
                                      const std::shared_ptr<VrexBaseObject>& clone) {
    m_sources.push_back(source);
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

void VrexConstraintSystemCloner::describeLater(const VrexVariableDescriptorInterface& source,
                                               VrexVariableDescriptorInterface& clone) {
    m_undescribed.emplace_back(&source, &clone);
    for (const VrexVariableDescriptor& descriptor : source.descriptors()) {
        if (descriptor.isValid() && m_clones->find(*descriptor.object()) == nullptr) {
            need(descriptor.object());
        }
    }
}

void VrexConstraintSystemCloner::describe() {
    if (m_visit != nullptr || m_undescribed.empty()) {
        return;
    }
    for (const auto& [source, clone] : std::exchange(m_undescribed, {})) {
        clone->setDescriptors(cloneDescriptors(source->descriptors()));
    }
}

void VrexConstraintSystemCloner::linkParents() {
    const auto cloneOfChild = [this](const VrexConstraint& child) {
        return static_cast<VrexConstraint*>(m_clones->find(child));
    };
    for (const VrexConstraint* const child : m_children) {
        cloneOfChild(*child)->setParent(
            std::static_pointer_cast<VrexConstraint>(findClone(child->getParent())));
    }
}

bool VrexConstraintSystemCloner::isDue(VrexBaseObject& object) {
    if (m_visit != nullptr && m_visit->isDue(object)) {
        return true;
    }
    getClonedObject(object.shared_from_this());
    return false;
}

void VrexConstraintSystemCloner::setClone(std::shared_ptr<VrexBaseObject> clone) {
    m_visit->setClone(std::move(clone));
}

void VrexConstraintSystemCloner::need(const std::shared_ptr<VrexBaseObject>& object) {
    m_visit->need(object);
}

void VrexConstraintSystemCloner::raiseNotFound() {
    VREX_RAISE(std::runtime_error, "VrexConstraintSystemCloner::getNewObjects: clone object not found");
}

std::shared_ptr<VrexBaseObject> VrexConstraintSystemCloner::copyWithoutBackup(VrexBaseObject& object) {
    auto copy = object.makeCopy();
    copy->clearBackup();
    return copy;
}

void VrexConstraintSystemCloner::rebind(VrexConstraint& clone, VrexConstraint& source) {
    for (std::shared_ptr<VrexBaseGeometry>& geometry : clone.m_geometries) {
        geometry = boundClone(geometry);
    }
    clone.m_geometriesChanged = true;
    if (clone.getParent() != nullptr) {
        clone.setParent(nullptr);
        m_children.push_back(&source);
    }
}

std::shared_ptr<VrexBaseGeometry>
VrexConstraintSystemCloner::boundClone(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    auto clone = cloneIfKnown(geometry);
    if (clone != nullptr || geometry == nullptr) {
        return clone;
    }
    if (geometry->baseType() != VrexObjectType::Variable) {
        raiseNotFound();
    }
    return cloneOf(geometry);
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
