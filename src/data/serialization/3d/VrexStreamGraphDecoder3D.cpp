#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"

#include "data/3d/VrexTransform3D.h"
#include "data/VrexLog.h"
#include "data/serialization/3d/VrexStreamDecoder3D.h"
#include "data/serialization/VrexStreamReading.h"

namespace {

/// A block of a known geometry and values; then `apply` gets them.
template <class Apply, class... Values>
bool decodeEntry(VrexStreamDecoder& decoder, const Apply& apply, Values... values) {
    std::shared_ptr<VrexGeometry3D> geometry;
    const auto read = [&] {
        return nsStreamReading::readReference(decoder, geometry) && decoder.readPacked(values...);
    };
    return decoder.readBlock(read) && apply(geometry, values...);
}

bool applyTransformation(VrexTransform3D& transform, const std::shared_ptr<VrexGeometry3D>& geometry,
                         const VrexTransformMatrix3D::Rows& rows) {
    const bool applied = transform.applyTransformation(geometry, VrexTransformMatrix3D(rows));
    if (!applied) {
        VREX_LOG(nsLog::REFUSAL, "Failed to applyTransformation for dragging");
    }
    return applied;
}

bool decodeTransforms(VrexStreamDecoder& decoder, VrexTransform3D& transform) {
    const auto apply = [&](const auto& geometry, const auto& rows) {
        return applyTransformation(transform, geometry, rows);
    };
    return decoder.readList([&] { return decodeEntry(decoder, apply, VrexTransformMatrix3D::Rows{}); });
}

bool decodeDragParameters(VrexStreamDecoder& decoder, VrexTransform3D& transform) {
    const auto apply = [&](const auto& geometry, double value, VrexDragParameter3DType type) {
        return transform.applyTransformParameters(geometry, type, value);
    };
    return decoder.readList(
        [&] { return decodeEntry(decoder, apply, 0.0, VrexDragParameter3DType::Unknown); });
}

} // namespace

VrexStreamGraphDecoder3D::~VrexStreamGraphDecoder3D() = default;

std::unique_ptr<VrexStreamDecoder> VrexStreamGraphDecoder3D::getDecoder(const unsigned char* buffer,
                                                                        unsigned int size) {
    return std::make_unique<VrexStreamDecoder3D>(buffer, size);
}

bool VrexStreamGraphDecoder3D::decodeGeometriesDOF(VrexStreamDecoder* /*decoder*/,
                                                   std::shared_ptr<VrexConnectedComponent>& /*component*/) {
    return true;
}

bool VrexStreamGraphDecoder3D::decodeDragData(const unsigned char* buffer, unsigned int size,
                                              Geometries& geometries, VrexTransform3D& transform) {
    geometries.clear();
    return decode(buffer, size, [&](VrexStreamDecoder& decoder) {
        return decodeGeometries(decoder, geometries) && decodeTransforms(decoder, transform) &&
               decodeDragParameters(decoder, transform);
    });
}
