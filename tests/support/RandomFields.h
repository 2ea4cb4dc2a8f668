#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "data/VrexEnumTable.h"
#include "data/VrexVisitor3D.h"
#include "support/SamplesRelations.h"

/// Draws the values of a system's objects at random, the same in each run: identifiers, which are unique,
/// labels, texts of enumerations, numbers, and whatever may be set or not.
class RandomFields : public VrexVisitor3D {
public:
    enum class Directions {
        Any,
        Exact, ///< Along Z, and no rotations: what comes out is to the bit what was put in.
    };
    explicit RandomFields(Directions directions) : m_areExact(directions == Directions::Exact) {}

    /// All that neither snapshots nor what a solver keeps are left of.
    void visitBaseObject(VrexBaseObject& object) override {
        static const char* const LABELS[] = {"", "label", "\"quoted\" \\ and\n\tblank",
                                             "\xc3\xa4\xe2\x82\xac", "longer than what lies in a short text"};
        object.setID(m_nextId += 1 + index(3));
        object.label() = LABELS[index(std::size(LABELS))];
        object.setDirty(true);
        object.clearBackup();
    }

    void visitBaseGeometry(VrexBaseGeometry& geometry) override {
        visitBaseObject(geometry);
        geometry.status() = any<VrexGeometryStatus>();
        geometry.setChangeStatus(any<VrexGeometryChangeStatus>());
    }
    void visitGeometryVariable(VrexGeometryVariable& variable) override {
        visitBaseGeometry(variable);
        variable.setValue(number());
    }
    void visitPoint3D(VrexPoint3D& point) override {
        visitBaseGeometry(point);
        point.setPosition(vector());
    }
    void visitLine3D(VrexLine3D& line) override {
        visitBaseGeometry(line);
        line.setOrigin(vector());
        line.setDirection(direction());
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        visitBaseGeometry(plane);
        plane.setOrigin(vector());
        plane.setNormal(direction());
    }
    void visitParametricCurve3D(VrexParametricCurve3D& curve) override {
        visitBaseGeometry(curve);
        curve.start() = optional();
        curve.end() = optional();
    }
    void visitParametricSurface3D(VrexParametricSurface3D& surface) override {
        visitBaseGeometry(surface);
        surface.startU() = optional();
        surface.endU() = optional();
        surface.startV() = optional();
        surface.endV() = optional();
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        visitParametricCurve3D(circle);
        circle.setCenter(vector());
        circle.setNormal(direction());
        circle.setRadius(number());
        drawSignChange(circle);
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        visitParametricCurve3D(ellipse);
        ellipse.setCenter(vector());
        ellipse.setRotation(rotation());
        ellipse.setMajorRadius(number());
        ellipse.setMinorRadius(number());
        drawSignChange(ellipse);
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        visitParametricSurface3D(cylinder);
        cylinder.setOrigin(vector());
        cylinder.setDirection(direction());
        cylinder.setRadius(number());
        drawSignChange(cylinder);
    }
    void visitCone3D(VrexCone3D& cone) override {
        visitParametricSurface3D(cone);
        cone.setOrigin(vector());
        cone.setDirection(direction());
        cone.setAperture(plain(-3.0, 3.0));
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        visitBaseGeometry(sphere);
        sphere.setCenter(vector());
        sphere.setRadius(number());
        drawSignChange(sphere);
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        visitParametricSurface3D(torus);
        torus.setCenter(vector());
        torus.setNormal(direction());
        torus.setMajorRadius(number());
        torus.setMinorRadius(number());
        drawSignChange(torus);
    }
    void visitRigidSet3D(VrexRigidSet3D& set) override {
        visitBaseGeometry(set);
        set.setOrigin(vector());
        set.setRotation(rotation());
    }
    void visitConnector3D(VrexConnector3D& connector) override {
        visitBaseGeometry(connector);
        connector.setTransformation({vector(), rotation()});
    }
    void visitSpline3D(VrexSpline3D& spline) override {
        visitParametricCurve3D(spline);
        spline.knots() = numbers();
        const std::size_t count = spline.getInterpolatedPoints().size();
        const bool isClosed = spline.periodic() && chance();
        spline.setInterpolatedParameters(
            chance() ? std::vector<double>() : std::vector<double>(count + (isClosed ? 1 : 0), number()));
    }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override {
        visitParametricCurve3D(curve);
        drawFrame(curve);
    }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override {
        visitParametricSurface3D(surface);
        drawFrame(surface);
    }
    void visitPattern3D(VrexPattern3D& pattern) override {
        visitBaseGeometry(pattern);
        if (chance()) { // Never back: an array goes on naming a pattern that is circular no more.
            pattern.setPatternType(VrexPattern3DType::Circular3D);
        }
        pattern.setValue(number());
    }
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override {
        visitBaseGeometry(pattern);
        pattern.updateCircularPatternIdx();
    }
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override {
        visitBaseGeometry(element);
        element.setValue(number());
    }

