#include "data/serialization/VrexStreamGraphEncoder.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <utility>

#include <boost/unordered/unordered_flat_map.hpp>
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

/// What has to stand before the geometry: what it is built on, then the variables that it depends on.
Geometries dependenciesOf(const VrexBaseGeometry& geometry) {
    Geometries dependencies = geometry.getGeometries();
    const auto variables = geometry.getVariables();
    dependencies.insert(dependencies.end(), variables.begin(), variables.end());
    return dependencies;
}

/// Null for what is none.
const VrexBaseEquation* asEquation(const VrexBaseConstraint& constraint) {
    return constraint.baseType() == VrexObjectType::Equation
               ? dynamic_cast<const VrexBaseEquation*>(&constraint)
               : nullptr;
}

/// Which objects were there before. Most lists rise by identifier and so hold no object twice: a table of
/// addresses is made when that ends.
class VisitedObjects {
public:
    explicit VisitedObjects(std::size_t count) { m_objects.reserve(count); }
    /// False for an object that was there.
    bool enter(VrexBaseObject& object) {
        if (m_table.empty() && (m_objects.empty() || m_largestId < object.getID())) {
            m_largestId = object.getID();
            m_objects.push_back(&object);
            return true;
        }
        if (m_table.empty()) {
            m_table.insert(m_objects.begin(), m_objects.end());
        }
        return m_table.insert(&object).second;
    }
    /// Whether no two of the objects can have the same identifier.
    bool areRising() const { return m_table.empty(); }

private:
    std::vector<const VrexBaseObject*> m_objects; ///< As long as they rise.
    std::uint64_t m_largestId = 0;
    boost::unordered_flat_set<const VrexBaseObject*> m_table;
};

/// Passes the variables that a constraint names to `take`, in order, repeats included.
template <class Take>
void forEachVariable(const VrexBaseConstraint& constraint, Take take) {
    const auto takeVariable = [&](VrexBaseObject* object) {
        if (object != nullptr && object->baseType() == VrexObjectType::Variable) {
            take(*object);
        }
    };
    if (const auto* const equation = asEquation(constraint)) {
        // Not its geometries, which leave out what has the identifier of another.
        for (const VrexVariableDescriptor& descriptor : equation->descriptors()) {
            takeVariable(descriptor.object().get());
        }
    } else {
        for (const auto& geometry : constraint.getGeometries()) {
            takeVariable(geometry.get());
        }
    }
}

/// Whether two different objects have one identifier.
class IdCheck {
public:
    void add(const std::vector<VrexBaseObject*>& list) {
        for (const VrexBaseObject* object : list) {
            const auto [entry, isNew] = m_objects.try_emplace(object->getID(), object);
            m_equal = m_equal || (!isNew && entry->second != object);
        }
    }
    bool hasEqualIds() const { return m_equal; }

private:
    boost::unordered_flat_map<std::uint64_t, const VrexBaseObject*> m_objects;
    bool m_equal = false;
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
    std::vector<VrexOrderedObjects> objects;
    objects.push_back(order(geometries, constraints));
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
        // The component goes on holding what is in its lists.
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

VrexStreamGraphEncoder::VrexOrderedObjects VrexStreamGraphEncoder::order(const Geometries& geometries,
                                                                         const Constraints& constraints) {
    VrexOrderedObjects ordered;
    ordered.geometries.reserve(geometries.size());
    ordered.constraints.reserve(constraints.size());
    const auto keep = [&](auto parts) {
        ordered.kept.insert(ordered.kept.end(), parts.begin(), parts.end());
        return parts;
    };
    VisitedObjects visitedGeometries(geometries.size());
    VisitedObjects visitedConstraints(constraints.size());
    const auto enterGeometry = [&](VrexBaseObject& object) { return visitedGeometries.enter(object); };
    walkInDependencyOrder(
        geometries, [&](const VrexBaseGeometry& geometry) { return keep(dependenciesOf(geometry)); },
        enterGeometry, [&](const auto& geometry) { ordered.geometries.push_back(geometry.get()); });
    walkInDependencyOrder(
        constraints, [&](VrexBaseConstraint& constraint) { return keep(constraint.getConstraints()); },
        [&](VrexBaseObject& object) { return visitedConstraints.enter(object); },
        [&](const auto& constraint) {
            ordered.constraints.push_back(constraint.get());
            forEachVariable(*constraint, [&](VrexBaseObject& variable) {
                if (enterGeometry(variable)) {
                    ordered.geometries.push_back(&variable);
                }
            });
        });
    ordered.hasRisingIds = visitedGeometries.areRising() && visitedConstraints.areRising();
    return ordered;
}

void VrexStreamGraphEncoder::adviseOfEqualIds(const std::vector<VrexOrderedObjects>& lists) {
    if (lists.size() == 1 && lists.front().hasRisingIds) {
        return;
    }
    IdCheck geometries;
    IdCheck constraints;
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
