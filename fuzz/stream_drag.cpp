// Reads arbitrary bytes as a drag. What was decoded must name entities and move them by motions, and be
// encoded again.

#include "StreamTarget.h"
#include "data/3d/VrexTransform3D.h"

namespace {

void readStream(const std::uint8_t* data, std::size_t size) {
    VrexStreamGraphDecoder::Geometries geometries;
    VrexTransform3D transform;
    const auto decode = [&](VrexStreamGraphDecoder3D& decoder, unsigned int count) {
        return decoder.decodeDragData(data, count, geometries, transform);
    };
    if (!nsStreamTarget::isDecoded(size, decode)) {
        return;
    }
    for (const auto& entry : transform.transformations()) {
        nsStreamTarget::require(entry.geometry != nullptr);
    }
    for (const auto& entry : transform.transformParameters()) {
        nsStreamTarget::require(entry.geometry != nullptr);
    }
    nsStreamTarget::encodeAgain(
        [&](VrexStreamGraphEncoder3D& encoder) { return encoder.encodeDragData(geometries, transform); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    nsStreamTarget::readAsIsAndMended(data, size, readStream);
    return 0;
}
