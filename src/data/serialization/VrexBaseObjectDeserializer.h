#pragma once

#include <string_view>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/VrexVisitor3D.h"
#include "data/serialization/VrexSerializationParameters.h"
#include "tolvbase/LumoJson.h"

class VrexIDGenerator;
class VrexSystemDeserializer;
class VrexVariableDescriptor;

/// The base of what pours the values of a document into objects that are there already: each visit takes the
/// next element of the root's array that holds the object's like, and looks its keys up.
///
/// Every failure is a `std::runtime_error` or a `std::out_of_range`, logged at level 1; the object is half
/// filled then. One thread at a time.
class VREX_DATA_EXPORT VrexBaseObjectDeserializer : public VrexVisitor3D {
public:
    VrexBaseObjectDeserializer(const VrexBaseObjectDeserializer&) = delete;
    VrexBaseObjectDeserializer& operator=(const VrexBaseObjectDeserializer&) = delete;
    ~VrexBaseObjectDeserializer() override;

    /// Throws: nobody reads objects of this class.
    void visitBaseObject(VrexBaseObject& object) override;

    /// Throws `std::runtime_error` "The value at key K is not a string."
    static std::string_view getString(const LumoJson& json, std::string_view key);
    /// The first three elements of an array; throws `std::runtime_error` "The value at key K is not a
    /// vector3d."
    static VrexVector3DT<double> getVector3D(const LumoJson& json, std::string_view key);
    /// The same of unit length; the zero vector for one too short to have a direction.
    static VrexVector3DT<double> getNormalizedVector3D(const LumoJson& json, std::string_view key);

protected:
    /// All three references must outlive the deserializer; `system` resolves the places that objects name.
    /// Throws for a root whose arrays are none; one that is missing is empty.
    VrexBaseObjectDeserializer(const LumoJson& root, VrexSystemDeserializer& system,
                               VrexIDGenerator& idGenerator, const VrexSerializationParameters& parameters);

    void deserializeBaseObject(VrexBaseObject& object, const LumoJson& json);
    void deserializeBaseGeometry(VrexBaseGeometry& geometry, const LumoJson& json);
    void deserializeBaseConstraint(VrexBaseConstraint& constraint, const LumoJson& json);

    /// Read the keys that all of their like have out of the next element, and return it. Throw when there is
    /// none left.
    const LumoJson& deserializeConstraint(VrexConstraint& constraint);
    const LumoJson& deserializeEquation(VrexBaseEquation& equation);
    const LumoJson& deserializeGeometry(VrexGeometry& geometry);
    const LumoJson& deserializeVariable(VrexGeometryVariable& variable);

    std::vector<VrexVariableDescriptor> createDescriptors(const LumoJson& array) const;

    const VrexSystemDeserializer& system() const { return m_system; }

private:
    /// The elements of an array that are not read yet.
    struct Range {
        LumoJson::const_iterator current, end;
    };
    static Range rangeOf(const LumoJson& root, std::string_view key);
    /// Throws `std::runtime_error` with this text when the range is exhausted.
    static const LumoJson& takeNext(Range& range, const char* exhausted);

    VrexSerializationParameters m_parameters;
    VrexIDGenerator& m_idGenerator;
    VrexSystemDeserializer& m_system;
    Range m_constraints;
    Range m_equations;
    Range m_geometries;
    Range m_variables;
};
