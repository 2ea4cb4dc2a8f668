#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"

#include <cstddef>
#include <vector>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/VrexPackedBytes.h"

using nsPacked::number;
using nsPacked::pack;

namespace {

/// A block of one block a record, which is that of an entity.
template <class Record, class PackRecord>
bool writeRecords(VrexStreamEncoder& encoder, const std::vector<Record>& records, PackRecord packRecord) {
    return encoder.writeListOf(
        records, [](const Record& record) { return record.geometry != nullptr; },
        [&](const Record& record) {
            return encoder.beginBlock() && encoder.writePacked([&] { return packRecord(record); }) &&
                   encoder.endBlock();
        });
}

bool writeDragData(VrexStreamEncoder& encoder, const VrexStreamGraphEncoder::Geometries& geometries,
                   const VrexTransform3D& transform) {
    return encoder.beginBlock() && encoder.writeObjectList(geometries) &&
           writeRecords(encoder, transform.transformations(),
                        [](const VrexDragTransform3D& record) {
                            return pack(record.geometry->getID(), record.matrix.transformation());
                        }) &&
           writeRecords(encoder, transform.transformParameters(),
                        [](const VrexDragParameter3D& record) {
                            return pack(record.geometry->getID(), record.value, number(record.type));
                        }) &&
           encoder.endBlock();
}

} // namespace

VrexStreamGraphEncoder3D::VrexStreamGraphEncoder3D() = default;

VrexStreamGraphEncoder3D::VrexStreamGraphEncoder3D(VrexStreamGraphEncoder3D&&) noexcept = default;

VrexStreamGraphEncoder3D& VrexStreamGraphEncoder3D::operator=(VrexStreamGraphEncoder3D&&) noexcept = default;

VrexStreamGraphEncoder3D::~VrexStreamGraphEncoder3D() = default;

std::unique_ptr<VrexStreamEncoder> VrexStreamGraphEncoder3D::getEncoder(VrexOutputStream* output) {
    return std::make_unique<VrexStreamEncoder3D>(output);
}

bool VrexStreamGraphEncoder3D::encodeGeometriesDOF(
    const std::shared_ptr<VrexConnectedComponent>& /*component*/, VrexStreamEncoder* /*encoder*/) {
    return true;
}

bool VrexStreamGraphEncoder3D::encodeDragData(const Geometries& geometries,
                                              const VrexTransform3D& transform) {
    const std::vector objects{order(geometries, {})};
    adviseOfEqualIds(objects);
    return encodeInTwoPasses([&](VrexStreamEncoder& encoder) {
        return encodeDragGraph(objects.front().geometries, transform, encoder);
    });
}

bool VrexStreamGraphEncoder3D::encodeDragGraph(const Geometries& geometries, const VrexTransform3D& transform,
                                               VrexStreamEncoder& encoder) {
    const std::size_t openBlocks = encoder.openBlocks();
    if (!writeDragData(encoder, geometries, transform)) {
        encoder.unwindBlocks(openBlocks);
    }
    return true;
}
