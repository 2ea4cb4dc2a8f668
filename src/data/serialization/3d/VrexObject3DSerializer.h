#pragma once

#include <initializer_list>
#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/VrexBaseObjectSerializer.h"
#include "data/serialization/VrexJsonKeys.h"

class VrexVariableDescriptorInterface;

/// Turns the objects of a system in space into JSON, kind by kind; `docs/formats.md` tells every key.
///
/// A reader keeps the same order of kinds and keys.
class VREX_DATA_EXPORT VrexObject3DSerializer final : public VrexBaseObjectSerializer {
public:
    /// The lines must outlive the serializer.
    VrexObject3DSerializer(const VrexSerializationParameters& parameters, VrexJsonLines& lines);
    ~VrexObject3DSerializer() override;

    // The rows of the kinds: whoever adds one to them is told by the linker what is missing here.
#define VREX_PERSISTED_KIND(CLASS, VISIT) void VISIT(CLASS& object) override;
#include "data/serialization/3d/VrexPersistedKinds.def"

private:
    friend class VrexSystem3DSerializer;

    enum class Names { LeftOut, Written };

    auto toGeometryIndex() const {
        return [this](const std::shared_ptr<VrexBaseGeometry>& geometry) { return geometryIndex(geometry); };
    }
    auto toConstraintIndex() const {
        return [this](const std::shared_ptr<VrexBaseConstraint>& constraint) {
            return constraintIndex(constraint);
        };
    }
    void putDescriptors(const VrexVariableDescriptorInterface& object, Names names,
                        VrexJsonObject& json) const;

    /// The object of an entity so far: its kind.
    VrexJsonObject typed(const VrexGeometry3D& geometry);
    template <class Shape>
    void serializeEvaluated(Shape& shape);

    /// The object of a constraint so far: the entities, or the variable, that it binds.
    VrexJsonObject withArguments(const VrexConstraint3D& constraint);
    VrexJsonObject withVariable(const std::shared_ptr<VrexGeometryVariable>& variable);
    /// The ends of the objects of dimensions and of all other constraints.
    void serializeDimension(VrexDimension3D& dimension, VrexJsonObject& json);
    void serializeConstraint3D(VrexConstraint3D& constraint, VrexJsonObject& json);
    /// A constraint that is no more than what it binds.
    void serializePlain(VrexConstraint3D& constraint);
    void serializePlainDimension(VrexDimension3D& dimension);
    /// One entry a degree, in the order of the degrees.
    void serializeMate(VrexMate3D& mate, std::initializer_list<nsJsonKeys::DegreeKeys> degrees);
};
