#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexVisitor3D.h"
#include "support/SamplesRelations.h"

/// All that is reachable from some objects, walked breadth first: the addresses, and every field as text, in
/// which objects are numbers in the order in which they are met. Two graphs of the same fields and the same
/// links have the same text, numbers bit by bit.
///
/// Left out is what tells a clone from its source: snapshots and the mark of changed geometries.
class ObjectGraph : public VrexVisitor3D {
public:
    template <class... Lists>
    explicit ObjectGraph(const Lists&... lists) {
        (putAll(lists), ...);
        for (std::size_t i = 0; i < m_objects.size(); ++i) {
            const auto object = m_objects[i];
            m_text.append("\n").append(std::to_string(i)).append(": ");
            object->accept(*this);
        }
    }

    const std::string& text() const { return m_text; }
    /// Of the objects, and of the variables and trees of their expressions.
    const std::set<const void*>& addresses() const { return m_addresses; }
    const std::vector<std::shared_ptr<VrexBaseObject>>& objects() const { return m_objects; }

    /// How many addresses both have.
    std::size_t countShared(const ObjectGraph& other) const {
        std::size_t count = 0;
        for (const void* address : m_addresses) {
            count += other.m_addresses.count(address);
        }
        return count;
    }

    void visitBaseObject(VrexBaseObject& object) override {
        const VrexBaseObject& reader = object;
        put(typeid(reader).name(), object.baseType(), object.getID(), object.label(), object.isDirty());
        const std::uint32_t size = (reader.*(&Reader::getParameterSize))();
        for (std::uint32_t i = 0; i < size; ++i) {
            put((reader.*(&Reader::getParameter))(i));
        }
    }

    void visitBaseGeometry(VrexBaseGeometry& geometry) override {
        visitBaseObject(geometry);
        put(geometry.status(), geometry.getChangeStatus());
    }
    void visitGeometry3D(VrexGeometry3D& geometry) override {
        visitBaseGeometry(geometry);
        put(geometry.type());
        putBias(geometry.biasData());
        putAll(geometry.getGeometries());
    }
    void visitParametricCurve3D(VrexParametricCurve3D& curve) override {
        visitGeometry3D(curve);
        put(curve.start(), curve.end());
    }
    void visitParametricSurface3D(VrexParametricSurface3D& surface) override {
        visitGeometry3D(surface);
        put(surface.startU(), surface.endU(), surface.startV(), surface.endV());
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        visitGeometry3D(plane);
        put(plane.getOrigin());
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        visitGeometry3D(sphere);
        put(sphere.getAllowRadiusSignChange());
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        visitParametricSurface3D(cylinder);
        put(cylinder.getAllowRadiusSignChange());
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        visitParametricSurface3D(torus);
        put(torus.getAllowRadiusSignChange());
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        visitParametricCurve3D(circle);
        put(circle.getAllowRadiusSignChange());
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        visitParametricCurve3D(ellipse);
        put(ellipse.getAllowRadiusSignChange());
    }
    void visitSpline3D(VrexSpline3D& spline) override {
        visitParametricCurve3D(spline);
        put(spline.degree(), spline.periodic());
        putAll(spline.knots());
        putRow(spline.controlPoints());
        putAll(spline.getInterpolatedPoints());
        putAll(spline.getInterpolatedParameters());
    }
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override {
        visitParametricSurface3D(surface);
        put(surface.uDegree(), surface.vDegree());
        putAll(surface.uKnots());
        putAll(surface.vKnots());
        for (const auto& row : surface.controlPoints()) {
            putRow(row);
        }
    }
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override {
        visitParametricSurface3D(surface);
        put(surface.getProfileCurve(), surface.getAxisLine());
    }
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override {
        visitParametricSurface3D(surface);
        put(surface.getProfileCurve(), surface.getTrajectoryLine());
    }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override {
        visitParametricCurve3D(curve);
        put(curve.getX(), curve.getY(), curve.getZ());
        putDescriptors(curve.descriptors());
        for (const auto* const parser : {&curve.getXParser(), &curve.getYParser(), &curve.getZParser()}) {
            putVariables(*parser);
        }
    }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override {
        visitParametricSurface3D(surface);
        put(surface.getX(), surface.getY(), surface.getZ());
        putDescriptors(surface.descriptors());
        for (const auto* const parser :
             {&surface.getXParser(), &surface.getYParser(), &surface.getZParser()}) {
            putVariables(*parser);
        }
    }
    void visitGeometrySet3D(VrexGeometrySet3D& set) override {
        visitGeometry3D(set);
        putAll(set.geometries());
    }
    void visitConnector3D(VrexConnector3D& connector) override {
        visitGeometry3D(connector);
        put(connector.getRigidSet(), connector.getOrigin(), connector.getRotation().scalar(),
            connector.getRotation().vector());
    }
    void visitPattern3D(VrexPattern3D& pattern) override {
        visitGeometry3D(pattern);
        put(pattern.getPatternType(), pattern.getAxisLine());
    }
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override {
        visitGeometry3D(pattern);
        put(pattern.getCircularPatternIdx());
        putAll(pattern.getPatterns());
    }