    void visitBaseConstraint(VrexBaseConstraint& constraint) override {
        visitBaseObject(constraint);
        do {
            constraint.status() = any<VrexConstraintStatus>();
        } while (constraint.status() == VrexConstraintStatus::Regular); // It has a test of its own.
        constraint.satisfiedStatus() = any<VrexConstraintSatisfiedStatus>();
        constraint.solveMethodStatus() = any<VrexSolveMethodStatus>();
    }
    void visitConstraint3D(VrexConstraint3D& constraint) override {
        visitBaseConstraint(constraint);
        constraint.setParent(nullptr);
        constraint.biasData().reset();
        constraint.alignment() = any<VrexConstraintAlignment>();
        constraint.orientation() = any<VrexConstraintOrientation>();
        constraint.helpPoint1() = chance() ? std::optional(vector()) : std::nullopt;
        constraint.helpPoint2() = chance() ? std::optional(vector()) : std::nullopt;
        constraint.helpParam1() = parameter();
        constraint.helpParam2() = parameter();
        constraint.fixHelpParameter1(chance());
        constraint.fixHelpParameter2(chance());
        for (const std::uint32_t place : {1U, 2U}) {
            if (place <= constraint.getGeometries3DCount()) {
                constraint.setGeomComponentType(place, any<VrexGeometryComponentType>());
            }
        }
    }
    void visitDimension3D(VrexDimension3D& dimension) override {
        visitConstraint3D(dimension);
        dimension.setValue(number());
        dimension.setRigid(chance());
        dimension.setLimits({optional(), optional()});
    }
    void visitDirectionDistance3D(VrexDirectionDistance3D& distance) override {
        visitDimension3D(distance);
        distance.setDirectionVector(vector());
    }
    void visitCurveLength3D(VrexCurveLength3D& length) override {
        visitDimension3D(length);
        length.setWindingAngle(optional());
    }
    void visitIncidence3D(VrexIncidence3D& incidence) override {
        visitConstraint3D(incidence);
        incidence.setIncidenceType(any<VrexIncidence3DType>());
    }
    void visitFixation3D(VrexFixation3D& fixation) override {
        visitConstraint3D(fixation);
        fixation.setFixationType(any<VrexFixation3DType>());
    }
    void visitEqualRadius3D(VrexEqualRadius3D& equality) override {
        visitConstraint3D(equality);
        equality.setRadiusType(0, any<VrexRadius3DType>());
        equality.setRadiusType(1, any<VrexRadius3DType>());
    }
    void visitEqualParameter3D(VrexEqualParameter3D& equality) override {
        visitConstraint3D(equality);
        equality.getParameterIndices() = {
            {{static_cast<int>(index(20)) - 9, 9}, {-2147483647 - 1, 2147483647}}};
    }
    void visitInstance3D(VrexInstance3D& instance) override {
        visitConstraint3D(instance);
        instance.setCoefficients(std::vector<std::int32_t>(instance.getCoefficients().size(),
                                                           static_cast<std::int32_t>(index(9)) - 4));
    }
    void visitMate3D(VrexMate3D& mate) override {
        visitConstraint3D(mate);
        for (std::uint64_t i = 0; i < mate.getDimensionSize(); ++i) {
            mate.getDimension(i).value = number();
            mate.getDimension(i).limits = {optional(), optional()};
            mate.getDimension(i).setFixed(chance());
        }
    }
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) override {
        visitConstraint3D(interval);
        interval.limit() = {optional(), optional()};
        interval.setMateDimensionType(any<VrexMateDimensionInterval3DType>());
    }
    void visitMateRelation3D(VrexMateRelation3D& relation) override {
        visitConstraint3D(relation);
        relation.setRatio(number());
        relation.setMateParameterIndexs({index(5), 18446744073709551615U});
    }
    /// Its descriptors have the names that are generated.
    void visitCallbackEquation(VrexCallbackEquation& equation) override {
        visitBaseEquation(equation);
        std::vector<VrexVariableDescriptor> descriptors;
        for (const VrexVariableDescriptor& descriptor : equation.descriptors()) {
            descriptors.emplace_back(descriptor.object(), descriptor.index(), nullptr);
        }
        equation.setDescriptors(std::move(descriptors));
    }

