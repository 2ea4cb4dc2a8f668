#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "data/VrexCastList.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "support/SamplesRelations.h"

/// Valid systems drawn at random, the same in each run: all kinds, parts that are shared, not listed or
/// listed behind what they are part of, nulls, snapshots, parents, and drags. No rings.
class RandomSystems {
public:
    enum class Style {
        Any,
        Writable, ///< Without nulls; all that is named is listed, in the order of its references.
    };
    explicit RandomSystems(Style style = Style::Any) : m_isWritable(style == Style::Writable) {}

    VrexImmutableSystem3D next() {
        m_variables.clear();
        m_geometries.clear();
        m_listed.clear();
        m_constraints.clear();
        m_equations.clear();
        repeat(3, [this] { variable(); });
        repeat(8, [this] { addGeometry(); });
        repeat(8, [this] { addConstraint(); });
        repeat(2, [this] { addEquation(); });
        setParents();
        if (m_isWritable) {
            return writable();
        }
        std::ranges::shuffle(m_listed, m_engine);
        auto references = m_geometries;
        references.resize(index(references.size() + 1));
        return {m_listed, m_variables, m_constraints, m_equations,
                number(), number(),    transform(),   std::move(references)};
    }

private:
    using Makers = std::vector<std::function<void()>>;

    std::size_t index(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_engine);
    }
    bool chance(double probability) { return std::bernoulli_distribution(probability)(m_engine); }
    double number() { return std::uniform_real_distribution<double>(-4.0, 4.0)(m_engine); }
    VrexVector3DT<double> vector() { return {number(), number(), number()}; }
    /// Whether something is left out, which may be only where nobody minds.
    bool lacks(double probability) { return !m_isWritable && chance(probability); }
    VrexImmutableSystem3D writable() {
        const auto drags = transform();
        auto references = m_geometries;
        references.resize(index(references.size() + 1));
        return {VrexImmutableSystem3D::OrderGeometriesAndConstraints(),
                m_geometries,
                m_variables,
                m_constraints,
                m_equations,
                number(),
                number(),
                drags,
                std::move(references)};
    }
    template <class Work>
    void repeat(std::size_t most, const Work& work) {
        for (std::size_t left = index(most + 1); left > 0; --left) {
            work();
        }
    }

    /// Gives an object what all objects have.
    template <class Object>
    std::shared_ptr<Object> dressed(std::shared_ptr<Object> object) {
        object->setID(index(1000));
        object->label() = std::string(index(40), 'x');
        object->setDirty(chance(0.5));
        if (chance(0.3)) {
            object->backup();
        }
        return object;
    }

    template <class Geometry>
    std::shared_ptr<Geometry> enter(const std::shared_ptr<Geometry>& geometry, bool mayBeUnlisted = true) {
        dressed(geometry)->setChangeStatus(VrexGeometryChangeStatus::Changed);
        m_geometries.push_back(geometry);
        if (!mayBeUnlisted || chance(0.7)) {
            m_listed.push_back(geometry);
        }
        return geometry;
    }
    /// An entity of a class, among those of the list, or null.
    template <class Geometry, class List>
    std::shared_ptr<Geometry> anyOf(const List& list) {
        const auto fitting = keepOnly<Geometry>(list);
        return fitting.empty() || lacks(0.05) ? nullptr : fitting[index(fitting.size())];
    }
    /// Whether what was drawn may be used.
    template <class... Objects>
    bool isDrawn(const Objects&... objects) {
        return !m_isWritable || ((objects != nullptr) && ...);
    }
    template <class Geometry>
    std::shared_ptr<Geometry> made() {
        if constexpr (std::is_abstract_v<Geometry>) {
            return makeSample<VrexPoint3D>();
        } else {
            return makeSample<Geometry>();
        }
    }
    /// One that constraints may bind, made if there is none.
    template <class Geometry>
    std::shared_ptr<Geometry> listed() {
        auto found = anyOf<Geometry>(m_listed);
        return found != nullptr || lacks(0.05) ? found : enter(made<Geometry>(), false);
    }
    template <class Geometry>
    std::shared_ptr<Geometry> part() {
        auto found = anyOf<Geometry>(m_geometries);
        return found != nullptr || lacks(0.1) ? found : enter(made<Geometry>());
    }
    std::shared_ptr<VrexGeometryVariable> variable() {
        if (m_variables.empty() || chance(0.5)) {
            m_variables.push_back(dressed(VrexGeometryVariable::create(number())));
        }
        return m_variables[index(m_variables.size())];
    }
    std::vector<VrexVariableDescriptor> descriptors() {
        std::vector<VrexVariableDescriptor> result{{variable(), 0, "a"}, {part<VrexCircle3D>(), 0, "b"}};
        if (chance(0.3)) {
            // No relation: equations are cloned before its mates are.
            const auto dimension = anyOf<VrexDimension3D>(m_constraints);
            if (isDrawn(dimension)) {
                result.emplace_back(dimension, 0, "c");
            }
        }
        return result;
    }
    std::vector<VrexSpline3D::ControlPoint> controlPoints() {
        std::vector<VrexSpline3D::ControlPoint> points;
        repeat(4, [&] { points.push_back({part<VrexPoint3D>(), number()}); });
        if (points.empty() && m_isWritable) {
            points.push_back({part<VrexPoint3D>(), number()});
        }
        return points;
    }

    void addGeometry() {
        const Makers makers{
            [this] { enter(VrexPoint3D::create(number(), number(), number())); },
            [this] { enter(VrexLine3D::create(vector(), vector())); },
            [this] { enter(VrexPlane3D::create(vector(), vector())); },
            [this] { enter(makeSample<VrexCircle3D>()); },
            [this] { enter(makeSample<VrexEllipse3D>()); },
            [this] { enter(makeSample<VrexCylinder3D>()); },
            [this] { enter(makeSample<VrexCone3D>()); },
            [this] { enter(makeSample<VrexSphere3D>()); },
            [this] { enter(makeSample<VrexTorus3D>()); },
            [this] { enter(makeSample<VrexEqualDimensionElement3D>()); },
            [this] { addSpline(); },
            [this] { addSurface(); },
            [this] { enter(VrexSpinSurface3D::create(part<VrexCircle3D>(), part<VrexLine3D>())); },
            [this] { enter(VrexSweepSurface3D::create(part<VrexEllipse3D>(), part<VrexLine3D>(), {})); },
            [this] { enter(VrexPattern3D::create(VrexPattern3DType::Linear3D, part<VrexLine3D>(), 2.0)); },
            [this] {
                enter(VrexArrayPattern3D::create({part<VrexPattern3D>(), part<VrexPattern3D>()}));
            },
            [this] { enter(VrexConnector3D::create(part<VrexRigidSet3D>())); },
            [this] { addSet(); },
            [this] {
                enter(VrexEvaluatedCurve3D::create(vector(), VrexQuaternionT<double>::ONE(), descriptors(),
                                                   "a * t", "b + t", "t"));
            },
            [this] {
                enter(VrexEvaluatedSurface3D::create(vector(), VrexQuaternionT<double>::ONE(), descriptors(),
                                                     "a * u", "b + v", "u * v"));
            },
        };
        makers[index(makers.size())]();
    }
    void addSpline() {
        auto spline = VrexSpline3D::create({2, chance(0.5), {0.0, 1.0, number()}, controlPoints()});
        spline->setInterpolatedPoints({part<VrexPoint3D>(), part<VrexPoint3D>()});
        enter(spline);
    }
    /// Knots for this many control points.
    std::vector<double> knotsFor(std::size_t count, int degree) {
        std::vector<double> knots(count + static_cast<std::size_t>(degree) + 1);
        std::ranges::generate(knots, [this] { return number(); });
        std::ranges::sort(knots);
        return knots;
    }
    void addWholeSurface() {
        const std::size_t rows = 1 + index(3);
        const std::size_t columns = 1 + index(3);
        std::vector<std::vector<VrexSpline3D::ControlPoint>> net(rows);
        for (auto& row : net) {
            for (std::size_t i = 0; i < columns; ++i) {
                row.push_back({part<VrexPoint3D>(), number()});
            }
        }
        const auto uDegree = static_cast<int>(index(3));
        const auto vDegree = static_cast<int>(index(3));
        enter(VrexNURBSSurface3D::create(
            {uDegree, vDegree, knotsFor(rows, uDegree), knotsFor(columns, vDegree), net}));
    }
    void addSurface() {
        if (m_isWritable) {
            addWholeSurface();
            return;
        }
        std::vector<std::vector<VrexSpline3D::ControlPoint>> net{controlPoints(), controlPoints()};
        enter(VrexNURBSSurface3D::create({1, 1, {0.0, number()}, {1.0}, net}));
    }
    void addSet() {
        Geometries members;
        repeat(5, [&] { members.push_back(part<VrexGeometry3D>()); });
        enter(VrexRigidSet3D::create(members));
    }

    template <class Constraint>
    void enterConstraint(const std::shared_ptr<Constraint>& constraint) {
        if (constraint != nullptr) {
            m_constraints.push_back(dressed(nsSamples::filled(constraint)));
        }
    }
    template <class Dimension>
    void enterDimension(const std::shared_ptr<Dimension>& dimension) {
        dimension->setRigid(chance(0.5));
        dimension->setLimits({number(), number()});
        if (chance(0.5)) {
            dimension->bindVariable(lacks(0.2) ? makeSample<VrexGeometryVariable>() : variable());
        }
        enterConstraint(dimension);
    }
    template <class Mate, class... Limits>
    void enterMate(const Limits&... limits) {
        enterConstraint(nsSamples::filledMate(
            Mate::create(listed<VrexConnector3D>(), listed<VrexConnector3D>(), limits...)));
    }
    void addMateRelation() {
        const auto first = anyOf<VrexMate3D>(m_constraints);
        const auto second = anyOf<VrexMate3D>(m_constraints);
        if (isDrawn(first, second)) {
            enterConstraint(VrexMateRelation3D::create({first, second}, {0, index(4)}, number()));
        }
    }
    void addEqualDimension() {
        const auto first = anyOf<VrexDimension3D>(m_constraints);
        const auto second = anyOf<VrexDimension3D>(m_constraints);
        if (isDrawn(first, second)) {
            enterConstraint(
                VrexEqualDimension3D::create({first, second}, listed<VrexEqualDimensionElement3D>()));
        }
    }
    void addEqualParameter() {
        const auto first = anyOf<VrexConstraint3D>(m_constraints);
        const auto second = anyOf<VrexConstraint3D>(m_constraints);
        if (isDrawn(first, second)) {
            enterConstraint(VrexEqualParameter3D::create(listed<VrexGeometry3D>(), first, second));
        }
    }
    void addConstraint() {
        using enum VrexGeometryComponentType;
        const VrexDimensionLimits limits{number(), number()};
        const auto any = [this] { return listed<VrexGeometry3D>(); };
        const auto point = [this] { return listed<VrexPoint3D>(); };
        const Makers makers{
            [&] { enterDimension(VrexDistance3D::create(any(), any(), number(), UNKNOWN, AXIS)); },
            [&] { enterDimension(VrexDirectionDistance3D::create(point(), point(), vector(), number())); },
            [&] {
                enterDimension(
                    VrexParallelDistance3D::create(point(), point(), listed<VrexLine3D>(), number()));
            },
            [&] { enterDimension(VrexAngle3D::create(any(), any(), number())); },
            [&] { enterDimension(VrexPlanarAngle3D::create(any(), any(), any(), number())); },
            [&] { enterDimension(VrexRadius3D::create(any(), number(), VrexRadius3DType::MajorRadius3D)); },
            [&] { enterDimension(VrexHalfAngle3D::create(listed<VrexCone3D>(), number())); },
            [&] { enterDimension(VrexPatternValue3D::create(listed<VrexPattern3D>(), number())); },
            [&] { enterDimension(VrexCurveLength3D::create(point(), point(), any(), number())); },
            [&] {
                enterDimension(VrexEqualDimensionValue3D::create(listed<VrexEqualDimensionElement3D>(), 1.0));
            },
            [&] {
                enterConstraint(
                    VrexIncidence3D::create(any(), any(), VrexIncidence3DType::ToSpine, UNKNOWN, CENTER));
            },
            [&] { enterConstraint(VrexFixation3D::create(any(), VrexFixation3DType::Location3D)); },
            [&] { enterConstraint(VrexParallelism3D::create(any(), any())); },
            [&] { enterConstraint(VrexPerpendicularity3D::create(any(), any())); },
            [&] { enterConstraint(VrexConcentricity3D::create(any(), any())); },
            [&] { enterConstraint(VrexIncidenceToCenter3D::create(any(), any())); },
            [&] { enterConstraint(VrexTangency3D::create(any(), any(), AXIS, UNKNOWN)); },
            [&] { enterConstraint(VrexSymmetry3D::create(any(), any(), listed<VrexPlane3D>())); },
            [&] { enterConstraint(VrexMidPoint3D::create(any(), any(), point())); },
            [&] { enterConstraint(VrexSurfaceNormal3D::create(listed<VrexTorus3D>(), any())); },
            [&] {
                enterConstraint(VrexEqualRadius3D::create(any(), VrexRadius3DType::Radius3D, any(),
                                                          VrexRadius3DType::MinorRadius3D, UNKNOWN, MINOR));
            },
            [&] {
                enterConstraint(VrexEqualCurveProperty3D::create(
                    any(), any(), VrexCurveProperty3DType::EqualSecondDerivative3D));
            },
            [&] { enterConstraint(VrexVariableFixation3D::create(variable())); },
            [&] {
                enterConstraint(VrexMateDimensionInterval3D::create(
                    variable(), limits, index(3), VrexMateDimensionInterval3DType::LinearDimension3D));
            },
            [&] { enterMate<VrexFastenedMate3D>(); },
            [&] { enterMate<VrexSliderMate3D>(limits); },
            [&] { enterMate<VrexRevoluteMate3D>(limits); },
            [&] { enterMate<VrexBallMate3D>(limits); },
            [&] { enterMate<VrexCylinderMate3D>(limits, limits); },
            [&] { enterMate<VrexPinSlotMate3D>(limits, limits); },
            [&] { enterMate<VrexPlanarMate3D>(limits, limits, limits); },
            [&] { enterMate<VrexParallelMate3D>(limits, limits, limits, limits); },
            [&] { addMateRelation(); },
            [&] { addEqualDimension(); },
            [&] { addEqualParameter(); },
            [&] {
                enterConstraint(
                    VrexInstance3D::create(point(), point(), listed<VrexArrayPattern3D>(), {1, -2}));
            },
        };
        makers[index(makers.size())]();
    }

    void addEquation() {
        if (chance(0.5)) {
            m_equations.push_back(
                dressed(VrexCallbackEquation::create(descriptors(), VrexEquationConditionType::lessThanZero,
                                                     VrexLinearEquationCallback({1.0}, 2.0))));
        } else if (auto equation = VrexExpressionEquation::create(
                       descriptors(), VrexEquationConditionType::equalToZero, "a * b - 1")) {
            m_equations.push_back(dressed(equation));
        }
    }
    void setParents() {
        for (const auto& constraint : m_constraints) {
            if (chance(0.2)) {
                constraint->setParent(m_constraints[index(m_constraints.size())]);
            }
        }
    }
    VrexTransform3D transform() {
        VrexTransform3D result;
        if (chance(0.3)) {
            result.applyTranslation(part<VrexPoint3D>(), vector());
            result.applyVariableTransform(variable(), number());
        }
        return result;
    }

    using Geometries = std::vector<std::shared_ptr<VrexGeometry3D>>;

    bool m_isWritable;
    std::mt19937 m_engine{82'091};
    std::vector<std::shared_ptr<VrexGeometryVariable>> m_variables;
    Geometries m_geometries; ///< All, in the order in which they were made.
    Geometries m_listed;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
    std::vector<std::shared_ptr<VrexBaseEquation>> m_equations;
};
