#include "support/GoldenSystems.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/WrittenDocuments.h"

namespace {

template <class Extend>
std::string textOf(const VrexImmutableSystem3D& system, Extend extend) {
    VrexSystem3DSerializer serializer({});
    serializer.serialize(system);
    extend(serializer);
    keepWritten(std::string(serializer.jsonStream()));
    return std::string(serializer.jsonStream());
}

template <VrexImmutableSystem3D (*Make)()>
std::string textOf() {
    return textOf(Make(), [](VrexSystem3DSerializer&) {});
}

} // namespace

std::vector<std::pair<std::string, std::string (*)()>> GoldenSystems::documents() {
    return {{"geometries", textOf<geometries>},
            {"constraints", textOf<constraints>},
            {"equations", textOf<equations>},
            {"drags", [] { return textOf(drags(), extendDrags); }}};
}

std::string GoldenSystems::path(const std::string& name) {
    return std::string(VREX_GOLDEN_FOLDER).append("/json/").append(name).append(".json");
}

std::string GoldenSystems::text(const std::string& name) {
    std::ifstream file(path(name), std::ios::binary);
    if (!file) {
        throw std::runtime_error("No golden document " + path(name));
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

void GoldenSystems::addSimpleGeometries() {
    const VrexVector3DT<double> up{0.0, 0.0, 1.0};
    const auto point = geometry(1, VrexPoint3D::create(1.0, -2.0, 3.5));
    point->label() = "the \"first\" point";
    point->status() = VrexGeometryStatus::Welldefined;
    point->setChangeStatus(VrexGeometryChangeStatus::Fixed);
    geometry(2, VrexLine3D::create({0.5, 0.0, -1.0}, up));
    const auto plane = geometry(3, VrexPlane3D::create({4.0, 5.0, 6.0}, up));
    plane->status() = VrexGeometryStatus::Underdefined;
    plane->setChangeStatus(VrexGeometryChangeStatus::Changed);
    const auto circle = geometry(4, VrexCircle3D::create({1.0, -2.0, 3.0}, up, 1.5));
    circle->status() = VrexGeometryStatus::Overdefined;
    circle->setChangeStatus(VrexGeometryChangeStatus::Unknown);
    circle->setAllowRadiusSignChange(true);
    circle->start() = 0.25;
    circle->end() = 1.75;
    const auto ellipse = geometry(5, VrexEllipse3D::create({-1.0, 2.0, 0.5}, {1.0, 0.0, 0.0}, up, 4.0, 2.5));
    ellipse->status() = VrexGeometryStatus::NotSolved;
    ellipse->setAllowRadiusSignChange(false);
    ellipse->start() = -0.5;
    ellipse->end() = 2.0;
    const auto cylinder = geometry(6, VrexCylinder3D::create({3.0, 1.0, -2.0}, up, 0.75));
    cylinder->setAllowRadiusSignChange(true);
    trim(*cylinder);
    trim(*geometry(7, VrexCone3D::create({0.5, -1.0, 2.0}, up, 0.625)));
    geometry(8, VrexSphere3D::create({7.0, 8.0, 9.0}, -0.75))->setAllowRadiusSignChange(false);
    const auto torus = geometry(9, VrexTorus3D::create({1.5, 2.0, -1.0}, up, 3.0, 1.25));
    torus->setAllowRadiusSignChange(true);
    trim(*torus);
}

void GoldenSystems::addSets() {
    const auto set = geometry(10, VrexRigidSet3D::create({m_geometries[0], m_geometries[1]}));
    set->setOrigin({1.0, -1.0, 2.0});
    const auto connector = geometry(11, VrexConnector3D::create(set));
    connector->setTransformation({{3.0, 2.0, -1.0}, 0.0, 0.0, 0.0, 1.0});
}

void GoldenSystems::addSplines() {
    const auto first = at<VrexPoint3D>(0);
    const auto a = geometry(12, VrexPoint3D::create(0.0, 0.0, 0.0));
    const auto b = geometry(13, VrexPoint3D::create(1.0, 0.0, 0.25));
    const auto c = geometry(14, VrexPoint3D::create(0.0, 1.0, -0.25));
    trim(*geometry(15, VrexNURBSSurface3D::create({1,
                                                   1,
                                                   {0.0, 0.0, 1.0, 1.0},
                                                   {-1.0, -1.0, 2.0, 2.0},
                                                   {{{first, 1.0}, {a, 0.5}}, {{b, 2.0}, {c, 1.25}}}})));
    const auto spline = geometry(
        16, VrexSpline3D::create(
                {2, true, {0.0, 1.0, 2.0, 3.5, 4.5, 5.0, 6.0, 7.5}, {{a, 1.5}, {b, 0.5}, {c, 2.0}}}));
    spline->setInterpolatedPoints({first, b});
    spline->setInterpolatedParameters({0.25, 0.75});
    spline->start() = 2.25;
    spline->end() = 4.75;
}

void GoldenSystems::addSurfaces() {
    const auto line = at<VrexLine3D>(1);
    trim(*geometry(17, VrexSpinSurface3D::create(at<VrexCircle3D>(3), line)));
    trim(*geometry(18, VrexSweepSurface3D::create(at<VrexEllipse3D>(4), line, {})));
}

void GoldenSystems::addEvaluated() {
    const auto radius = variable(100, 2.5);
    radius->label() = "r";
    radius->status() = VrexGeometryStatus::Welldefined;
    radius->setChangeStatus(VrexGeometryChangeStatus::Fixed);
    variable(101, -1e-07);
    const auto halfTurn =
        VrexQuaternionT<double>::makeFromScalarAndVector(0.0, VrexVector3DT<double>(0.0, 0.0, 1.0));
    const auto curve =
        geometry(19, VrexEvaluatedCurve3D::create({1.0, -2.0, 0.5}, halfTurn,
                                                  {{radius, 0, "r"}, {m_geometries[3], 1, "pitch"}},
                                                  "r * cos(t)", "r * sin(t)", "pitch * t"));
    curve->start() = -1.0;
    curve->end() = 4.0;
    trim(*geometry(20, VrexEvaluatedSurface3D::create({1.0, -2.0, 0.5}, VrexQuaternionT<double>::ONE(),
                                                      {{radius, 0, "r"}}, "r * cos(u) * cos(v)",
                                                      "r * sin(u) * cos(v)", "2 * r * sin(v)")));
}

void GoldenSystems::addPatterns() {
    const auto line = at<VrexLine3D>(1);
    const auto linear = geometry(21, VrexPattern3D::create(VrexPattern3DType::Linear3D, line, 3.0));
    const auto circular = geometry(22, VrexPattern3D::create(VrexPattern3DType::Circular3D, line, 0.25));
    geometry(23, VrexArrayPattern3D::create({linear, circular}));
    geometry(24, VrexEqualDimensionElement3D::create(1.5));
}

void GoldenSystems::addBound() {
    const VrexVector3DT<double> up{0.0, 0.0, 1.0};
    geometry(1, VrexPoint3D::create(1.0, -2.0, 3.5));
    geometry(2, VrexPoint3D::create(0.0, 0.5, 0.0));
    const auto line = geometry(3, VrexLine3D::create({0.5, 0.0, -1.0}, up));
    geometry(4, VrexPlane3D::create({4.0, 5.0, 6.0}, up));
    geometry(5, VrexCircle3D::create({1.0, -2.0, 3.0}, up, 1.5));
    geometry(6, VrexEllipse3D::create({-1.0, 2.0, 0.5}, {1.0, 0.0, 0.0}, up, 4.0, 2.5));
    geometry(7, VrexCylinder3D::create({3.0, 1.0, -2.0}, up, 0.75));
    geometry(8, VrexCone3D::create({0.5, -1.0, 2.0}, up, 0.625));
    geometry(9, VrexSphere3D::create({7.0, 8.0, 9.0}, 0.75));
    geometry(10, VrexTorus3D::create({1.5, 2.0, -1.0}, up, 3.0, 1.25));
    geometry(11, VrexConnector3D::create(nullptr));
    const auto moved = geometry(12, VrexConnector3D::create(nullptr));
    moved->setTransformation({{1.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE()});
    const auto pattern = geometry(13, VrexPattern3D::create(VrexPattern3DType::Linear3D, line, 3.0));
    geometry(14, VrexArrayPattern3D::create({pattern}));
    geometry(15, VrexEqualDimensionElement3D::create(1.5));
    variable(51, 4.5);
    variable(52, 0.5);
}

void GoldenSystems::addDimensions() {
    const auto point1 = at<VrexPoint3D>(0);
    const auto point2 = at<VrexPoint3D>(1);
    const auto line = at<VrexLine3D>(2);
    const auto plane = at<VrexPlane3D>(3);
    const auto ellipse = at<VrexEllipse3D>(5);

    const auto distance = nsSamples::filled(
        VrexDistance3D::create(plane, at<VrexTorus3D>(9), -1.0, WHOLE, VrexGeometryComponentType::CENTER));
    constraint(101, distance);
    distance->label() = "gap";
    distance->status() = VrexConstraintStatus::Overdefined;
    distance->setRigid(true);
    distance->setLimits({-1.5, 9.5});
    distance->bindVariable(m_variables[0]);
    distance->fixHelpParameter1(true);

    const auto along =
        constraint(102, VrexDirectionDistance3D::create(point1, point2, {1.0, -2.0, 2.0}, 3.0));
    along->status() = VrexConstraintStatus::BetweenFixed;
    along->satisfiedStatus() = VrexConstraintSatisfiedStatus::NotSatisfied;
    along->solveMethodStatus() = VrexSolveMethodStatus::Numerical;
    along->alignment() = VrexConstraintAlignment::Unknown;
    along->orientation() = VrexConstraintOrientation::Any;
    along->setLimits({0.5, {}});

    const auto parallel = constraint(103, VrexParallelDistance3D::create(point1, point2, line, 2.0));
    parallel->status() = VrexConstraintStatus::BetweenSetMembers;
    parallel->alignment() = VrexConstraintAlignment::Negative;
    parallel->orientation() = VrexConstraintOrientation::Unknown;
    parallel->setLimits({{}, 2.5});

    const auto angle = constraint(104, VrexAngle3D::create(line, plane, 0.75));
    angle->status() = VrexConstraintStatus::NotSolved;
    angle->alignment() = VrexConstraintAlignment::Any;
    angle->orientation() = VrexConstraintOrientation::Positive;

    constraint(105, VrexPlanarAngle3D::create(line, line, plane, 1.25))->status() =
        VrexConstraintStatus::Regular;
    constraint(106, VrexRadius3D::create(at<VrexCircle3D>(4), 1.5, VrexRadius3DType::Radius3D));
    constraint(107, VrexRadius3D::create(ellipse, 4.0, VrexRadius3DType::MajorRadius3D));
    constraint(108, VrexRadius3D::create(ellipse, 2.5, VrexRadius3DType::MinorRadius3D));
    constraint(109, VrexCurveLength3D::create(point1, point2, ellipse, 6.5))->setWindingAngle(7.0);
    constraint(110, VrexHalfAngle3D::create(at<VrexCone3D>(7), 0.5));
    constraint(111, VrexPatternValue3D::create(at<VrexPattern3D>(12), 3.0));
    constraint(112, VrexEqualDimensionValue3D::create(at<VrexEqualDimensionElement3D>(14), 5.5));
}

void GoldenSystems::addRelations() {
    using enum VrexGeometryComponentType;
    using enum VrexCurveProperty3DType;
    const auto point1 = at<VrexPoint3D>(0);
    const auto point2 = at<VrexPoint3D>(1);
    const auto line = at<VrexLine3D>(2);
    const auto plane = at<VrexPlane3D>(3);
    const auto ellipse = at<VrexEllipse3D>(5);
    const auto sphere = at<VrexSphere3D>(8);
    const auto torus = at<VrexTorus3D>(9);

    const auto incidence =
        constraint(113, VrexIncidence3D::create(ellipse, sphere, VrexIncidence3DType::ToSpine, AXIS, CENTER));
    incidence->fixHelpParameter1(true);
    incidence->fixHelpParameter2(true);
    constraint(114, VrexFixation3D::create(at<VrexCone3D>(7), VrexFixation3DType::Aperture3D));
    constraint(115, VrexParallelism3D::create(line, plane));
    constraint(116, VrexPerpendicularity3D::create(line, at<VrexCylinder3D>(6)));
    constraint(117, VrexConcentricity3D::create(point1, torus));
    constraint(118, VrexIncidenceToCenter3D::create(point1, sphere));
    const auto tangency = constraint(119, VrexTangency3D::create(ellipse, sphere, PLANE, EXTERIOR));
    tangency->setHelpPoint2({0.5, 0.0, -0.5});
    tangency->setHelpParam1({0.125, 0.0});
    constraint(120, VrexSurfaceNormal3D::create(at<VrexCylinder3D>(6), line));
    std::uint64_t id = 121;
    for (const auto property : {EqualDirection3D, EqualFirstDerivative3D, EqualSecondDerivative3D,
                                EqualCurvature3D, EqualCurvatureDerivative3D}) {
        constraint(id++, VrexEqualCurveProperty3D::create(ellipse, line, property));
    }
    constraint(126, VrexSymmetry3D::create(point1, point2, plane));
    constraint(127, VrexMidPoint3D::create(plane, plane, point1));
    constraint(128, VrexEqualRadius3D::create(torus, VrexRadius3DType::MinorRadius3D, ellipse,
                                              VrexRadius3DType::MajorRadius3D, MINOR, MAJOR));
    constraint(129, VrexInstance3D::create(point1, point2, at<VrexArrayPattern3D>(13), {-3}));
    constraint(130, VrexVariableFixation3D::create(m_variables[0]));
}

void GoldenSystems::addMates() {
    const auto left = at<VrexConnector3D>(10);
    const auto right = at<VrexConnector3D>(11);
    const VrexDimensionLimits x{-1.0, 2.0};
    const VrexDimensionLimits y{-3.0, 4.0};
    const VrexDimensionLimits z{-5.0, 6.0};
    const VrexDimensionLimits angle{-0.5, 1.5};
    /// Values rise from 0.5, and all are held.
    const auto mate = [this](std::uint64_t id, const auto& made) {
        constraint(id, made);
        for (std::uint64_t i = 0; i < made->getDimensionSize(); ++i) {
            made->getDimension(i).value = 0.5 + static_cast<double>(i);
            made->getDimension(i).setFixed(true);
        }
        return made;
    };
    mate(131, VrexFastenedMate3D::create(left, right));
    mate(132, VrexSliderMate3D::create(left, right, x));
    mate(133, VrexRevoluteMate3D::create(left, right, angle));
    mate(134, VrexBallMate3D::create(left, right, {0.25, 1.5}))->getAngle().setFixed(false);
    mate(135, VrexCylinderMate3D::create(left, right, x, angle));
    mate(136, VrexPinSlotMate3D::create(left, right, {-1.0, {}}, {{}, 1.5}))->getAngle().setFixed(false);
    mate(137, VrexPlanarMate3D::create(left, right, x, y, angle));
    mate(138, VrexParallelMate3D::create(left, right, x, y, z, angle));
    constraint(139, VrexMateDimensionInterval3D::create(m_variables[1], {-2.0, 3.0}, 1,
                                                        VrexMateDimensionInterval3DType::LinearDimension3D));
}

void GoldenSystems::addCompounds() {
    constraint(140, VrexEqualDimension3D::create(
                        {constraintAt<VrexDimension3D>(0), constraintAt<VrexDimension3D>(2)},
                        at<VrexEqualDimensionElement3D>(14)));
    constraint(141, VrexEqualParameter3D::create(m_constraints[8], {8, 9}, m_constraints[12], {6, 7}));
    constraint(142, VrexMateRelation3D::create({constraintAt<VrexMate3D>(34), constraintAt<VrexMate3D>(31)},
                                               {1, 0}, -2.5));
}
