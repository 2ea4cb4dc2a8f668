#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/serialization/VrexStreamGraphEncoder.h"

class VrexTransform3D;

/// Packs problems in space.
class VREX_DATA_EXPORT VrexStreamGraphEncoder3D final : public VrexStreamGraphEncoder {
public:
    VrexStreamGraphEncoder3D();
    VrexStreamGraphEncoder3D(VrexStreamGraphEncoder3D&& other) noexcept;
    VrexStreamGraphEncoder3D& operator=(VrexStreamGraphEncoder3D&& other) noexcept;
    ~VrexStreamGraphEncoder3D() override;
    std::unique_ptr<VrexStreamEncoder> getEncoder(VrexOutputStream* output) override;
    /// Writes nothing, and answers true: freedoms in space are not part of the stream.
    bool encodeGeometriesDOF(const std::shared_ptr<VrexConnectedComponent>& component,
                             VrexStreamEncoder* encoder) override;

    /// The geometries, and the matrices and target values of `transform`, in one block. The variables that it
    /// takes to a value are no part of the stream, and an entity that it names has to be in the list to be
    /// known on the other side.
    /// Kept: true also where an object cannot be written; then the stream ends there and cannot be read.
    bool encodeDragData(const Geometries& geometries, const VrexTransform3D& transform);

protected:
    /// Kept: true, whether the encoder refuses or not.
    bool encodeDragGraph(const std::vector<VrexBaseGeometry*>& geometries, const VrexTransform3D& transform,
                         VrexStreamEncoder& encoder);
};
