#include <cstdint>
#include <span>

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

using nsPacked::number;

namespace {

constexpr auto NOTHING = [](auto& /*fields*/) {};

template <class Fields>
void putHelpValues(Fields& fields, const VrexConstraint3D& constraint) {
    fields.values(number(constraint.alignment()), number(constraint.orientation()));
    fields.optional(constraint.helpPoint1());
    fields.optional(constraint.helpPoint2());
    fields.optional(constraint.helpParam1());
    fields.optional(constraint.helpParam2());
    fields.values(constraint.fixHelpParameter1(), constraint.fixHelpParameter2());
}

/// Value, rigid flag, variable, limits.
template <class Fields>
void putDimensionTail(Fields& fields, const VrexDimension3D& dimension) {
    const auto variable = dimension.getVariable();
    fields.packed([&] { return nsPacked::pack(dimension.value(), dimension.isRigid()); });
    fields.ids(std::span(&variable, 1));
    fields.optional(dimension.getLimits().first);
    fields.optional(dimension.getLimits().second);
}

/// Kept: the limits stand before the value here.
template <class Fields>
void putDegree(Fields& fields, const VrexMateDimension3D& degree) {
    fields.block([&] {
        fields.optional(degree.limits.first);
        fields.optional(degree.limits.second);
        fields.values(degree.value, degree.fixed());
    });
}

/// The free degrees, and an empty block without a meaning.
template <class Fields>
void putMateTail(Fields& fields, const VrexMate3D& mate) {
    fields.block([&] {
        for (std::uint64_t i = 0; i < mate.getDimensionSize(); ++i) {
            putDegree(fields, mate.getDimension(i));
        }
    });
    fields.emptyBlock();
}

} // namespace

/// The identifiers of the arguments of one base kind, then what `put` puts of the kind before the fields of
/// all constraints, and what `putTail` puts behind them.
template <class Put, class PutTail>
void VrexObjectEncoder3D::encodeConstraint(const VrexConstraint3D& constraint, VrexObjectType arguments,
                                           Put put, PutTail putTail) {
    const auto isArgument = [&](const VrexBaseGeometry& geometry) {
        return geometry.baseType() == arguments;
    };
    encode([&](auto& fields) {
        fields.values(number(constraint.baseType()), number(constraint.type()));
        fields.ids(constraint.getGeometries(), isArgument);
        fields.packed([&] {
            return nsPacked::pack(number(constraint.getGeomComponentType(1)),
                                  number(constraint.getGeomComponentType(2)));
        });
        put(fields);
        putCommon(fields, constraint);
        putHelpValues(fields, constraint);
        putTail(fields);
    });
}

template <class Put>
void VrexObjectEncoder3D::encodeConstraint(const VrexConstraint3D& constraint, Put put) {
    encodeConstraint(constraint, VrexObjectType::Geometry, put, NOTHING);
}

template <class Put>
void VrexObjectEncoder3D::encodeDimension(const VrexDimension3D& dimension, Put put) {
    encodeConstraint(dimension, VrexObjectType::Geometry, put,
                     [&](auto& fields) { putDimensionTail(fields, dimension); });
}

/// A constraint whose argument is a variable.
void VrexObjectEncoder3D::encodeBinding(const VrexConstraint3D& constraint) {
    encodeConstraint(constraint, VrexObjectType::Variable, NOTHING, NOTHING);
}

void VrexObjectEncoder3D::visitConstraint3D(VrexConstraint3D& constraint) {
    encodeConstraint(constraint, NOTHING);
}

void VrexObjectEncoder3D::visitDimension3D(VrexDimension3D& dimension) {
    encodeDimension(dimension, NOTHING);
}

void VrexObjectEncoder3D::visitMate3D(VrexMate3D& mate) {
    encodeConstraint(mate, VrexObjectType::Geometry, NOTHING,
                     [&](auto& fields) { putMateTail(fields, mate); });
}

void VrexObjectEncoder3D::visitDirectionDistance3D(VrexDirectionDistance3D& distance) {
    encodeDimension(distance, [&](auto& fields) { fields.values(distance.getDirectionVector()); });
}

void VrexObjectEncoder3D::visitIncidence3D(VrexIncidence3D& incidence) {
    encodeConstraint(incidence, [&](auto& fields) { fields.values(number(incidence.getIncidenceType())); });
}

void VrexObjectEncoder3D::visitFixation3D(VrexFixation3D& fixation) {
    encodeConstraint(fixation, [&](auto& fields) { fields.values(number(fixation.getFixationType())); });
}

void VrexObjectEncoder3D::visitEqualRadius3D(VrexEqualRadius3D& constraint) {
    encodeConstraint(constraint, [&](auto& fields) {
        fields.values(number(constraint.getRadiusType(0)), number(constraint.getRadiusType(1)));
    });
}

void VrexObjectEncoder3D::visitInstance3D(VrexInstance3D& instance) {
    encodeConstraint(instance, [&](auto& fields) { fields.numbers(instance.getCoefficients()); });
}

void VrexObjectEncoder3D::visitEqualDimension3D(VrexEqualDimension3D& constraint) {
    encodeConstraint(constraint, [&](auto& fields) { fields.ids(constraint.getDimensions()); });
}

void VrexObjectEncoder3D::visitEqualParameter3D(VrexEqualParameter3D& constraint) {
    const auto& pairs = constraint.getParameterIndices();
    encodeConstraint(constraint, [&](auto& fields) {
        fields.ids(constraint.getConstraints());
        fields.values(pairs[0].first, pairs[0].second, pairs[1].first, pairs[1].second);
    });
}

void VrexObjectEncoder3D::visitMateRelation3D(VrexMateRelation3D& relation) {
    const auto& indices = relation.getMateParameterIndexs();
    encodeConstraint(relation, [&](auto& fields) {
        fields.require([&] { return indices.size() == 2; });
        fields.ids(relation.getMates());
        fields.packed([&] { return nsPacked::pack(indices[0], indices[1], relation.getRatio()); });
    });
}

void VrexObjectEncoder3D::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) {
    encodeBinding(interval);
}

void VrexObjectEncoder3D::visitVariableFixation3D(VrexVariableFixation3D& fixation) {
    encodeBinding(fixation);
}
