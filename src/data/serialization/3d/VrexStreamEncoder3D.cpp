#include "data/serialization/3d/VrexStreamEncoder3D.h"

#include "data/VrexBaseObject.h"

VrexStreamEncoder3D::VrexStreamEncoder3D(VrexOutputStream* output)
    : VrexStreamEncoder(output), m_objects(this) {}

VrexStreamEncoder3D::~VrexStreamEncoder3D() = default;

bool VrexStreamEncoder3D::encodeObject(const std::shared_ptr<VrexBaseObject>& object) {
    return object != nullptr && encodeHeldObject(*object);
}

bool VrexStreamEncoder3D::encodeHeldObject(VrexBaseObject& object) {
    m_objects.setDone(false);
    object.accept(m_objects);
    return m_objects.isDone();
}
