#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/VrexStreamGraphDecoder.h"

class VrexTransform3D;

/// Unpacks problems in space, and drags.
class VREX_DATA_EXPORT VrexStreamGraphDecoder3D : public VrexStreamGraphDecoder {
public:
    ~VrexStreamGraphDecoder3D() override;
    /// A `VrexStreamDecoder3D`.
    std::unique_ptr<VrexStreamDecoder> getDecoder(const unsigned char* buffer, unsigned int size) override;
    /// Reads nothing and answers true.
    bool decodeGeometriesDOF(VrexStreamDecoder* decoder,
                             std::shared_ptr<VrexConnectedComponent>& component) override;

    /// The geometries of a drag, and what it does with them, which comes to what `transform` has already.
    /// False as well for a matrix that `VrexTransform3D::applyTransformation` refuses.
    bool decodeDragData(const unsigned char* buffer, unsigned int size, Geometries& geometries,
                        VrexTransform3D& transform);
};
