#include "data/serialization/VrexStreamGraphEncoder.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <utility>

#include <boost/unordered/unordered_flat_set.hpp>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexDependencyOrder.h"
#include "data/VrexLog.h"
#include "data/VrexObjectType.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "data/serialization/VrexStreamEncoder.h"

namespace {

using Geometries = VrexStreamGraphEncoder::Geometries;
using Components = VrexStreamGraphEncoder::Components;

bool isVariable(const VrexBaseObject& object) { return object.baseType() == VrexObjectType::Variable; }

/// What has to stand before the geometry: what it is built on, then the variables that it depends on.
Geometries dependenciesOf(const VrexBaseGeometry& geometry) {
    Geometries dependencies = geometry.getGeometries();
    const auto variables = geometry.getVariables();
    dependencies.insert(dependencies.end(), variables.begin(), variables.end());
    return dependencies;
}

/// The variables that a constraint names, in order, repeats included.
void appendVariables(const VrexBaseConstraint& constraint, Geometries& out) {
    if (const auto* const equation = dynamic_cast<const VrexBaseEquation*>(&constraint)) {
        // Not its geometries, which leave out what has the identifier of another.
        for (const VrexVariableDescriptor& descriptor : equation->descriptors()) {
            if (auto variable = std::dynamic_pointer_cast<VrexGeometryVariable>(descriptor.object())) {
                out.push_back(std::move(variable));
            }
        }
        return;
    }
    const auto& geometries = constraint.getGeometries();
    std::copy_if(geometries.begin(), geometries.end(), std::back_inserter(out),
                 [](const auto& geometry) { return geometry != nullptr && isVariable(*geometry); });
}

/// Whether two different objects of the lists have one identifier.
template <class Object>
class IdCheck {
public:
    void add(const std::vector<std::shared_ptr<Object>>& list) {
        m_objects.reserve(m_objects.size() + list.size());
        for (const auto& object : list) {
            m_objects.emplace_back(object->getID(), object.get());
        }
    }
    bool hasEqualIds() {
        if (!std::is_sorted(m_objects.begin(), m_objects.end())) {
            std::sort(m_objects.begin(), m_objects.end());
        }
        const auto areEqual = [](const Entry& left, const Entry& right) {
            return left.first == right.first && left.second != right.second;
        };
        return std::adjacent_find(m_objects.begin(), m_objects.end(), areEqual) != m_objects.end();
    }

private:
    using Entry = std::pair<std::uint64_t, const Object*>;
    std::vector<Entry> m_objects;
};

} // namespace

VrexStreamGraphEncoder::VrexStreamGraphEncoder() = default;

VrexStreamGraphEncoder::VrexStreamGraphEncoder(VrexStreamGraphEncoder&& other) noexcept
    : m_buffer(std::exchange(other.m_buffer, nullptr)), m_bufferSize(std::exchange(other.m_bufferSize, 0)) {}

VrexStreamGraphEncoder& VrexStreamGraphEncoder::operator=(VrexStreamGraphEncoder&& other) noexcept {
    // What `other` gets is freed with it.
    std::swap(m_buffer, other.m_buffer);
    std::swap(m_bufferSize, other.m_bufferSize);
    return *this;
}

VrexStreamGraphEncoder::~VrexStreamGraphEncoder() { freeBuffer(m_buffer); }

bool VrexStreamGraphEncoder::encodeConstraintGraph(const Geometries& geometries,
                                                   const Constraints& constraints) {
    const std::vector objects{order(geometries, constraints)};
    adviseOfEqualIds(objects);
    return encodeInTwoPasses(
        [&](VrexStreamEncoder& encoder) { return encodeGraph(objects.front(), encoder); });
}

bool VrexStreamGraphEncoder::encodeConstraintGraphs(const Components& components) {
    Components present;
    std::copy_if(components.begin(), components.end(), std::back_inserter(present),
                 [](const auto& component) { return component != nullptr; });
    std::vector<VrexOrderedObjects> objects;
    objects.reserve(present.size());
    for (const auto& component : present) {
        objects.push_back(order(component->getGeometries(), component->getConstraints()));
    }
    adviseOfEqualIds(objects);
    return encodeInTwoPasses(
        [&](VrexStreamEncoder& encoder) { return encodeGraphs(present, objects, encoder); });
}

