#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"

#include "data/3d/VrexTransform3D.h"
#include "data/VrexLog.h"
#include "data/serialization/3d/VrexStreamDecoder3D.h"
#include "data/serialization/VrexStreamReading.h"

namespace {

bool decodeTransform(VrexStreamDecoder& decoder, VrexTransform3D& transform) {
    std::shared_ptr<VrexGeometry3D> geometry;
    VrexTransformMatrix3D matrix;
    if (!nsStreamReading::readReference(decoder, geometry) || !decoder.readPacked(matrix.transformation())) {
        return false;
    }
    if (!transform.applyTransformation(geometry, matrix)) {
        VREX_LOG(nsLog::REFUSAL, "Failed to applyTransformation for dragging");
        return false;
    }
    return true;
}

bool decodeDragParameter(VrexStreamDecoder& decoder, VrexTransform3D& transform) {
    std::shared_ptr<VrexGeometry3D> geometry;
    double value = 0.0;
    VrexDragParameter3DType type{};
    return nsStreamReading::readReference(decoder, geometry) && decoder.readPacked(value, type) &&
           transform.applyTransformParameters(geometry, type, value);
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
        const auto listOf = [&](auto decodeOne) {
            return decoder.readList(
                [&] { return decoder.readBlock([&] { return decodeOne(decoder, transform); }); });
        };
        return decodeGeometries(decoder, geometries) && listOf(decodeTransform) &&
               listOf(decodeDragParameter);
    });
}