private:
    std::size_t index(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_engine);
    }
    bool chance() { return std::bernoulli_distribution(0.5)(m_engine); }
    double plain(double from, double to) { return std::uniform_real_distribution(from, to)(m_engine); }
    /// Now and then one of those that are easily lost.
    double number() {
        static constexpr double SPECIAL[] = {0.0,
                                             -0.0,
                                             1.0,
                                             -7.0,
                                             0.1,
                                             1e300,
                                             1.7976931348623157e308,
                                             5e-324,
                                             -1e-300,
                                             1e21,
                                             9007199254740993.0};
        return index(5) == 0 ? SPECIAL[index(std::size(SPECIAL))] : plain(-4.0, 4.0);
    }
    std::optional<double> optional() { return chance() ? std::optional(number()) : std::nullopt; }
    std::vector<double> numbers() {
        std::vector<double> list(index(4));
        for (double& element : list) {
            element = number();
        }
        return list;
    }
    VrexVector3DT<double> vector() { return {number(), number(), number()}; }
    VrexVector3DT<double> direction() {
        using Vector = VrexVector3DT<double>;
        const Vector drawn(plain(-1.0, 1.0), plain(-1.0, 1.0), plain(-1.0, 1.0));
        return m_areExact ? Vector(0.0, 0.0, 1.0) : drawn;
    }
    /// Away from no turn and from a full one, where the angle says little about the rotation.
    VrexQuaternionT<double> rotation() {
        using Quaternion = VrexQuaternionT<double>;
        const auto drawn = Quaternion::makeFromAngleAndAxis(plain(0.2, 6.0), direction(), 1e-6);
        return m_areExact ? Quaternion::ONE() : drawn;
    }
    std::optional<VrexVector2DT<double>> parameter() {
        return chance() ? std::optional(VrexVector2DT<double>(number(), number())) : std::nullopt;
    }
    template <class E>
    E any() {
        return VrexEnumTable<E>::ROWS[index(std::size(VrexEnumTable<E>::ROWS))].value;
    }
    template <class Round>
    void drawSignChange(Round& round) {
        round.setAllowRadiusSignChange(chance() ? std::optional(chance()) : std::nullopt);
    }
    template <class Evaluated>
    void drawFrame(Evaluated& evaluated) {
        evaluated.setOrigin(vector());
        evaluated.setRotation(rotation());
    }

    bool m_areExact;
    std::uint64_t m_nextId = 0;
    std::mt19937 m_engine{51'217};
};
