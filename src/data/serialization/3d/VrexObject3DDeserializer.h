#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "data/VrexExport.h"
#include "data/serialization/VrexBaseObjectDeserializer.h"

/// Pours the values of a document into the objects of a system in space, kind by kind; `docs/formats.md`
/// tells every key. Keys that are required and missing, or of another type, end the reading.
///
/// Kinds and keys stand in the order of `VrexObject3DSerializer`.
class VREX_DATA_EXPORT VrexObject3DDeserializer final : public VrexBaseObjectDeserializer {
public:
    /// All three references must outlive the deserializer.
    VrexObject3DDeserializer(const LumoJson& root, VrexSystemDeserializer& system,
                             VrexIDGenerator& idGenerator, const VrexSerializationParameters& parameters);

    // The rows of the kinds: whoever adds one to them is told by the linker what is missing here.
#define VREX_PERSISTED_KIND(CLASS, VISIT) void VISIT(CLASS& object) override;
#include "data/serialization/3d/VrexPersistedKinds.def"

private:
    /// The points that a list of places names; throws for a place of anything else.
    std::vector<std::shared_ptr<VrexPoint3D>> readPoints(const LumoJson& json, std::string_view key) const;
    /// What a spline was fitted through, as far as it is told.
    void readInterpolation(VrexSpline3D& spline, const LumoJson& json) const;
    template <class Evaluated>
    void readEvaluated(Evaluated& evaluated);
    /// What all constraints have.
    const LumoJson& readConstraint(VrexConstraint3D& constraint);
    /// What all dimensions have.
    const LumoJson& readDimension(VrexDimension3D& dimension);
};
