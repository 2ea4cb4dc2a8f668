#include "data/serialization/3d/VrexConstraintReplay.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCurveProperties.h"
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
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace nsConstraintReplay {

namespace {

using nsReplayArguments::allArguments;
using nsReplayArguments::argument;
using Constraint = std::shared_ptr<VrexConstraint3D>;
using Any = VrexGeometry3D;

constexpr double UNIT = 1.0;
/// That of radii until their types are read.
constexpr auto ANY_RADIUS = VrexRadius3DType::Radius3D;

/// Of the first arguments as `Parts`, followed by `values`; null unless the parts are all there.
template <class Made, class... Parts, class... Values>
Constraint createOf(const Arguments& from, const Values&... values) {
    return nsReplayArguments::createOf<Parts...>(
        from.geometries, [&](const auto&... parts) { return Made::create(parts..., values...); });
}

/// Of whole geometries, without a value.
template <class Made, class... Parts>
Constraint createRelation(const Arguments& from) {
    return createOf<Made, Parts...>(from);
}

template <class Made, class... Parts>
Constraint createDimension(const Arguments& from) {
    return createOf<Made, Parts...>(from, UNIT);
}

template <VrexRadius3DType TYPE>
Constraint createRadius(const Arguments& from) {
    return createOf<VrexRadius3D, Any>(from, UNIT, TYPE);
}

template <VrexConstraint3DType TYPE>
Constraint createCurveProperty(const Arguments& from) {
    return createOf<VrexEqualCurveProperty3D, Any, Any>(from, nsCurveProperties::property(TYPE).value());
}

/// The limits of the free degrees are read later.
template <class Mate, class... Limits>
Constraint createMate(const Arguments& from) {
    return createOf<Mate, VrexConnector3D, VrexConnector3D>(from, Limits()...);
}

Constraint createEqualRadius(const Arguments& from) {
    return nsReplayArguments::createOf<Any, Any>(from.geometries, [&](const auto& first, const auto& second) {
        return VrexEqualRadius3D::create(first, ANY_RADIUS, second, ANY_RADIUS, from.components[0],
                                         from.components[1]);
    });
}

/// With a coefficient for each pattern, to be replaced.
Constraint createInstance(const Arguments& from) {
    return nsReplayArguments::createOf<Any, Any, VrexArrayPattern3D>(
        from.geometries, [](const auto& first, const auto& second, const auto& arrayPattern) {
            const std::vector<std::int32_t> coefficients(arrayPattern->getPatterns().size());
            return VrexInstance3D::create(first, second, arrayPattern, coefficients);
        });
}

Constraint createVariableFixation(const Arguments& from) {
    return from.variables.empty() ? nullptr : VrexVariableFixation3D::create(from.variables.front());
}

Constraint createInterval(const Arguments& from) {
    return from.variables.empty()
               ? nullptr
               : VrexMateDimensionInterval3D::create(from.variables.front(), {}, from.dimensionIndex,
                                                     VrexMateDimensionInterval3DType::AngleDimension3D);
}

Constraint createEqualDimension(const Arguments& from) {
    auto dimensions = allArguments<VrexDimension3D>(from.constraints);
    const auto element = argument<VrexEqualDimensionElement3D>(from.geometries, 0);
    return dimensions.has_value() && element != nullptr
               ? VrexEqualDimension3D::create(std::move(*dimensions), element)
               : nullptr;
}

/// The pairs are 0 unless they are told.
Constraint createEqualParameter(const Arguments& from) {
    const auto geometry = argument<Any>(from.geometries, 0);
    const auto first = argument<VrexConstraint3D>(from.constraints, 0);
    const auto second = argument<VrexConstraint3D>(from.constraints, 1);
    const bool arePairsWhole = from.helpParameters.empty() || from.helpParameters.size() >= 2;
    if (geometry == nullptr || first == nullptr || second == nullptr || !arePairsWhole) {
        return nullptr;
    }
    auto equality = VrexEqualParameter3D::create(geometry, first, second);
    equality->getParameterIndices() = {};
    std::copy_n(from.helpParameters.begin(), from.helpParameters.empty() ? 0 : 2,
                equality->getParameterIndices().begin());
    return equality;
}

Constraint createMateRelation(const Arguments& from) {
    auto mates = allArguments<VrexMate3D>(from.constraints);
    return mates.has_value() ? VrexMateRelation3D::create(std::move(*mates), {0, 0}, UNIT) : nullptr;
}

struct Row {
    VrexConstraint3DType type;
    Constraint (*create)(const Arguments& from);
};

using enum VrexConstraint3DType;
using Limits = VrexDimensionLimits;

/// In the order of the types.
constexpr Row ROWS[] = {
    {Distance3D,
     [](const Arguments& from) {
         return createOf<VrexDistance3D, Any, Any>(from, UNIT, from.components[0], from.components[1]);
     }},
    {DirectionDistance3D,
     [](const Arguments& from) {
         return createOf<VrexDirectionDistance3D, VrexPoint3D, VrexPoint3D>(
             from, VrexVector3DT<double>::ZERO(), UNIT);
     }},
    {ParallelDistance3D, createDimension<VrexParallelDistance3D, VrexPoint3D, VrexPoint3D, Any>},
    {Incidence3D,
     [](const Arguments& from) {
         return createOf<VrexIncidence3D, Any, Any>(from, VrexIncidence3DType::Default, from.components[0],
                                                    from.components[1]);
     }},
    {Fixation3D,
     [](const Arguments& from) {
         return createOf<VrexFixation3D, Any>(from, VrexFixation3DType::Complete3D);
     }},
    {Angle3D, createDimension<VrexAngle3D, Any, Any>},
    {PlanarAngle3D, createDimension<VrexPlanarAngle3D, Any, Any, Any>},
    {Parallelism3D, createRelation<VrexParallelism3D, Any, Any>},
    {Perpendicularity3D, createRelation<VrexPerpendicularity3D, Any, Any>},
    {Concentricity3D, createRelation<VrexConcentricity3D, Any, Any>},
    {IncidenceToCenter3D, createRelation<VrexIncidenceToCenter3D, Any, Any>},
    {Tangency3D,
     [](const Arguments& from) {
         return createOf<VrexTangency3D, Any, Any>(from, from.components[0], from.components[1]);
     }},
    {VariableFixation3D, createVariableFixation},
    {Symmetry3D, createRelation<VrexSymmetry3D, Any, Any, VrexPlane3D>},
    {MidPoint3D, createRelation<VrexMidPoint3D, Any, Any, VrexPoint3D>},
    {Radius3D, createRadius<VrexRadius3DType::Radius3D>},
    {MajorRadius3D, createRadius<VrexRadius3DType::MajorRadius3D>},
    {MinorRadius3D, createRadius<VrexRadius3DType::MinorRadius3D>},
    {EqualRadius3D, createEqualRadius},
    {EqualParameter3D, createEqualParameter},
    {MateDimensionInterval3D, createInterval},
    {SliderMate3D, createMate<VrexSliderMate3D, Limits>},
    {FastenedMate3D, createMate<VrexFastenedMate3D>},
    {CylinderMate3D, createMate<VrexCylinderMate3D, Limits, Limits>},
    {RevoluteMate3D, createMate<VrexRevoluteMate3D, Limits>},
    {PlanarMate3D, createMate<VrexPlanarMate3D, Limits, Limits, Limits>},
    {PinSlotMate3D, createMate<VrexPinSlotMate3D, Limits, Limits>},
    {ParallelMate3D, createMate<VrexParallelMate3D, Limits, Limits, Limits, Limits>},
    {BallMate3D, createMate<VrexBallMate3D, Limits>},
    {HalfAngle3D, createDimension<VrexHalfAngle3D, VrexCone3D>},
    {SurfaceNormal3D, createRelation<VrexSurfaceNormal3D, VrexParametricSurface3D, Any>},
    {Instance3D, createInstance},
    {PatternValue3D, createDimension<VrexPatternValue3D, VrexPattern3D>},
    {CurveLength3D, createDimension<VrexCurveLength3D, VrexPoint3D, VrexPoint3D, Any>},
    {EqualDirection3D, createCurveProperty<EqualDirection3D>},
    {EqualFirstDerivative3D, createCurveProperty<EqualFirstDerivative3D>},
    {EqualSecondDerivative3D, createCurveProperty<EqualSecondDerivative3D>},
    {EqualCurvature3D, createCurveProperty<EqualCurvature3D>},
    {EqualCurvatureDerivative3D, createCurveProperty<EqualCurvatureDerivative3D>},
    {EqualDimension3D, createEqualDimension},
    {EqualDimensionValue3D, createDimension<VrexEqualDimensionValue3D, VrexEqualDimensionElement3D>},
    {MateRelation3D, createMateRelation},
};
static_assert(nsReplayArguments::areComplete(
    ROWS, static_cast<VrexConstraint3DType>(std::size(VrexEnumTable<VrexConstraint3DType>::ROWS) - 1)));

} // namespace

void Arguments::clear() {
    geometries.clear();
    variables.clear();
    constraints.clear();
    helpParameters.clear();
    components = {VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN};
    dimensionIndex = 0;
}

bool bindsVariable(VrexConstraint3DType type) {
    return type == VariableFixation3D || type == MateDimensionInterval3D;
}

std::shared_ptr<VrexConstraint3D> create(VrexConstraint3DType type, const Arguments& arguments) {
    const auto index = static_cast<std::size_t>(type);
    if (index >= std::size(ROWS)) {
        VREX_RAISE(std::runtime_error, "Failed to replay: constriant not implemented!");
    }
    return ROWS[index].create(arguments);
}

} // namespace nsConstraintReplay
