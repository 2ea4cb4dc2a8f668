#include "data/constraint/3d/VrexConstraint3DPreValidatorTables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace {

using enum VrexGeometry3DType;
using Combination = VrexGeometryCombination3D;
using Component = VrexGeometryComponentType;
using Kind = VrexConstraint3DType;
using KindSet = VrexGeometry3DTypeSet;
using PairTable = VrexGeometryPairTable3D;
using nsPreValidation::ComponentRow;
using nsPreValidation::FixationRule;
using nsPreValidation::Matching;
using nsPreValidation::Rule;

constexpr auto TYPES = static_cast<std::int32_t>(TYPES_COUNT);

/// Stands for the pairs of the first kind and each partner.
struct With {
    VrexGeometry3DType first;
    KindSet partners;
};

template <class Use>
consteval void forEachPair(const With& row, Use use) {
    for (std::int32_t index = 0; index < TYPES; ++index) {
        const auto partner = static_cast<VrexGeometry3DType>(index);
        if (row.partners.contains(partner)) {
            use(row.first, partner);
        }
    }
}

template <const auto& rows, class Use>
consteval void forEachPair(Use use) {
    for (const With& row : rows) {
        forEachPair(row, use);
    }
}

template <const auto& rows>
consteval std::size_t pairCount() {
    std::size_t count = 0;
    forEachPair<rows>([&](VrexGeometry3DType, VrexGeometry3DType) { ++count; });
    return count;
}

template <const auto& rows>
consteval auto expand() {
    std::array<Combination, pairCount<rows>()> pairs;
    std::size_t index = 0;
    forEachPair<rows>([&](VrexGeometry3DType first, VrexGeometry3DType second) {
        pairs[index++] = {first, second};
    });
    return pairs;
}

