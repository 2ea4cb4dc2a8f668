#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/VrexVisitor3D.h"
#include "data/graph/VrexIndexChains.h"
#include "data/serialization/VrexSerializationParameters.h"

class VrexJsonLines;
class VrexJsonObject;
class VrexVariableDescriptor;

/// The base of what turns the objects of a system into JSON: each visit appends one JSON object to the array
/// that holds its like, as a line of text. Values are not made: a document is many times larger than a line.
///
/// Objects refer to each other by their places in these arrays, so what an object refers to has to be visited
/// before it: variables, then geometries, constraints and equations, each in the order of their references.
/// Every failure is a `std::runtime_error`, logged at level 1, or the `std::out_of_range` of a value without
/// text; the lines are of no use from then on. One serializer is for one document, on one thread.
class VREX_DATA_EXPORT VrexBaseObjectSerializer : public VrexVisitor3D {
public:
    VrexBaseObjectSerializer(const VrexBaseObjectSerializer&) = delete;
    VrexBaseObjectSerializer& operator=(const VrexBaseObjectSerializer&) = delete;
    ~VrexBaseObjectSerializer() override;

    /// Fetches what the visit of this object will look up.
    void expect(const VrexBaseConstraint& constraint) const;
    void expect(const VrexBaseGeometry& geometry) const;
    /// Throws: nobody writes objects of this class.
    void visitBaseObject(VrexBaseObject& object) override;

protected:
    /// The lines must outlive the serializer.
    VrexBaseObjectSerializer(const VrexSerializationParameters& parameters, VrexJsonLines& lines);

    /// Registers the object under the next place and adds the keys that all of its like have. Throws for an
    /// object that is registered.
    void serializeConstraint(VrexConstraint& constraint, VrexJsonObject& json);
    void serializeEquation(VrexBaseEquation& equation, VrexJsonObject& json);
    void serializeGeometry(VrexGeometry& geometry, VrexJsonObject& json);
    void serializeVariable(VrexGeometryVariable& variable, VrexJsonObject& json);
    /// Everything but the name.
    void serializeVariableDescriptor(const VrexVariableDescriptor& descriptor, VrexJsonObject& json) const;

    /// The place of an object that was serialized before; throws for null and for any other object.
    std::uint64_t constraintIndex(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    std::uint64_t equationIndex(const std::shared_ptr<VrexBaseEquation>& equation) const;
    std::uint64_t geometryIndex(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    std::uint64_t variableIndex(const std::shared_ptr<VrexGeometryVariable>& variable) const;

    VrexJsonLines& lines() { return *m_lines; }
    /// Makes room for so many.
    void reserve(std::size_t geometries, std::size_t variables, std::size_t constraints,
                 std::size_t equations);

private:
    /// Objects that are made one after the other mostly lie so, too: those of one page stay together, and
    /// pages are scattered.
    struct AddressHash {
        std::size_t operator()(std::uint64_t address) const {
            constexpr std::uint64_t PAGE = 4096, SMALLEST_OBJECT = 32;
            return static_cast<std::size_t>((address / PAGE * 0x9E3779B97F4A7C15U >> 32U) +
                                            address % PAGE / SMALLEST_OBJECT);
        }
    };
    /// By address: who visits keeps the objects alive.
    using Indices = VrexIndexChains<AddressHash>;

    void serializeObject(const VrexBaseObject& object, VrexJsonObject& json) const;
    void serializeBaseConstraint(const VrexBaseConstraint& constraint, VrexJsonObject& json) const;

    VrexSerializationParameters m_parameters;
    Indices m_constraintIndices;
    Indices m_equationIndices;
    Indices m_geometryIndices;
    Indices m_variableIndices;
    VrexJsonLines* m_lines;
};
