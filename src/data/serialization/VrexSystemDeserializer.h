#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/serialization/VrexSerializationParameters.h"

class LumoJson;
class VrexBaseConstraint;
class VrexBaseEquation;
class VrexBaseGeometry;
class VrexGeometryVariable;
class VrexIDGenerator;
class VrexTransformInterface;

/// What replaying a document needs, as far as it knows no dimension: the objects created so far, which later
/// ones name by their places.
class VREX_DATA_EXPORT VrexSystemDeserializer {
public:
    using Variables = std::vector<std::shared_ptr<VrexGeometryVariable>>;

    virtual ~VrexSystemDeserializer();

    /// The object at this place of the array of its like. Throws `std::out_of_range` for a place at which
    /// none was created yet.
    virtual const std::shared_ptr<VrexBaseConstraint>& constraint(std::uint64_t index) const = 0;
    virtual const std::shared_ptr<VrexBaseEquation>& equation(std::uint64_t index) const = 0;
    virtual const std::shared_ptr<VrexBaseGeometry>& geometry(std::uint64_t index) const = 0;
    virtual const std::shared_ptr<VrexGeometryVariable>& variable(std::uint64_t index) const = 0;
    /// Reads what is dragged into `transform`; here, the variables. Throws as reading does.
    virtual void createTransform(VrexTransformInterface& transform, const Variables& variables,
                                 const LumoJson& json);

protected:
    /// The generator must outlive the deserializer.
    VrexSystemDeserializer(VrexIDGenerator& idGenerator, const VrexSerializationParameters& parameters);
    VrexSystemDeserializer(const VrexSystemDeserializer&) = delete;
    VrexSystemDeserializer& operator=(const VrexSystemDeserializer&) = delete;

    const VrexSerializationParameters& parameters() const { return m_parameters; }
    VrexIDGenerator& idGenerator() const { return m_idGenerator; }

    void clear();
    /// Create an object for each element of the root's array, with default values.
    void createVariables(const LumoJson& root);
    void createEquations(const LumoJson& root);

    // What was created, in the order of the root's arrays.
    std::vector<std::shared_ptr<VrexBaseConstraint>> m_constraints;
    std::vector<std::shared_ptr<VrexBaseEquation>> m_equations;
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries;
    Variables m_variables;
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_referenceGeometries;

private:
    VrexSerializationParameters m_parameters;
    VrexIDGenerator& m_idGenerator;
};
