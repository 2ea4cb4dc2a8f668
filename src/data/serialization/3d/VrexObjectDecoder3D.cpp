#include "data/serialization/3d/VrexObjectDecoder3D.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexStreamDecoder.h"
#include "data/serialization/VrexStreamReading.h"

namespace {

bool readLimits(VrexStreamDecoder& stream, VrexDimensionLimits& limits) {
    return stream.readOptionalF64(limits.first) && stream.readOptionalF64(limits.second);
}

bool readHelpData(VrexStreamDecoder& stream, VrexConstraint3D& constraint) {
    bool isFixed1 = false;
    bool isFixed2 = false;
    if (!stream.readOptionalVector(constraint.helpPoint1()) ||
        !stream.readOptionalVector(constraint.helpPoint2()) ||
        !stream.readOptionalVector2(constraint.helpParam1()) ||
        !stream.readOptionalVector2(constraint.helpParam2()) || !stream.readBool(isFixed1) ||
        !stream.readBool(isFixed2)) {
        return false;
    }
    if (isFixed1) {
        constraint.fixHelpParameter1(true);
    }
    if (isFixed2) {
        constraint.fixHelpParameter2(true);
    }
    return true;
}

bool readDimensionTail(VrexStreamDecoder& stream, VrexDimension3D& dimension) {
    double value = 0.0;
    bool isRigid = false;
    std::shared_ptr<VrexGeometryVariable> variable;
    VrexDimensionLimits limits;
    const auto readVariable = [&] {
        return stream.isAtEnd() || nsStreamReading::readReference(stream, variable);
    };
    if (!stream.readF64(value) || !stream.readBool(isRigid) || !stream.readBlock(readVariable) ||
        !readLimits(stream, limits)) {
        return false;
    }
    dimension.setValue(value); // Into the dimension itself: the variable has a value of its own.
    dimension.setRigid(isRigid);
    dimension.setLimits(limits);
    if (variable != nullptr) {
        dimension.bindVariable(variable);
    }
    return true;
}

bool readMateDimension(VrexStreamDecoder& stream, VrexMateDimension3D& dimension) {
    bool isFixed = false;
    if (!readLimits(stream, dimension.limits) || !stream.readF64(dimension.value) ||
        !stream.readBool(isFixed)) {
        return false;
    }
    dimension.setFixed(isFixed);
    return true;
}

bool readMateTail(VrexStreamDecoder& stream, VrexMate3D& mate) {
    std::uint64_t index = 0;
    const auto readOne = [&] {
        return index < mate.getDimensionSize() &&
               stream.readBlock([&] { return readMateDimension(stream, mate.getDimension(index++)); });
    };
    const auto readNothing = [] { return true; };
    return stream.readList(readOne) && index == mate.getDimensionSize() && stream.readBlock(readNothing);
}

} // namespace

VrexObjectDecoder3D::~VrexObjectDecoder3D() = default;

std::shared_ptr<VrexBaseObject> VrexObjectDecoder3D::decodeGeometry() {
    auto geometry = readGeometry(stream());
    if (geometry == nullptr || !isCompleted(*geometry)) {
        return nullptr;
    }
    stream().enterGeometry(geometry, geometry.get());
    return geometry;
}

std::shared_ptr<VrexBaseObject> VrexObjectDecoder3D::decodeConstraint() {
    auto constraint = readConstraint(stream());
    if (constraint == nullptr || !isCompleted(*constraint)) {
        return nullptr;
    }
    stream().enterConstraint(constraint);
    return constraint;
}

bool VrexObjectDecoder3D::isCompleted(VrexBaseObject& object) {
    m_done = false;
    object.accept(*this);
    return m_done && stream().isAtEnd();
}

void VrexObjectDecoder3D::visitBaseGeometry(VrexBaseGeometry& geometry) { m_done = readCommon(geometry); }

void VrexObjectDecoder3D::visitConstraint3D(VrexConstraint3D& constraint) {
    m_done = readCommon(constraint) &&
             stream().readPacked(constraint.alignment(), constraint.orientation()) &&
             readHelpData(stream(), constraint);
}

void VrexObjectDecoder3D::visitDimension3D(VrexDimension3D& dimension) {
    visitConstraint3D(dimension);
    m_done = m_done && readDimensionTail(stream(), dimension);
}

void VrexObjectDecoder3D::visitMate3D(VrexMate3D& mate) {
    visitConstraint3D(mate);
    m_done = m_done && readMateTail(stream(), mate);
}
