#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/3d/VrexObjectDecoder3D.h"
#include "data/serialization/VrexStreamDecoder.h"

/// Reads objects in space, and those that know no dimension, from the compact stream.
class VREX_DATA_EXPORT VrexStreamDecoder3D final : public VrexStreamDecoder {
public:
    /// The input must outlive the decoder.
    VrexStreamDecoder3D(const unsigned char* input, std::uint32_t size);
    ~VrexStreamDecoder3D() override;

    /// Reads one block as an object and makes it known. Null, and nothing known, where it is not a whole
    /// object; throws `std::bad_optional_access` for an object kind that there is not. After either the
    /// position is the one before.
    std::shared_ptr<VrexBaseObject> decodeObject() override;

private:
    VrexObjectDecoder3D m_objects;
};