unsigned char* VrexStreamGraphEncoder::dumpBuffer(unsigned int& size) {
    size = std::exchange(m_bufferSize, 0);
    return std::exchange(m_buffer, nullptr);
}

void VrexStreamGraphEncoder::freeBuffer(unsigned char* buffer) { std::free(buffer); }

void VrexStreamGraphEncoder::reset() {
    freeBuffer(std::exchange(m_buffer, nullptr));
    m_bufferSize = 0;
}

bool VrexStreamGraphEncoder::assign(unsigned int size) {
    reset();
    m_buffer = static_cast<unsigned char*>(std::malloc(size));
    if (m_buffer == nullptr) {
        return false;
    }
    m_bufferSize = size;
    return true;
}

bool VrexStreamGraphEncoder::encodeInTwoPasses(const std::function<bool(VrexStreamEncoder&)>& write) {
    VrexOutputLength measure;
    if (!write(*getEncoder(&measure)) || !assign(measure.length())) {
        return false;
    }
    VrexOutputMemory memory(m_buffer, m_bufferSize);
    return write(*getEncoder(&memory));
}

VrexStreamGraphEncoder::Geometries VrexStreamGraphEncoder::orderGeometries(const Geometries& list) {
    return inDependencyOrder(list, dependenciesOf);
}

VrexStreamGraphEncoder::Constraints VrexStreamGraphEncoder::orderConstraints(const Constraints& list) {
    return inDependencyOrder(list,
                             [](VrexBaseConstraint& constraint) { return constraint.getConstraints(); });
}

VrexStreamGraphEncoder::VrexOrderedObjects VrexStreamGraphEncoder::order(const Geometries& geometries,
                                                                         const Constraints& constraints) {
    VrexOrderedObjects ordered{orderGeometries(geometries), orderConstraints(constraints)};
    Geometries variables;
    for (const auto& constraint : ordered.constraints) {
        appendVariables(*constraint, variables);
    }
    if (variables.empty()) {
        return ordered;
    }
    boost::unordered_flat_set<const VrexBaseGeometry*> known;
    for (const auto& geometry : ordered.geometries) {
        if (isVariable(*geometry)) {
            known.insert(geometry.get());
        }
    }
    std::copy_if(variables.begin(), variables.end(), std::back_inserter(ordered.geometries),
                 [&](const auto& variable) { return known.insert(variable.get()).second; });
    return ordered;
}

void VrexStreamGraphEncoder::adviseOfEqualIds(const std::vector<VrexOrderedObjects>& lists) {
    IdCheck<VrexBaseGeometry> geometries;
    IdCheck<VrexBaseConstraint> constraints;
    for (const VrexOrderedObjects& objects : lists) {
        geometries.add(objects.geometries);
        constraints.add(objects.constraints);
    }
    if (geometries.hasEqualIds() || constraints.hasEqualIds()) {
        VREX_LOG(nsLog::REFUSAL,
                 "Objects with equal identifiers are encoded: the last of them is read as all.");
    }
}

bool VrexStreamGraphEncoder::encodeGraph(const VrexOrderedObjects& objects, VrexStreamEncoder& encoder) {
    return encoder.beginBlock() && encoder.writeObjectList(objects.geometries) &&
           encoder.writeObjectList(objects.constraints) && encoder.endBlock();
}

bool VrexStreamGraphEncoder::encodeGraphs(const Components& components,
                                          const std::vector<VrexOrderedObjects>& objects,
                                          VrexStreamEncoder& encoder) {
    bool isWritten = encoder.beginBlock();
    for (std::size_t i = 0; isWritten && i < components.size(); ++i) {
        isWritten = encoder.writeU64(components[i]->getID()) &&
                    encoder.writeObjectList(objects[i].geometries) &&
                    encoder.writeObjectList(objects[i].constraints) &&
                    encodeOverConstrainedSubsets(components[i]->getOverConstrainedSubsets(), encoder) &&
                    encodeGeometriesDOF(components[i], &encoder);
    }
    return isWritten && encoder.endBlock();
}

bool VrexStreamGraphEncoder::encodeOverConstrainedSubsets(
    const std::vector<std::vector<std::uint64_t>>& subsets, VrexStreamEncoder& encoder) {
    return encoder.writeList(subsets, [&](const auto& subset) { return encoder.writeIdList(subset); });
}
