#include "data/serialization/3d/VrexObjectDecoder3D.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualCurveProperty3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexGeomComponentsAccess.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexStreamReading.h"

namespace {

using nsStreamReading::readKnown;
using nsStreamReading::readReferenceList;

using Stream = VrexStreamDecoder;
using Made = std::shared_ptr<VrexConstraint3D>;
using Components = std::array<VrexGeometryComponentType, 2>;
using Any = VrexGeometry3D;
template <class Object>
using Pointer = std::shared_ptr<Object>;

/// The value comes with the tail.
constexpr double NO_VALUE = 0.0;

bool readComponents(Stream& stream, Components& out) {
    return readKnown(stream, out[0]) && readKnown(stream, out[1]);
}

/// Most kinds are created without components, and a setter would refuse what was stored for another kind.
Made withComponents(Made constraint, const Components& components) {
    if (constraint != nullptr) {
        VrexGeomComponentsAccess::set(*constraint, components);
    }
    return constraint;
}

/// Reads arguments of these classes and components. `create` makes the constraint of both; it reads what
/// further fields the kind has.
template <class... Geometry, class Create>
Made readWith(Stream& stream, const Create& create) {
    std::tuple<Pointer<Geometry>...> arguments;
    Components components{};
    const auto readArguments = [&](auto&... each) {
        return nsStreamReading::readReferences(stream, each...);
    };
    if (!std::apply(readArguments, arguments) || !readComponents(stream, components)) {
        return nullptr;
    }
    const auto make = [&](const auto&... each) -> Made { return create(components, each...); };
    return withComponents(std::apply(make, arguments), components);
}

template <class Constraint, class... Geometry>
Made readPlain(Stream& stream) {
    return readWith<Geometry...>(
        stream, [](const Components&, const auto&... each) { return Constraint::create(each...); });
}

template <class Dimension, class... Geometry>
Made readDimension(Stream& stream) {
    return readWith<Geometry...>(
        stream, [](const Components&, const auto&... each) { return Dimension::create(each..., NO_VALUE); });
}

template <class Mate, std::size_t... INDICES>
Made createMate(const Pointer<VrexConnector3D>& connector1, const Pointer<VrexConnector3D>& connector2,
                std::index_sequence<INDICES...> /*degrees*/) {
    return Mate::create(connector1, connector2, (static_cast<void>(INDICES), VrexDimensionLimits())...);
}

template <class Mate>
Made readMate(Stream& stream) {
    return readWith<VrexConnector3D, VrexConnector3D>(stream, [](const Components&, const auto& connector1,
                                                                 const auto& connector2) {
        return createMate<Mate>(connector1, connector2, std::make_index_sequence<Mate::DIMENSIONS_AMOUNT>());
    });
}

Made readDistance(Stream& stream) {
    return readWith<Any, Any>(stream, [](const Components& parts, const auto& first, const auto& second) {
        return VrexDistance3D::create(first, second, NO_VALUE, parts[0], parts[1]);
    });
}

Made readDirectionDistance(Stream& stream) {
    return readWith<VrexPoint3D, VrexPoint3D>(
        stream, [&](const Components&, const auto& first, const auto& second) {
            VrexVector3DT<double> direction;
            return stream.readVector(direction)
                       ? VrexDirectionDistance3D::create(first, second, direction, NO_VALUE)
                       : nullptr;
        });
}

template <VrexRadius3DType TYPE>
Made readRadius(Stream& stream) {
    return readWith<Any>(stream, [](const Components&, const auto& geometry) {
        return VrexRadius3D::create(geometry, NO_VALUE, TYPE);
    });
}

Made readIncidence(Stream& stream) {
    return readWith<Any, Any>(stream, [&](const Components& parts, const auto& first, const auto& second) {
        VrexIncidence3DType type{};
        return readKnown(stream, type) ? VrexIncidence3D::create(first, second, type, parts[0], parts[1])
                                       : nullptr;
    });
}

Made readTangency(Stream& stream) {
    return readWith<Any, Any>(stream, [](const Components& parts, const auto& first, const auto& second) {
        return VrexTangency3D::create(first, second, parts[0], parts[1]);
    });
}

Made readFixation(Stream& stream) {
    return readWith<Any>(stream, [&](const Components&, const auto& geometry) {
        VrexFixation3DType type{};
        return readKnown(stream, type) ? VrexFixation3D::create(geometry, type) : nullptr;
    });
}

Made readEqualRadius(Stream& stream) {
    return readWith<Any, Any>(stream, [&](const Components& parts, const auto& first, const auto& second) {
        VrexRadius3DType type1{};
        VrexRadius3DType type2{};
        return readKnown(stream, type1) && readKnown(stream, type2)
                   ? VrexEqualRadius3D::create(first, type1, second, type2, parts[0], parts[1])
                   : nullptr;
    });
}

template <VrexCurveProperty3DType PROPERTY>
Made readEqualCurveProperty(Stream& stream) {
    return readWith<Any, Any>(stream, [](const Components&, const auto& first, const auto& second) {
        return VrexEqualCurveProperty3D::create(first, second, PROPERTY);
    });
}

/// Null for data that `VrexInstance3D::canCreate` refuses.
Made readInstance(Stream& stream) {
    return readWith<Any, Any, VrexArrayPattern3D>(
        stream, [&](const Components&, const auto& first, const auto& second, const auto& pattern) {
            std::vector<std::int32_t> coefficients;
            return stream.readList([&] { return stream.readI32(coefficients.emplace_back()); })
                       ? VrexInstance3D::create(first, second, pattern, coefficients)
                       : nullptr;
        });
}

Made readEqualDimension(Stream& stream) {
    return readWith<VrexEqualDimensionElement3D>(stream, [&](const Components&, const auto& element) {
        VrexEqualDimension3D::Dimensions dimensions;
        return readReferenceList(stream, dimensions)
                   ? VrexEqualDimension3D::create(std::move(dimensions), element)
                   : nullptr;
    });
}

/// The pairs of indices are kept as they come.
Made readEqualParameter(Stream& stream) {
    return readWith<Any>(stream, [&](const Components&, const auto& geometry) -> Made {
        Pointer<VrexConstraint3D> first;
        Pointer<VrexConstraint3D> second;
        std::array<int, 4> indices{};
        if (!nsStreamReading::readReferences(stream, first, second) || !stream.readPacked(indices)) {
            return nullptr;
        }
        auto equality = VrexEqualParameter3D::create(geometry, first, second);
        equality->getParameterIndices() = {{{indices[0], indices[1]}, {indices[2], indices[3]}}};
        return equality;
    });
}

Made readMateRelation(Stream& stream) {
    return readWith<>(stream, [&](const Components&) {
        std::vector<Pointer<VrexMate3D>> mates;
        std::vector<std::uint64_t> indices(2);
        double ratio = 0.0;
        return readReferenceList(stream, mates) && stream.readPacked(indices[0], indices[1], ratio) &&
                       VrexMateRelation3D::canCreate(mates, indices)
                   ? VrexMateRelation3D::create(std::move(mates), std::move(indices), ratio)
                   : nullptr;
    });
}

/// An interval need not have a variable; limits, index and type of the degree do not travel.
Made readMateDimensionInterval(Stream& stream) {
    Pointer<VrexGeometryVariable> variable;
    Components components{};
    const auto readVariable = [&] {
        return stream.isAtEnd() || nsStreamReading::readReference(stream, variable);
    };
    if (!stream.readBlock(readVariable) || !readComponents(stream, components)) {
        return nullptr;
    }
    return withComponents(VrexMateDimensionInterval3D::create(
                              variable, {}, 0, VrexMateDimensionInterval3DType::AngleDimension3D),
                          components);
}

struct Row {
    VrexConstraint3DType type;
    Made (*read)(Stream&);
};

using enum VrexConstraint3DType;
using Property = VrexCurveProperty3DType;

/// In the order of the types.
constexpr Row ROWS[] = {
    {Distance3D, readDistance},
    {DirectionDistance3D, readDirectionDistance},
    {ParallelDistance3D, readDimension<VrexParallelDistance3D, VrexPoint3D, VrexPoint3D, Any>},
    {Incidence3D, readIncidence},
    {Fixation3D, readFixation},
    {Angle3D, readDimension<VrexAngle3D, Any, Any>},
    {PlanarAngle3D, readDimension<VrexPlanarAngle3D, Any, Any, Any>},
    {Parallelism3D, readPlain<VrexParallelism3D, Any, Any>},
    {Perpendicularity3D, readPlain<VrexPerpendicularity3D, Any, Any>},
    {Concentricity3D, readPlain<VrexConcentricity3D, Any, Any>},
    {IncidenceToCenter3D, readPlain<VrexIncidenceToCenter3D, Any, Any>},
    {Tangency3D, readTangency},
    {VariableFixation3D, readPlain<VrexVariableFixation3D, VrexGeometryVariable>},
    {Symmetry3D, readPlain<VrexSymmetry3D, Any, Any, VrexPlane3D>},
    {MidPoint3D, readPlain<VrexMidPoint3D, Any, Any, VrexPoint3D>},
    {Radius3D, readRadius<VrexRadius3DType::Radius3D>},
    {MajorRadius3D, readRadius<VrexRadius3DType::MajorRadius3D>},
    {MinorRadius3D, readRadius<VrexRadius3DType::MinorRadius3D>},
    {EqualRadius3D, readEqualRadius},
    {EqualParameter3D, readEqualParameter},
    {MateDimensionInterval3D, readMateDimensionInterval},
    {SliderMate3D, readMate<VrexSliderMate3D>},
    {FastenedMate3D, readMate<VrexFastenedMate3D>},
    {CylinderMate3D, readMate<VrexCylinderMate3D>},
    {RevoluteMate3D, readMate<VrexRevoluteMate3D>},
    {PlanarMate3D, readMate<VrexPlanarMate3D>},
    {PinSlotMate3D, readMate<VrexPinSlotMate3D>},
    {ParallelMate3D, readMate<VrexParallelMate3D>},
    {BallMate3D, readMate<VrexBallMate3D>},
    {HalfAngle3D, readDimension<VrexHalfAngle3D, VrexCone3D>},
    {SurfaceNormal3D, readPlain<VrexSurfaceNormal3D, VrexParametricSurface3D, Any>},
    {Instance3D, readInstance},
    {PatternValue3D, readDimension<VrexPatternValue3D, VrexPattern3D>},
    {CurveLength3D, readDimension<VrexCurveLength3D, VrexPoint3D, VrexPoint3D, Any>},
    {EqualDirection3D, readEqualCurveProperty<Property::EqualDirection3D>},
    {EqualFirstDerivative3D, readEqualCurveProperty<Property::EqualFirstDerivative3D>},
    {EqualSecondDerivative3D, readEqualCurveProperty<Property::EqualSecondDerivative3D>},
    {EqualCurvature3D, readEqualCurveProperty<Property::EqualCurvature3D>},
    {EqualCurvatureDerivative3D, readEqualCurveProperty<Property::EqualCurvatureDerivative3D>},
    {EqualDimension3D, readEqualDimension},
    {EqualDimensionValue3D, readDimension<VrexEqualDimensionValue3D, VrexEqualDimensionElement3D>},
    {MateRelation3D, readMateRelation},
};

consteval bool namesEachTypeInOrder() {
    for (std::size_t i = 0; i < std::size(ROWS); ++i) {
        if (ROWS[i].type != static_cast<VrexConstraint3DType>(i)) {
            return false;
        }
    }
    // The first row of the names is that of no type.
    return std::size(ROWS) + 1 == std::size(VrexEnumTable<VrexConstraint3DType>::ROWS);
}
static_assert(namesEachTypeInOrder());

} // namespace

std::shared_ptr<VrexConstraint3D> VrexObjectDecoder3D::readConstraint(VrexStreamDecoder& stream) {
    std::uint32_t type = 0;
    if (!stream.readU32(type) || type >= std::size(ROWS)) {
        return nullptr;
    }
    return ROWS[type].read(stream);
}
