#include "data/serialization/3d/VrexStreamDecoder3D.h"

#include "data/VrexBaseObject.h"

VrexStreamDecoder3D::VrexStreamDecoder3D(const unsigned char* input, std::uint32_t size)
    : VrexStreamDecoder(input, size), m_objects(this) {}

VrexStreamDecoder3D::~VrexStreamDecoder3D() = default;

std::shared_ptr<VrexBaseObject> VrexStreamDecoder3D::decodeObject() {
    std::shared_ptr<VrexBaseObject> object;
    if (!readBlock([&] { return (object = m_objects.decode()) != nullptr; })) {
        return nullptr;
    }
    return object;
}
