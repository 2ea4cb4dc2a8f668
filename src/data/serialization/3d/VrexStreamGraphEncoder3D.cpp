#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"

#include <cstddef>
#include <vector>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/VrexOutputLength.h"

namespace {

/// A block of the entity and what `putRest` puts of the record; nothing without an entity.
template <class Fields, class Record, class PutRest>
void putRecord(Fields& fields, const Record& record, PutRest putRest) {
    if (record.geometry != nullptr) {
        fields.block([&] {
            fields.id(*record.geometry);
            putRest(fields, record);
        });
    }
}

template <class Record, class PutRest>
bool writeRecords(VrexStreamEncoder& encoder, const std::vector<Record>& records, PutRest putRest) {
    return encoder.writeFields([&](auto& fields) {
        fields.list(records, [&](const Record& record) { putRecord(fields, record, putRest); });
    });
}

bool writeDragData(VrexStreamEncoder& encoder, const std::vector<VrexBaseGeometry*>& geometries,
                   const VrexTransform3D& transform) {
    return encoder.beginBlock() && encoder.writeObjectList(geometries) &&
           writeRecords(encoder, transform.transformations(),
                        [](auto& fields, const VrexDragTransform3D& record) {
                            fields.values(record.matrix.transformation());
                        }) &&
           writeRecords(encoder, transform.transformParameters(),
                        [](auto& fields, const VrexDragParameter3D& record) {
                            fields.values(record.value, nsPacked::number(record.type));
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
    std::vector<VrexOrderedObjects> objects(1);
    order(geometries, {}, nullptr, objects.front());
    adviseOfEqualIds(objects);
    const auto write = [&](VrexStreamEncoder& encoder) {
        return encodeDragGraph(objects.front().geometries, transform, encoder);
    };
    VrexOutputLength length;
    return write(*getEncoder(&length)) && encodeInto(length.length(), write);
}

bool VrexStreamGraphEncoder3D::encodeDragGraph(const std::vector<VrexBaseGeometry*>& geometries,
                                               const VrexTransform3D& transform, VrexStreamEncoder& encoder) {
    const std::size_t openBlocks = encoder.openBlocks();
    if (!writeDragData(encoder, geometries, transform)) {
        encoder.unwindBlocks(openBlocks);
    }
    return true;
}