constexpr With DISTANCE[] = {
    {POINT,
     {POINT, LINE, CIRCLE, ELLIPSE, PLANE, CYLINDER, SPHERE, CONE, SPLINE, EVAL_CURVE, SPIN_SURFACE,
      SWEEP_SURFACE, NURBS_SURFACE, TORUS}},
    {LINE,
     {LINE, CIRCLE, ELLIPSE, SPLINE, EVAL_CURVE, PLANE, CYLINDER, SPHERE, CONE, SPIN_SURFACE, SWEEP_SURFACE,
      NURBS_SURFACE, TORUS}},
    {CIRCLE,
     {CIRCLE, ELLIPSE, SPLINE, EVAL_CURVE, PLANE, CYLINDER, SPHERE, CONE, SPIN_SURFACE, SWEEP_SURFACE,
      NURBS_SURFACE, TORUS}},
    {PLANE,
     {PLANE, CYLINDER, SPHERE, CONE, SPIN_SURFACE, SWEEP_SURFACE, NURBS_SURFACE, TORUS, ELLIPSE, SPLINE,
      EVAL_CURVE}},
    {CYLINDER,
     {CYLINDER, SPHERE, CONE, SPIN_SURFACE, SWEEP_SURFACE, NURBS_SURFACE, TORUS, ELLIPSE, SPLINE,
      EVAL_CURVE}},
    {SPHERE, {SPHERE, CONE, SPIN_SURFACE, SWEEP_SURFACE, NURBS_SURFACE, TORUS, ELLIPSE, SPLINE, EVAL_CURVE}},
    {CONE, {CONE, SPIN_SURFACE, SWEEP_SURFACE, NURBS_SURFACE, TORUS, ELLIPSE, SPLINE, EVAL_CURVE}},
    {ELLIPSE, {ELLIPSE, NURBS_SURFACE, TORUS, SPIN_SURFACE, SWEEP_SURFACE, SPLINE, EVAL_CURVE}},
    {SPLINE, {SPLINE, NURBS_SURFACE, TORUS, SPIN_SURFACE, SWEEP_SURFACE, EVAL_CURVE}},
    {EVAL_CURVE, {EVAL_CURVE, NURBS_SURFACE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {TORUS, {TORUS, SPIN_SURFACE, SWEEP_SURFACE, NURBS_SURFACE}},
    {SPIN_SURFACE, {SPIN_SURFACE, NURBS_SURFACE, SWEEP_SURFACE}},
    {NURBS_SURFACE, {NURBS_SURFACE, SWEEP_SURFACE}},
    {SWEEP_SURFACE, {SWEEP_SURFACE}},
};
constexpr auto DISTANCE_PAIRS = expand<DISTANCE>();
static_assert(DISTANCE_PAIRS.size() == 105);

constexpr Combination DIRECTION_DISTANCE_PAIRS[] = {{POINT, POINT}};

constexpr Combination PARALLEL_DISTANCE_TRIPLES[] = {
    {POINT, POINT, LINE},         {POINT, POINT, CYLINDER}, {POINT, POINT, CONE},
    {POINT, POINT, SPIN_SURFACE}, {POINT, POINT, PLANE},    {POINT, POINT, CIRCLE},
    {POINT, POINT, ELLIPSE},      {POINT, POINT, TORUS},    {POINT, POINT, SWEEP_SURFACE},
};
static_assert(std::size(PARALLEL_DISTANCE_TRIPLES) == 9);

constexpr With INCIDENCE[] = {
    {POINT,
     {POINT, LINE, CIRCLE, PLANE, SPHERE, CYLINDER, CONE, NURBS_SURFACE, SPLINE, EVAL_CURVE, ELLIPSE,
      SPIN_SURFACE, SWEEP_SURFACE, TORUS}},
    {LINE, {LINE, PLANE, CYLINDER, CONE, SWEEP_SURFACE}},
    {CIRCLE, {CIRCLE, PLANE, SPHERE, CYLINDER, CONE, TORUS, SPIN_SURFACE}},
    {PLANE, {PLANE, ELLIPSE}},
    {CYLINDER, {CYLINDER}},
    {CONE, {CONE}},
    {TORUS, {TORUS}},
    {NURBS_SURFACE, {NURBS_SURFACE}},
    {SPLINE, {SPLINE}},
    {SPHERE, {SPHERE}},
    {ELLIPSE, {ELLIPSE}},
};
constexpr auto INCIDENCE_PAIRS = expand<INCIDENCE>();
static_assert(INCIDENCE_PAIRS.size() == 35);

constexpr Combination FIXATION_SINGLES[] = {
    {POINT},  {LINE}, {CIRCLE}, {ELLIPSE},      {SPLINE},        {EVAL_CURVE},    {PLANE},     {CYLINDER},
    {SPHERE}, {CONE}, {TORUS},  {SPIN_SURFACE}, {SWEEP_SURFACE}, {NURBS_SURFACE}, {RIGID_SET},
};
static_assert(std::size(FIXATION_SINGLES) == 15);

constexpr With ANGULAR[] = {
    {LINE, {LINE, CIRCLE, ELLIPSE, PLANE, CYLINDER, CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {CIRCLE, {CIRCLE, ELLIPSE, PLANE, CYLINDER, CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {ELLIPSE, {ELLIPSE, PLANE, CYLINDER, CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {PLANE, {PLANE, CYLINDER, CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {CYLINDER, {CYLINDER, CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {CONE, {CONE, TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {TORUS, {TORUS, SPIN_SURFACE, SWEEP_SURFACE}},
    {SPIN_SURFACE, {SPIN_SURFACE, SWEEP_SURFACE}},
    {SWEEP_SURFACE, {SWEEP_SURFACE}},
};
constexpr auto ANGULAR_PAIRS = expand<ANGULAR>();
static_assert(ANGULAR_PAIRS.size() == 45);

constexpr With CONCENTRICITY[] = {
    {POINT, {POINT}},
    {CIRCLE, {POINT, CIRCLE, SPHERE}},
    {ELLIPSE, {ELLIPSE, POINT, CIRCLE, SPHERE}},
    {SPHERE, {SPHERE, POINT}},
    {TORUS, {TORUS, POINT, CIRCLE, ELLIPSE, SPHERE}},
    {LINE, {LINE, TORUS, POINT, CIRCLE, ELLIPSE, SPHERE}},
    {CONE, {CONE, LINE, TORUS, POINT, CIRCLE, ELLIPSE, SPHERE}},
    {CYLINDER, {CYLINDER, CONE, LINE, TORUS, POINT, CIRCLE, ELLIPSE, SPHERE}},
    {SPIN_SURFACE, {SPIN_SURFACE, CYLINDER, CONE, LINE, TORUS, POINT, CIRCLE, ELLIPSE, SPHERE}},
};
constexpr auto CONCENTRICITY_PAIRS = expand<CONCENTRICITY>();
static_assert(CONCENTRICITY_PAIRS.size() == 45);

constexpr With TANGENCY[] = {
    {LINE,
     {SPHERE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE, CIRCLE, ELLIPSE, SPLINE,
      EVAL_CURVE}},
    {PLANE,
     {SPHERE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE, CIRCLE, ELLIPSE, SPLINE,
      EVAL_CURVE}},
    {SPHERE,
     {SPHERE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE, CIRCLE, ELLIPSE, SPLINE,
      EVAL_CURVE}},
    {CYLINDER, {CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {CONE, {CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {TORUS, {TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {NURBS_SURFACE, {NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {SPIN_SURFACE, {SPIN_SURFACE, SWEEP_SURFACE}},
    {SWEEP_SURFACE, {SWEEP_SURFACE}},
    {CIRCLE,
     {CIRCLE, ELLIPSE, SPLINE, EVAL_CURVE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE,
      SWEEP_SURFACE}},
    {ELLIPSE,
     {ELLIPSE, SPLINE, EVAL_CURVE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {SPLINE, {SPLINE, EVAL_CURVE, CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE}},
    {EVAL_CURVE, {CYLINDER, CONE, TORUS, NURBS_SURFACE, SPIN_SURFACE, SWEEP_SURFACE, EVAL_CURVE}},
};
constexpr auto TANGENCY_PAIRS = expand<TANGENCY>();
static_assert(TANGENCY_PAIRS.size() == 88);

/// The plane is the third of each. Kept: the spin surfaces stand there twice.
constexpr Combination SYMMETRY_TRIPLES[] = {
    {POINT, POINT, PLANE},
    {LINE, LINE, PLANE},
    {PLANE, PLANE, PLANE},
    {CYLINDER, CYLINDER, PLANE},
    {SPHERE, SPHERE, PLANE},
    {CIRCLE, CIRCLE, PLANE},
    {CONE, CONE, PLANE},
    {SPIN_SURFACE, SPIN_SURFACE, PLANE},
    {ELLIPSE, ELLIPSE, PLANE},
    {TORUS, TORUS, PLANE},
    {SWEEP_SURFACE, SWEEP_SURFACE, PLANE},
    {SPIN_SURFACE, SPIN_SURFACE, PLANE},
};
static_assert(std::size(SYMMETRY_TRIPLES) == 12);

constexpr Combination MID_POINT_TRIPLES[] = {{POINT, POINT, POINT}, {PLANE, PLANE, POINT}};
constexpr Combination RADIUS_SINGLES[] = {{CIRCLE}, {SPHERE}, {CYLINDER}};
constexpr Combination TWO_RADII_SINGLES[] = {{ELLIPSE}, {TORUS}};

constexpr With EQUAL_RADIUS[] = {
    {CIRCLE, {CIRCLE, SPHERE, CYLINDER, ELLIPSE, TORUS}},
    {SPHERE, {SPHERE, CYLINDER, ELLIPSE, TORUS}},
    {CYLINDER, {CYLINDER, ELLIPSE, TORUS}},
    {ELLIPSE, {ELLIPSE, TORUS}},
    {TORUS, {TORUS}},
};
constexpr auto EQUAL_RADIUS_PAIRS = expand<EQUAL_RADIUS>();
static_assert(EQUAL_RADIUS_PAIRS.size() == 15);

constexpr Combination MATE_PAIRS[] = {{CONNECTOR, CONNECTOR}};
constexpr Combination HALF_ANGLE_SINGLES[] = {{CONE}};

constexpr With SURFACE_NORMAL[] = {
    {LINE, {CYLINDER, CONE, EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
    {CIRCLE, {CYLINDER, CONE, EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
    {CONE, {CYLINDER, CONE, EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
    {CYLINDER, {CYLINDER, EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
    {ELLIPSE, {CYLINDER, CONE, EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
    {TORUS, {EVAL_SURFACE, NURBS_SURFACE, TORUS, SWEEP_SURFACE, SPIN_SURFACE}},
};
constexpr auto SURFACE_NORMAL_PAIRS = expand<SURFACE_NORMAL>();
static_assert(SURFACE_NORMAL_PAIRS.size() == 39);

constexpr Combination INSTANCE_PAIRS[] = {
    {POINT, POINT},
    {LINE, LINE},
    {PLANE, PLANE},
    {CYLINDER, CYLINDER},
    {SPHERE, SPHERE},
    {CIRCLE, CIRCLE},
    {SPLINE, SPLINE},
    {CONE, CONE},
    {ELLIPSE, ELLIPSE},
    {TORUS, TORUS},
    {EVAL_CURVE, EVAL_CURVE},
    {NURBS_SURFACE, NURBS_SURFACE},
    {SPIN_SURFACE, SPIN_SURFACE},
    {SWEEP_SURFACE, SWEEP_SURFACE},
};
static_assert(std::size(INSTANCE_PAIRS) == 14);

constexpr Combination PATTERN_VALUE_SINGLES[] = {{PATTERN}};
constexpr Combination CURVE_LENGTH_TRIPLES[] = {
    {POINT, POINT, SPLINE}, {POINT, POINT, ELLIPSE}, {POINT, POINT, EVAL_CURVE}};

constexpr With EQUAL_DIRECTION[] = {
    {ELLIPSE, {LINE, CIRCLE, PLANE, CONE, CYLINDER, TORUS, SPLINE, EVAL_CURVE, ELLIPSE}},
    {SPLINE, {LINE, CIRCLE, PLANE, CONE, CYLINDER, TORUS, EVAL_CURVE, SPLINE}},
    {EVAL_CURVE, {LINE, CIRCLE, PLANE, CONE, CYLINDER, TORUS, EVAL_CURVE}},
};
constexpr auto EQUAL_DIRECTION_PAIRS = expand<EQUAL_DIRECTION>();
static_assert(EQUAL_DIRECTION_PAIRS.size() == 24);

constexpr With EQUAL_DERIVATIVE[] = {
    {ELLIPSE, {SPLINE, EVAL_CURVE, ELLIPSE}},
    {SPLINE, {EVAL_CURVE, SPLINE}},
    {EVAL_CURVE, {EVAL_CURVE}},
};
constexpr auto EQUAL_DERIVATIVE_PAIRS = expand<EQUAL_DERIVATIVE>();
static_assert(EQUAL_DERIVATIVE_PAIRS.size() == 6);

constexpr With EQUAL_CURVATURE[] = {
    {CIRCLE, {ELLIPSE, SPLINE, EVAL_CURVE}},
    {ELLIPSE, {SPLINE, EVAL_CURVE, ELLIPSE}},
    {SPLINE, {LINE, EVAL_CURVE, SPLINE}},
    {EVAL_CURVE, {LINE, EVAL_CURVE}},
};
constexpr auto EQUAL_CURVATURE_PAIRS = expand<EQUAL_CURVATURE>();
static_assert(EQUAL_CURVATURE_PAIRS.size() == 11);

constexpr Combination EQUAL_DIMENSION_VALUE_SINGLES[] = {{EQUAL_DIMENSION_ELEMENT}};

template <const auto& list>
constexpr PairTable PAIR_TABLE{list};

/// A rule over a list of pairs in any order.
template <const auto& list>
consteval Rule pairs(Kind kind, Matching matching) {
    return {kind, matching, list, &PAIR_TABLE<list>};
}

constexpr Rule RULES[] = {
    pairs<DISTANCE_PAIRS>(Kind::Distance3D, Matching::Components),
    pairs<DIRECTION_DISTANCE_PAIRS>(Kind::DirectionDistance3D, Matching::AnyOrder),
    {Kind::ParallelDistance3D, Matching::ByPosition, PARALLEL_DISTANCE_TRIPLES},
    pairs<INCIDENCE_PAIRS>(Kind::Incidence3D, Matching::Components),
    {Kind::Fixation3D, Matching::AnyOrder, FIXATION_SINGLES},
    pairs<ANGULAR_PAIRS>(Kind::Angle3D, Matching::AnyOrder),
    pairs<ANGULAR_PAIRS>(Kind::Parallelism3D, Matching::AnyOrder),
    pairs<ANGULAR_PAIRS>(Kind::Perpendicularity3D, Matching::AnyOrder),
    pairs<CONCENTRICITY_PAIRS>(Kind::Concentricity3D, Matching::AnyOrder),
    pairs<TANGENCY_PAIRS>(Kind::Tangency3D, Matching::Components),
    {Kind::Symmetry3D, Matching::AnyOrder, SYMMETRY_TRIPLES},
    {Kind::MidPoint3D, Matching::AnyOrder, MID_POINT_TRIPLES},
    {Kind::Radius3D, Matching::AnyOrder, RADIUS_SINGLES},
    {Kind::MajorRadius3D, Matching::AnyOrder, TWO_RADII_SINGLES},
    {Kind::MinorRadius3D, Matching::AnyOrder, TWO_RADII_SINGLES},
    pairs<EQUAL_RADIUS_PAIRS>(Kind::EqualRadius3D, Matching::RadiusComponents),
    pairs<MATE_PAIRS>(Kind::SliderMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::FastenedMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::CylinderMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::RevoluteMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::PlanarMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::PinSlotMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::ParallelMate3D, Matching::AnyOrder),
    pairs<MATE_PAIRS>(Kind::BallMate3D, Matching::AnyOrder),
    {Kind::HalfAngle3D, Matching::AnyOrder, HALF_ANGLE_SINGLES},
    pairs<SURFACE_NORMAL_PAIRS>(Kind::SurfaceNormal3D, Matching::AnyOrder),
    pairs<INSTANCE_PAIRS>(Kind::Instance3D, Matching::AnyOrder),
    {Kind::PatternValue3D, Matching::AnyOrder, PATTERN_VALUE_SINGLES},
    {Kind::CurveLength3D, Matching::ByPosition, CURVE_LENGTH_TRIPLES},
    pairs<EQUAL_DIRECTION_PAIRS>(Kind::EqualDirection3D, Matching::AnyOrderRepeatable),
    pairs<EQUAL_DERIVATIVE_PAIRS>(Kind::EqualFirstDerivative3D, Matching::AnyOrderRepeatable),
    pairs<EQUAL_DERIVATIVE_PAIRS>(Kind::EqualSecondDerivative3D, Matching::AnyOrderRepeatable),
    pairs<EQUAL_CURVATURE_PAIRS>(Kind::EqualCurvature3D, Matching::AnyOrderRepeatable),
    pairs<EQUAL_CURVATURE_PAIRS>(Kind::EqualCurvatureDerivative3D, Matching::AnyOrderRepeatable),
    {Kind::EqualDimensionValue3D, Matching::AnyOrder, EQUAL_DIMENSION_VALUE_SINGLES},
};
static_assert(std::size(RULES) == 35);
static_assert(std::ranges::is_sorted(RULES, {}, &Rule::kind));

constexpr FixationRule FIXATIONS[] = {
    {VrexFixation3DType::Complete3D, {CONNECTOR, ARRAY_PATTERN}, false},
    {VrexFixation3DType::Direction3D,
     {LINE, PLANE, RIGID_SET, CYLINDER, CIRCLE, CONE, ELLIPSE, TORUS, EVAL_CURVE}},
    {VrexFixation3DType::Location3D, {RIGID_SET, SPHERE, CIRCLE, ELLIPSE, TORUS, EVAL_CURVE}},
    {VrexFixation3DType::Radius3D, {CYLINDER, SPHERE, CIRCLE}},
    {VrexFixation3DType::MajorRadius3D, {ELLIPSE, TORUS}},
    {VrexFixation3DType::MinorRadius3D, {ELLIPSE, TORUS}},
    {VrexFixation3DType::EllipseDirection3D, {ELLIPSE}},
};

} // namespace

constexpr std::array<const Rule*, 42> nsPreValidation::RULE_OF_KIND = [] {
    std::array<const Rule*, 42> rules{};
    for (const Rule& rule : RULES) {
        rules[static_cast<std::size_t>(rule.kind)] = &rule;
    }
    return rules;
}();

constexpr KindSet nsPreValidation::PLANAR_ANGLE{LINE,    PLANE, CYLINDER,     CIRCLE,       CONE,
                                                ELLIPSE, TORUS, SPIN_SURFACE, SWEEP_SURFACE};

constexpr std::array<ComponentRow, 9> nsPreValidation::COMPONENTS{{
    {Component::UNKNOWN,
     "UNKNOWN",
     {POINT, LINE, PLANE, CIRCLE, CONE, CYLINDER, ELLIPSE, SPHERE, SPIN_SURFACE, TORUS, SPLINE, NURBS_SURFACE,
      SWEEP_SURFACE, EVAL_CURVE, EVAL_SURFACE}},
    {Component::CENTER, "CENTER", {SPHERE, CIRCLE, ELLIPSE, TORUS}, true, POINT},
    {Component::AXIS, "AXIS", {CIRCLE, CONE, CYLINDER, ELLIPSE, SPIN_SURFACE, TORUS}, true, LINE},
    {Component::PLANE, "PLANE", {TORUS, ELLIPSE, CIRCLE}, true, PLANE},
    {Component::SPINE, "SPINE", {TORUS}, true, CIRCLE},
    {Component::APEX, "APEX", {CONE}, true, POINT},
    {Component::MAJOR, "MAJOR", {TORUS, ELLIPSE}},
    {Component::MINOR, "MINOR", {TORUS, ELLIPSE}},
    {Component::EXTERIOR, "EXTERIOR", {}, false},
}};
static_assert(std::ranges::equal(nsPreValidation::COMPONENTS, VrexEnumTable<Component>::ROWS, {},
                                 &ComponentRow::component, &VrexEnumRow<Component>::value));

const FixationRule* nsPreValidation::findFixationRule(VrexFixation3DType kind) {
    const auto* const row = std::ranges::find(FIXATIONS, kind, &FixationRule::kind);
    return row != std::end(FIXATIONS) ? row : nullptr;
}
