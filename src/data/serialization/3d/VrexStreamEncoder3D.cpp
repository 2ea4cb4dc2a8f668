#include "data/serialization/3d/VrexStreamEncoder3D.h"

#include <cstddef>

#include "data/VrexBaseObject.h"

namespace {

/// Gives up the blocks that were opened meanwhile, unless all went well.
class Unwinding {
public:
    Unwinding(VrexStreamEncoder& stream, const VrexObjectEncoder& objects)
        : m_stream(stream), m_objects(objects), m_openBlocks(stream.openBlocks()) {}
    Unwinding(const Unwinding&) = delete;
    Unwinding& operator=(const Unwinding&) = delete;
    ~Unwinding() {
        if (!m_objects.isDone()) {
            m_stream.unwindBlocks(m_openBlocks);
        }
    }

private:
    VrexStreamEncoder& m_stream;
    const VrexObjectEncoder& m_objects;
    std::size_t m_openBlocks;
};

} // namespace

VrexStreamEncoder3D::VrexStreamEncoder3D(VrexOutputStream* output)
    : VrexStreamEncoder(output), m_objects(this) {}

VrexStreamEncoder3D::~VrexStreamEncoder3D() = default;

bool VrexStreamEncoder3D::encodeObject(const std::shared_ptr<VrexBaseObject>& object) {
    m_objects.setDone(false);
    if (object != nullptr) {
        const Unwinding unwinding(*this, m_objects);
        object->accept(m_objects);
    }
    return m_objects.isDone();
}
