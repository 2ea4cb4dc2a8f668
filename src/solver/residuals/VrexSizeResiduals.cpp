#include "solver/residuals/VrexSizeResiduals.h"

#include <optional>

#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/residuals/VrexDimensionResiduals.h"

namespace {

struct Size {
    const VrexSolverShape* shape = nullptr;
    std::size_t index = 0;

    double value() const { return shape->sizeValue(index); }
    VrexSolverBuilder::Measure measure(double factor) const {
        return [*this, factor] { return shape->size(index) * factor; };
    }
    double unit() const { return shape->body().sizeUnit(index); }
};

/// 0 for what has one radius or the larger of two, 1 for the other; empty for a radius that the entity lacks.
std::optional<std::size_t> radiusIndex(VrexGeometry3DType type, VrexRadius3DType radius) {
    switch (type) {
        using enum VrexGeometry3DType;
    case SPHERE:
    case CYLINDER:
    case CIRCLE:
        return radius == VrexRadius3DType::Radius3D ? std::optional<std::size_t>(0) : std::nullopt;
    case ELLIPSE:
    case TORUS:
        return radius == VrexRadius3DType::MajorRadius3D   ? std::optional<std::size_t>(0)
               : radius == VrexRadius3DType::MinorRadius3D ? std::optional<std::size_t>(1)
                                                           : std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Size> radiusOf(const VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& entity,
                             VrexRadius3DType radius) {
    const VrexSolverShape* const shape = builder.shape(entity);
    const auto index = shape != nullptr ? radiusIndex(entity->type(), radius) : std::nullopt;
    return index.has_value() ? std::optional(Size{shape, *index}) : std::nullopt;
}

/// That of the first entity of the constraint, if it is of this kind.
std::optional<Size> onlySizeOf(const VrexSolverBuilder& builder, const VrexConstraint3D& constraint,
                               VrexGeometry3DType type) {
    const auto entity = constraint.getGeometryByType(type);
    const VrexSolverShape* const shape = builder.shape(entity);
    return shape != nullptr ? std::optional(Size{shape, 0}) : std::nullopt;
}

double signOf(double size) { return size < 0.0 ? -1.0 : 1.0; }

void addAmount(VrexSolverBuilder& builder, VrexDimension3D& dimension, const Size& size, double unit) {
    const double sign = dimension.value() < 0.0 ? 1.0 : signOf(size.value());
    nsDimensionResiduals::add(builder, dimension, size.measure(sign), unit);
}

void addNumber(VrexSolverBuilder& builder, VrexDimension3D& dimension, VrexGeometry3DType type) {
    const auto size = onlySizeOf(builder, dimension, type);
    if (!size.has_value()) {
        builder.refuse("The number that this dimension sets is missing.");
        return;
    }
    nsDimensionResiduals::add(builder, dimension, size->measure(1.0), size->unit());
}

} // namespace

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexRadius3D& radius) {
    const auto size = radiusOf(builder, radius.geometry(1), radius.getRadiusType());
    if (!size.has_value()) {
        builder.refuse("The entity has no such radius.");
        return;
    }
    addAmount(builder, radius, *size, builder.length());
}

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexHalfAngle3D& halfAngle) {
    const auto size = onlySizeOf(builder, halfAngle, VrexGeometry3DType::CONE);
    if (!size.has_value()) {
        builder.refuse("A half angle needs a cone.");
        return;
    }
    addAmount(builder, halfAngle, *size, 1.0);
}

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexPatternValue3D& patternValue) {
    addNumber(builder, patternValue, VrexGeometry3DType::PATTERN);
}

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexEqualDimensionValue3D& value) {
    addNumber(builder, value, VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT);
}

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexEqualRadius3D& equality) {
    const auto sizeOf = [&](int index) {
        const auto number = static_cast<std::uint32_t>(index) + 1;
        VrexRadius3DType radius = equality.getRadiusType(index);
        if (radius == VrexRadius3DType::Radius3D) {
            VrexEqualRadius3D::setRadiusType(radius, equality.getGeomComponentType(number));
        }
        return radiusOf(builder, equality.geometry(number), radius);
    };
    const auto first = sizeOf(0);
    const auto second = sizeOf(1);
    if (!first.has_value() || !second.has_value()) {
        builder.refuse("An entity has no such radius.");
        return;
    }
    builder.addTarget(first->measure(signOf(first->value())), second->measure(signOf(second->value())),
                      builder.length());
}

void nsSizeResiduals::add(VrexSolverBuilder& builder, VrexVariableFixation3D& fixation) {
    const auto variable = fixation.variable();
    const VrexSolverShape* const shape = variable != nullptr ? builder.shape(variable) : nullptr;
    if (shape == nullptr) {
        builder.refuse("The variable that this fixation holds is missing.");
        return;
    }
    const Size size{shape, 0};
    builder.addTarget(
        size.measure(1.0), [start = size.value()] { return VrexVariable(start); }, size.unit());
    // To the last digit, not only within the tolerance.
    builder.addResult([variable, start = variable->getValue()] { variable->setValue(start); });
}
