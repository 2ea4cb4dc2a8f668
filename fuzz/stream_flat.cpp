// Reads arbitrary bytes as a flat graph. What was decoded must say how free and how bound it is, and be
// encoded again.

#include "StreamTarget.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"

namespace {

void readStream(const std::uint8_t* data, std::size_t size) {
    VrexStreamGraphDecoder::Geometries geometries;
    VrexStreamGraphDecoder::Constraints constraints;
    const auto decode = [&](VrexStreamGraphDecoder3D& decoder, unsigned int count) {
        return decoder.decodeConstraintGraph(data, count, geometries, constraints);
    };
    if (!nsStreamTarget::isDecoded(size, decode)) {
        return;
    }
    for (const auto& geometry : geometries) {
        nsStreamTarget::require(geometry != nullptr && geometry->dof() >= 0);
    }
    for (const auto& constraint : constraints) {
        nsStreamTarget::require(constraint != nullptr);
    }
    nsStreamTarget::encodeAgain([&](VrexStreamGraphEncoder3D& encoder) {
        return encoder.encodeConstraintGraph(geometries, constraints);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    nsStreamTarget::readAsIsAndMended(data, size, readStream);
    return 0;
}
