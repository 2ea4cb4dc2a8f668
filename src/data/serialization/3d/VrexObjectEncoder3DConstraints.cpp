#include <cstdint>
#include <span>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexObjectType.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexObjectEncoder3D.h"
#include "data/serialization/VrexPackedBytes.h"

using nsPacked::number;
using nsPacked::pack;

namespace {

constexpr auto NOTHING = [] { return true; };

} // namespace

/// The identifiers of the arguments of one base kind, then what `writeFields` writes of the kind before the
/// fields of all constraints, and what `writeTail` writes behind them.
template <class WriteFields, class WriteTail>
void VrexObjectEncoder3D::encodeConstraint(const VrexConstraint3D& constraint, VrexObjectType arguments,
                                           WriteFields writeFields, WriteTail writeTail) {
    const auto isArgument = [&](const VrexBaseGeometry& geometry) {
        return geometry.baseType() == arguments;
    };
    encode([&] {
        return stream().writePacked(
                   [&] { return pack(number(constraint.baseType()), number(constraint.type())); }) &&
               stream().writeIdList(constraint.getGeometries(), isArgument) && stream().writePacked([&] {
                   return pack(number(constraint.getGeomComponentType(1)),
                               number(constraint.getGeomComponentType(2)));
               }) &&
               writeFields() && writeCommonFields(constraint) && writeHelpValues(constraint) && writeTail();
    });
}

template <class WriteFields>
void VrexObjectEncoder3D::encodeConstraint(const VrexConstraint3D& constraint, WriteFields writeFields) {
    encodeConstraint(constraint, VrexObjectType::Geometry, writeFields, NOTHING);
}

template <class WriteFields>
void VrexObjectEncoder3D::encodeDimension(const VrexDimension3D& dimension, WriteFields writeFields) {
    encodeConstraint(dimension, VrexObjectType::Geometry, writeFields,
                     [&] { return writeDimensionTail(dimension); });
}

/// A constraint whose argument is a variable.
void VrexObjectEncoder3D::encodeBinding(const VrexConstraint3D& constraint) {
    encodeConstraint(constraint, VrexObjectType::Variable, NOTHING, NOTHING);
}

bool VrexObjectEncoder3D::writeHelpValues(const VrexConstraint3D& constraint) {
    return stream().writePacked([&] {
        return pack(number(constraint.alignment()), number(constraint.orientation()));
    }) && stream().writeOptionalVector(constraint.helpPoint1()) &&
           stream().writeOptionalVector(constraint.helpPoint2()) &&
           stream().writeOptionalVector2(constraint.helpParam1()) &&
           stream().writeOptionalVector2(constraint.helpParam2()) && stream().writePacked([&] {
               return pack(constraint.fixHelpParameter1(), constraint.fixHelpParameter2());
           });
}

/// Value, rigid flag, variable, limits.
bool VrexObjectEncoder3D::writeDimensionTail(const VrexDimension3D& dimension) {
    const auto variable = dimension.getVariable();
    return stream().writePacked([&] { return pack(dimension.value(), dimension.isRigid()); }) &&
           stream().writeIdList(std::span(&variable, 1)) &&
           stream().writeOptionalF64(dimension.getLimits().first) &&
           stream().writeOptionalF64(dimension.getLimits().second);
}

/// The free degrees, and an empty block without a meaning. Kept: the limits stand before the value here.
bool VrexObjectEncoder3D::writeMateTail(const VrexMate3D& mate) {
    std::vector<VrexMateDimension3D> dimensions;
    for (std::uint64_t i = 0; i < mate.getDimensionSize(); ++i) {
        dimensions.push_back(mate.getDimension(i));
    }
    const auto writeDimension = [this](const VrexMateDimension3D& dimension) {
        return stream().beginBlock() && stream().writeOptionalF64(dimension.limits.first) &&
               stream().writeOptionalF64(dimension.limits.second) &&
               stream().writePacked([&] { return pack(dimension.value, dimension.fixed()); }) &&
               stream().endBlock();
    };
    return stream().writeList(dimensions, writeDimension) && stream().writeEmptyBlock();
}

void VrexObjectEncoder3D::visitConstraint3D(VrexConstraint3D& constraint) {
    encodeConstraint(constraint, NOTHING);
}

void VrexObjectEncoder3D::visitDimension3D(VrexDimension3D& dimension) {
    encodeDimension(dimension, NOTHING);
}

void VrexObjectEncoder3D::visitMate3D(VrexMate3D& mate) {
    encodeConstraint(mate, VrexObjectType::Geometry, NOTHING, [&] { return writeMateTail(mate); });
}

void VrexObjectEncoder3D::visitDirectionDistance3D(VrexDirectionDistance3D& distance) {
    encodeDimension(distance, [&] { return stream().writeVector(distance.getDirectionVector()); });
}

void VrexObjectEncoder3D::visitIncidence3D(VrexIncidence3D& incidence) {
    encodeConstraint(incidence, [&] { return stream().writeU32(number(incidence.getIncidenceType())); });
}

void VrexObjectEncoder3D::visitFixation3D(VrexFixation3D& fixation) {
    encodeConstraint(fixation, [&] { return stream().writeU32(number(fixation.getFixationType())); });
}

void VrexObjectEncoder3D::visitEqualRadius3D(VrexEqualRadius3D& constraint) {
    encodeConstraint(constraint, [&] {
        return stream().writePacked(
            [&] { return pack(number(constraint.getRadiusType(0)), number(constraint.getRadiusType(1))); });
    });
}

void VrexObjectEncoder3D::visitInstance3D(VrexInstance3D& instance) {
    encodeConstraint(instance, [&] {
        return stream().writeList(instance.getCoefficients(),
                                  [&](std::int32_t coefficient) { return stream().writeI32(coefficient); });
    });
}

void VrexObjectEncoder3D::visitEqualDimension3D(VrexEqualDimension3D& constraint) {
    encodeConstraint(constraint, [&] { return stream().writeIdList(constraint.getDimensions()); });
}

void VrexObjectEncoder3D::visitEqualParameter3D(VrexEqualParameter3D& constraint) {
    const auto& pairs = constraint.getParameterIndices();
    encodeConstraint(constraint, [&] {
        return stream().writeIdList(constraint.getConstraints()) && stream().writePacked([&] {
            return pack(pairs[0].first, pairs[0].second, pairs[1].first, pairs[1].second);
        });
    });
}

void VrexObjectEncoder3D::visitMateRelation3D(VrexMateRelation3D& relation) {
    const auto& indices = relation.getMateParameterIndexs();
    if (indices.size() != 2) {
        VREX_LOG(nsLog::REFUSAL, "Constraint(%llu): %zu indices of mate parameters cannot be encoded.",
                 static_cast<unsigned long long>(relation.getID()), indices.size());
        return setDone(false);
    }
    encodeConstraint(relation, [&] {
        return stream().writeIdList(relation.getMates()) &&
               stream().writePacked([&] { return pack(indices[0], indices[1], relation.getRatio()); });
    });
}

void VrexObjectEncoder3D::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) {
    encodeBinding(interval);
}

void VrexObjectEncoder3D::visitVariableFixation3D(VrexVariableFixation3D& fixation) {
    encodeBinding(fixation);
}
