#pragma once

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <unordered_map>

#include "data/VrexExport.h"
#include "data/VrexVisitor3D.h"
#include "data/serialization/VrexSerializationParameters.h"

class LumoJson;
class VrexVariableDescriptor;

/// The base of what turns the objects of a system into JSON: each visit appends one JSON object to the array
/// of the root that holds its like.
///
/// Objects refer to each other by their places in these arrays, so what an object refers to has to be visited
/// before it: variables, then geometries, constraints and equations, each in the order of their references.
/// Every failure is a `std::runtime_error`, logged at level 1, or the `std::out_of_range` of a value without
/// text; the root is of no use from then on. One serializer is for one document, on one thread.
class VREX_DATA_EXPORT VrexBaseObjectSerializer : public VrexVisitor3D {
public:
    VrexBaseObjectSerializer(const VrexBaseObjectSerializer&) = delete;
    VrexBaseObjectSerializer& operator=(const VrexBaseObjectSerializer&) = delete;
    ~VrexBaseObjectSerializer() override;

    /// Throws: nobody writes objects of this class.
    void visitBaseObject(VrexBaseObject& object) override;

protected:
    /// The root must outlive the serializer.
    VrexBaseObjectSerializer(const VrexSerializationParameters& parameters, LumoJson& root);

    /// Registers the object under the next place, adds the keys that all of its like have, and moves `json`
    /// to the end of their array, where it is until the next object follows. Throws for an object that is
    /// registered.
    LumoJson& serializeConstraint(VrexConstraint& constraint, LumoJson& json);
    LumoJson& serializeEquation(VrexBaseEquation& equation, LumoJson& json);
    LumoJson& serializeGeometry(VrexGeometry& geometry, LumoJson& json);
    LumoJson& serializeVariable(VrexGeometryVariable& variable, LumoJson& json);
    /// Everything but the name.
    void serializeVariableDescriptor(const VrexVariableDescriptor& descriptor, LumoJson& json) const;

    /// The place of an object that was serialized before; throws for null and for any other object.
    std::uint64_t constraintIndex(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    std::uint64_t equationIndex(const std::shared_ptr<VrexBaseEquation>& equation) const;
    std::uint64_t geometryIndex(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    std::uint64_t variableIndex(const std::shared_ptr<VrexGeometryVariable>& variable) const;

private:
    template <class Object>
    using Indices = std::pmr::unordered_map<std::shared_ptr<Object>, std::uint64_t>;

    void serializeObject(const VrexBaseObject& object, LumoJson& json) const;
    void serializeBaseConstraint(const VrexBaseConstraint& constraint, LumoJson& json) const;

    VrexSerializationParameters m_parameters;
    std::pmr::monotonic_buffer_resource m_memory; ///< That of the tables, given back at once.
    Indices<VrexBaseConstraint> m_constraintIndices{&m_memory};
    Indices<VrexBaseEquation> m_equationIndices{&m_memory};
    Indices<VrexBaseGeometry> m_geometryIndices{&m_memory};
    Indices<VrexGeometryVariable> m_variableIndices{&m_memory};
    LumoJson* m_root;
};
