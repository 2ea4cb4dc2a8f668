#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/VrexSerializationParameters.h"
#include "data/serialization/VrexSystemDeserializer.h"

class LumoJson;
class VrexImmutableSystem3D;
enum class VrexConstraint3DType : std::int32_t;

namespace nsConstraintReplay {
struct Arguments;
}

/// Replays documents into systems, one after the other; `docs/formats.md` tells every key. One thread at a
/// time.
///
/// First every object is created, with what it is made of and default values; then the values are read.
/// Objects are made of objects before them, so no document makes rings of parts. Only what descriptors name
/// may come later: such a ring keeps itself alive until its descriptors are taken away.
class VREX_DATA_EXPORT VrexSystem3DDeserializer final : public VrexSystemDeserializer {
public:
    /// The generator must outlive the deserializer. It gives objects without identifier theirs, or all if
    /// identifiers are ignored: geometries, variables, constraints, equations, each in their order.
    VrexSystem3DDeserializer(VrexIDGenerator& idGenerator, const VrexSerializationParameters& parameters);
    ~VrexSystem3DDeserializer() override;

    /// Replaces `system` by what the document tells. Throws `std::runtime_error` or `std::out_of_range` for a
    /// document that cannot be read: before all objects are created `system` is as it was, later its objects
    /// are half filled. Unless identifiers are ignored, the generator goes on behind `maxId` if the document
    /// has one, be it forwards or back.
    bool deserialize(const LumoJson& json, VrexImmutableSystem3D& system);

    const std::shared_ptr<VrexBaseConstraint>& constraint(std::uint64_t index) const override;
    const std::shared_ptr<VrexBaseEquation>& equation(std::uint64_t index) const override;
    const std::shared_ptr<VrexBaseGeometry>& geometry(std::uint64_t index) const override;
    const std::shared_ptr<VrexGeometryVariable>& variable(std::uint64_t index) const override;
    /// `transform` has to be a `VrexTransform3D`; throws `std::bad_cast` for any other.
    void createTransform(VrexTransformInterface& transform, const Variables& variables,
                         const LumoJson& json) override;

private:
    void createGeometries(const LumoJson& root);
    void createConstraints(const LumoJson& root);
    /// What the element says the constraint is made of.
    void readArguments(const LumoJson& json, VrexConstraint3DType type,
                       nsConstraintReplay::Arguments& out) const;
    void createReferenceGeometries(const LumoJson& root);
    void readMaxId(const LumoJson& root);

    double m_linearTolerance = 0.0;
    double m_angularTolerance = 0.0;
};

/// Reads the document `json` into `system`, with identifiers from 1 on where it has none. Throws what
/// `VrexSystem3DDeserializer` throws.
VREX_DATA_EXPORT void deserialize(const LumoJson& json, VrexImmutableSystem3D& system,
                                  const VrexSerializationParameters& parameters);