    void visitBaseConstraint(VrexBaseConstraint& constraint) override {
        visitBaseObject(constraint);
        put(constraint.status(), constraint.satisfiedStatus(), constraint.solveMethodStatus());
        putAll(constraint.getGeometries());
        putAll(constraint.getConstraints());
    }
    void visitBaseEquation(VrexBaseEquation& equation) override {
        visitBaseConstraint(equation);
        put(equation.conditionType());
        putDescriptors(equation.descriptors());
    }
    void visitCallbackEquation(VrexCallbackEquation& equation) override {
        visitBaseEquation(equation);
        put(equation.callback().target_type().name());
    }
    void visitExpressionEquation(VrexExpressionEquation& equation) override {
        visitBaseEquation(equation);
        put(equation.expression());
        putTree(equation);
    }
    void visitConstraint(VrexConstraint& constraint) override {
        visitBaseConstraint(constraint);
        put(constraint.alignment(), constraint.orientation(), constraint.isRigid(), constraint.getParent());
    }
    void visitConstraint3D(VrexConstraint3D& constraint) override {
        visitConstraint(constraint);
        put(constraint.type(), constraint.getGeomComponentType(1), constraint.getGeomComponentType(2),
            constraint.helpPoint1(), constraint.helpPoint2(), constraint.fixHelpParameter1(),
            constraint.fixHelpParameter2());
        for (const auto& parameters : {constraint.helpParam1(), constraint.helpParam2()}) {
            put(parameters.has_value() ? std::optional(parameters->x()) : std::nullopt,
                parameters.has_value() ? std::optional(parameters->y()) : std::nullopt);
        }
        putBias(constraint.biasData());
    }
    void visitDimension3D(VrexDimension3D& dimension) override {
        visitConstraint3D(dimension);
        put(dimension.value(), dimension.getVariable());
        putLimits(dimension.getLimits());
    }
    void visitDirectionDistance3D(VrexDirectionDistance3D& distance) override {
        visitDimension3D(distance);
        put(distance.getDirectionVector());
    }
    void visitRadius3D(VrexRadius3D& radius) override {
        visitDimension3D(radius);
        put(radius.getRadiusType());
    }
    void visitCurveLength3D(VrexCurveLength3D& length) override {
        visitDimension3D(length);
        put(length.getWindingAngle());
    }
    void visitIncidence3D(VrexIncidence3D& incidence) override {
        visitConstraint3D(incidence);
        put(incidence.getIncidenceType());
    }
    void visitFixation3D(VrexFixation3D& fixation) override {
        visitConstraint3D(fixation);
        put(fixation.getFixationType());
    }
    void visitEqualRadius3D(VrexEqualRadius3D& radius) override {
        visitConstraint3D(radius);
        put(radius.getRadiusType(0), radius.getRadiusType(1));
    }
    void visitEqualCurveProperty3D(VrexEqualCurveProperty3D& property) override {
        visitConstraint3D(property);
        put(property.getCurveProperty());
    }
    void visitEqualParameter3D(VrexEqualParameter3D& equality) override {
        visitConstraint3D(equality);
        for (const auto& [first, second] : equality.getParameterIndices()) {
            put(first, second);
        }
    }
    void visitEqualDimension3D(VrexEqualDimension3D& equality) override {
        visitConstraint3D(equality);
        putAll(equality.getDimensions());
    }
    void visitInstance3D(VrexInstance3D& instance) override {
        visitConstraint3D(instance);
        putAll(instance.getCoefficients());
    }
    void visitMate3D(VrexMate3D& mate) override {
        visitConstraint3D(mate);
        for (std::uint64_t i = 0; i < mate.getDimensionSize(); ++i) {
            put(mate.getDimension(i).value, mate.getDimension(i).fixed());
            putLimits(mate.getDimension(i).limits);
        }
    }
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) override {
        visitConstraint3D(interval);
        putLimits(interval.limit());
        put(interval.variable(), interval.dimensionIndex(), interval.getMateDimensionType());
    }
    void visitMateRelation3D(VrexMateRelation3D& relation) override {
        visitConstraint3D(relation);
        putAll(relation.getMates());
        putAll(relation.getMateParameterIndexs());
        put(relation.getRatio());
    }

