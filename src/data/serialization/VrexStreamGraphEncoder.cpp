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
using Constraints = VrexStreamGraphEncoder::Constraints;

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
    bool enter(const VrexBaseObject& object) {
        if (areRising() && (m_objects.empty() || m_largestId < object.getID())) {
            m_largestId = object.getID();
            m_objects.push_back(&object);
            return true;
        }
        if (areRising()) {
            m_table.insert(m_objects.begin(), m_objects.end());
        }
        return m_table.insert(&object).second;
    }
    bool areRising() const { return m_table.empty(); }

private:
    std::vector<const VrexBaseObject*> m_objects; ///< As long as they rise.
    std::uint64_t m_largestId = 0;
    boost::unordered_flat_set<const VrexBaseObject*> m_table;
};

/// Makes the order of one component.
class Ordering {
public:
    using Objects = VrexStreamGraphEncoder::VrexOrderedObjects;

    Ordering(VrexStreamEncoder* measuring, Objects& out, std::size_t geometries, std::size_t constraints)
        : m_measuring(measuring), m_out(out), m_geometries(geometries), m_constraints(constraints) {
        out.geometries.reserve(geometries);
        out.constraints.reserve(constraints);
    }

    bool areIdsRising() const { return m_geometries.areRising() && m_constraints.areRising(); }

    /// What a geometry is built on stands before it, then the variables that it depends on.
    bool addGeometries(const Geometries& list) {
        return walkInDependencyOrder(
            list,
            [&](const VrexBaseGeometry& geometry) {
                Geometries parts = geometry.getGeometries();
                const auto variables = geometry.getVariables();
                parts.insert(parts.end(), variables.begin(), variables.end());
                return kept(std::move(parts));
            },
            [&](const VrexBaseGeometry& geometry) { return m_geometries.enter(geometry); },
            [&](const auto& geometry) { return put(*geometry, m_out.geometries); });
    }
    bool addConstraints(const Constraints& list) {
        return walkInDependencyOrder(
            list, [&](VrexBaseConstraint& constraint) { return kept(constraint.getConstraints()); },
            [&](const VrexBaseConstraint& constraint) { return m_constraints.enter(constraint); },
            [&](const auto& constraint) {
                return put(*constraint, m_out.constraints) && addVariables(*constraint);
            });
    }

private:
    template <class Object>
    std::vector<std::shared_ptr<Object>> kept(std::vector<std::shared_ptr<Object>> parts) {
        m_out.kept.insert(m_out.kept.end(), parts.begin(), parts.end());
        return parts;
    }
    template <class Object>
    bool put(Object& object, std::vector<Object*>& list) {
        list.push_back(&object);
        return m_measuring == nullptr || m_measuring->encodeHeldObject(object);
    }
    /// Those of the constraint that are not there yet.
    bool addVariables(const VrexBaseConstraint& constraint) {
        if (const auto* const equation = asEquation(constraint)) {
            // Not its geometries, which leave out what has the identifier of another.
            const auto& descriptors = equation->descriptors();
            return std::all_of(descriptors.begin(), descriptors.end(), [&](const auto& descriptor) {
                return addVariable(dynamic_cast<VrexBaseGeometry*>(descriptor.object().get()));
            });
        }
        const auto& geometries = constraint.getGeometries();
        return std::all_of(geometries.begin(), geometries.end(),
                           [&](const auto& geometry) { return addVariable(geometry.get()); });
    }
    bool addVariable(VrexBaseGeometry* geometry) {
        const bool isMissing = geometry != nullptr && geometry->baseType() == VrexObjectType::Variable &&
                               m_geometries.enter(*geometry);
        return !isMissing || put(*geometry, m_out.geometries);
    }

    VrexStreamEncoder* m_measuring;
    Objects& m_out;
    VisitedObjects m_geometries;
    VisitedObjects m_constraints;
};

