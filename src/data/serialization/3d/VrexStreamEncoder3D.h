#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/3d/VrexObjectEncoder3D.h"
#include "data/serialization/VrexStreamEncoder.h"

/// Writes objects in space, and those that know no dimension, to the compact stream.
class VREX_DATA_EXPORT VrexStreamEncoder3D final : public VrexStreamEncoder {
public:
    explicit VrexStreamEncoder3D(VrexOutputStream* output);
    ~VrexStreamEncoder3D() override;

    /// False for null, for an object that `VrexObjectEncoder3D` cannot write, and where the output refuses;
    /// then, as when it throws what that throws, nothing of the object is written.
    bool encodeObject(const std::shared_ptr<VrexBaseObject>& object) override;

    bool encodeHeldObject(VrexBaseObject& object) override;

private:
    VrexObjectEncoder3D m_objects;
};
