// Reads arbitrary bytes as components. What was decoded must find its fixations, and be encoded again.

#include "StreamTarget.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/graph/VrexConnectedComponent.h"

namespace {

void readStream(const std::uint8_t* data, std::size_t size) {
    VrexStreamGraphDecoder::Components components;
    const auto decode = [&](VrexStreamGraphDecoder3D& decoder, unsigned int count) {
        return decoder.decodeConstraintGraphs(data, count, components);
    };
    if (!nsStreamTarget::isDecoded(size, decode)) {
        return;
    }
    for (const auto& component : components) {
        nsStreamTarget::require(component != nullptr);
        for (const auto& geometry : component->getGeometries()) {
            const auto fixation = component->getCompleteFixation(geometry);
            nsStreamTarget::require(fixation == nullptr || fixation->isCompleteFixed());
        }
    }
    nsStreamTarget::encodeAgain(
        [&](VrexStreamGraphEncoder3D& encoder) { return encoder.encodeConstraintGraphs(components); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    nsStreamTarget::readAsIsAndMended(data, size, readStream);
    return 0;
}