/// Whether two different objects have one identifier.
class IdCheck {
public:
    template <class Object>
    void add(const std::vector<Object*>& list) {
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
    VrexOutputLength length;
    const auto measuring = getEncoder(&length);
    std::vector<VrexOrderedObjects> objects(1);
    if (measuring == nullptr || !order(geometries, constraints, measuring.get(), objects.front()) ||
        !encodeGraph(objects.front(), Content::BLOCKS, *measuring)) {
        return false;
    }
    adviseOfEqualIds(objects);
    return encodeInto(length.length(), [&](VrexStreamEncoder& encoder) {
        return encodeGraph(objects.front(), Content::OBJECTS, encoder);
    });
}

bool VrexStreamGraphEncoder::encodeConstraintGraphs(const Components& components) {
    Components present;
    std::copy_if(components.begin(), components.end(), std::back_inserter(present),
                 [](const auto& component) { return component != nullptr; });
    VrexOutputLength length;
    const auto measuring = getEncoder(&length);
    if (measuring == nullptr) {
        return false;
    }
    std::vector<VrexOrderedObjects> objects(present.size());
    for (std::size_t i = 0; i < present.size(); ++i) {
        // The component goes on holding what is in its lists.
        if (!order(present[i]->getGeometries(), present[i]->getConstraints(), measuring.get(), objects[i])) {
            return false;
        }
    }
    if (!encodeGraphs(present, objects, Content::BLOCKS, *measuring)) {
        return false;
    }
    adviseOfEqualIds(objects);
    return encodeInto(length.length(), [&](VrexStreamEncoder& encoder) {
        return encodeGraphs(present, objects, Content::OBJECTS, encoder);
    });
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

bool VrexStreamGraphEncoder::encodeInto(unsigned int size,
                                        const std::function<bool(VrexStreamEncoder&)>& write) {
    if (!assign(size)) {
        return false;
    }
    VrexOutputMemory memory(m_buffer, m_bufferSize);
    const auto encoder = getEncoder(&memory);
    return encoder != nullptr && write(*encoder);
}

bool VrexStreamGraphEncoder::order(const Geometries& geometries, const Constraints& constraints,
                                   VrexStreamEncoder* measuring, VrexOrderedObjects& out) {
    Ordering ordering(measuring, out, geometries.size(), constraints.size());
    const bool isMeasured = ordering.addGeometries(geometries) && ordering.addConstraints(constraints);
    out.hasRisingIds = ordering.areIdsRising();
    return isMeasured;
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

bool VrexStreamGraphEncoder::encodeGraph(const VrexOrderedObjects& objects, Content content,
                                         VrexStreamEncoder& encoder) {
    return encoder.beginBlock() && encodeLists(objects, content, encoder) && encoder.endBlock();
}

bool VrexStreamGraphEncoder::encodeGraphs(const Components& components,
                                          const std::vector<VrexOrderedObjects>& objects, Content content,
                                          VrexStreamEncoder& encoder) {
    bool isWritten = encoder.beginBlock();
    for (std::size_t i = 0; isWritten && i < components.size(); ++i) {
        isWritten = encoder.writeU64(components[i]->getID()) && encodeLists(objects[i], content, encoder) &&
                    encodeOverConstrainedSubsets(components[i]->getOverConstrainedSubsets(), encoder) &&
                    encodeGeometriesDOF(components[i], &encoder);
    }
    return isWritten && encoder.endBlock();
}

bool VrexStreamGraphEncoder::encodeLists(const VrexOrderedObjects& objects, Content content,
                                         VrexStreamEncoder& encoder) {
    if (content == Content::BLOCKS) {
        // As long as the frame of a block.
        return encoder.writeEmptyBlock() && encoder.writeEmptyBlock();
    }
    return encoder.writeObjectList(objects.geometries) && encoder.writeObjectList(objects.constraints);
}

bool VrexStreamGraphEncoder::encodeOverConstrainedSubsets(
    const std::vector<std::vector<std::uint64_t>>& subsets, VrexStreamEncoder& encoder) {
    return encoder.writeList(subsets, [&](const auto& subset) { return encoder.writeIdList(subset); });
}