private:
    struct Reader : VrexBaseObject {
        using VrexBaseObject::getParameter;
        using VrexBaseObject::getParameterSize;
    };

    template <class Object>
    void addAddress(const std::shared_ptr<Object>& object) {
        if (object != nullptr) {
            m_addresses.insert(object.get());
        }
    }
    void add(const std::string& text) { m_text += text + " "; }
    void putOne(const std::string& text) { add("\"" + text + "\""); }
    void putOne(const char* text) { add(text); }
    void putOne(double number) {
        add(std::to_string(std::bit_cast<std::uint64_t>(number)).insert(0, 1, 'x'));
    }
    template <class Number>
    requires std::is_integral_v<Number> || std::is_enum_v<Number>
    void putOne(Number number) { add(std::to_string(static_cast<std::int64_t>(number))); }
    void putOne(const VrexVector3DT<double>& vector) {
        putOne(vector.x());
        putOne(vector.y());
        putOne(vector.z());
    }
    template <class Value>
    void putOne(const std::optional<Value>& value) {
        if (value.has_value()) {
            putOne(*value);
        } else {
            add("-");
        }
    }
    template <class Object>
    void putOne(const std::shared_ptr<Object>& object) {
        if (object == nullptr) {
            add("null");
            return;
        }
        const auto [place, isNew] = m_numbers.try_emplace(object.get(), m_objects.size());
        if (isNew) {
            m_objects.push_back(object);
            addAddress(std::shared_ptr<const VrexBaseObject>(object));
        }
        add(std::to_string(place->second).insert(0, 1, '#'));
    }
    template <class... Values>
    void put(const Values&... values) {
        (putOne(values), ...);
    }
    template <class List>
    void putAll(const List& list) {
        add("[");
        for (const auto& element : list) {
            putOne(element);
        }
        add("]");
    }
    void putRow(const std::vector<VrexSpline3D::ControlPoint>& row) {
        for (const auto& [point, weight] : row) {
            put(point, weight);
        }
    }
    void putLimits(const VrexDimensionLimits& limits) { put(limits.first, limits.second); }
    template <class Bias>
    void putBias(const std::optional<Bias>& bias) {
        if (!bias.has_value()) {
            return;
        }
        for (const auto& records : {bias->first, bias->second}) {
            for (const auto& [key, value] : records) {
                put("bias", key, value);
            }
        }
    }
    void putDescriptors(const std::vector<VrexVariableDescriptor>& descriptors) {
        for (const VrexVariableDescriptor& descriptor : descriptors) {
            put(descriptor.object(), descriptor.index(), descriptor.variableName());
        }
    }
    void putVariables(const VrexExpressionParser& parser) {
        for (const auto& variable : parser.getVariables()) {
            put(variable->name);
            m_addresses.insert(variable.get());
        }
        putTree(parser);
    }
    /// Trees share the numbers that never change.
    template <class Holder>
    void putTree(const Holder& holder) {
        holder.traverse([this](const std::shared_ptr<VrexExpr>& node) {
            if (node != nullptr && !node->isConst()) {
                m_addresses.insert(node.get());
            }
        });
    }

    std::string m_text;
    std::set<const void*> m_addresses;
    std::vector<std::shared_ptr<VrexBaseObject>> m_objects;
    std::unordered_map<const VrexBaseObject*, std::size_t> m_numbers;
};
