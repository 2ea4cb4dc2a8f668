#include <cstdint>
#include <functional>

#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexObject3DSerializer.h"
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonObject.h"

namespace keys = nsJsonKeys;

void VrexObject3DSerializer::visitFastenedMate3D(VrexFastenedMate3D& mate) { serializeMate(mate, {}); }

void VrexObject3DSerializer::visitSliderMate3D(VrexSliderMate3D& mate) {
    serializeMate(mate, {keys::DISTANCE});
}

void VrexObject3DSerializer::visitRevoluteMate3D(VrexRevoluteMate3D& mate) {
    serializeMate(mate, {keys::ANGLE});
}

void VrexObject3DSerializer::visitBallMate3D(VrexBallMate3D& mate) { serializeMate(mate, {keys::ANGLE}); }

void VrexObject3DSerializer::visitCylinderMate3D(VrexCylinderMate3D& mate) {
    serializeMate(mate, {keys::DISTANCE, keys::ANGLE});
}

void VrexObject3DSerializer::visitPinSlotMate3D(VrexPinSlotMate3D& mate) {
    serializeMate(mate, {keys::DISTANCE, keys::ANGLE});
}

void VrexObject3DSerializer::visitPlanarMate3D(VrexPlanarMate3D& mate) {
    serializeMate(mate, {keys::DISTANCE_X, keys::DISTANCE_Y, keys::ANGLE});
}

void VrexObject3DSerializer::visitParallelMate3D(VrexParallelMate3D& mate) {
    serializeMate(mate, {keys::DISTANCE_X, keys::DISTANCE_Y, keys::DISTANCE_Z, keys::ANGLE});
}

void VrexObject3DSerializer::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) {
    VrexJsonObject json = withVariable(interval.variable());
    json.putIfSet(keys::LIMITS, interval.limit());
    json.put(keys::DIMENSION_TYPE, interval.getMateDimensionType());
    if (interval.dimensionIndex() != 0) {
        json.put(keys::DIMENSION_INDEX, interval.dimensionIndex());
    }
    serializeConstraint3D(interval, json);
}

void VrexObject3DSerializer::visitMateRelation3D(VrexMateRelation3D& relation) {
    VrexJsonObject json(lines().nextLine(VrexJsonLines::CONSTRAINTS), [&](VrexJsonObject& start) {
        start.putArray(keys::CONSTRAINTS, relation.getMates(), toConstraintIndex());
    });
    json.putArray(keys::MATE_PARAMETER_INDEXS, relation.getMateParameterIndexs(), std::identity());
    json.put(keys::RATIO, relation.getRatio());
    serializeConstraint3D(relation, json);
}

void VrexObject3DSerializer::serializeMate(VrexMate3D& mate,
                                           std::initializer_list<nsJsonKeys::DegreeKeys> degrees) {
    VrexJsonObject json = withArguments(mate);
    std::uint64_t index = 0;
    for (const nsJsonKeys::DegreeKeys& degree : degrees) {
        const VrexMateDimension3D& dimension = mate.getDimension(index++);
        json.putIfSet(degree.limits, dimension.limits);
        json.putIfTrue(degree.fix, dimension.fixed());
        json.put(degree.value, dimension.value);
    }
    serializeConstraint3D(mate, json);
}
