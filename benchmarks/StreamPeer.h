#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include <stream_generated.h>

#include "StreamSystem.h"
#include "data/VrexVisitor3D.h"
#include "data/geometry/VrexGeometryVariable.h"

/// Builds a FlatBuffer of the fields that the compact stream has.
class StreamPeerEncoder final : public VrexVisitor3D {
public:
    explicit StreamPeerEncoder(flatbuffers::FlatBufferBuilder& builder) : m_builder(builder) {}

    void encode(const StreamSystem& system) {
        using namespace nsStreamPeer;
        const auto geometries = encodeAll(system.geometries);
        const auto constraints = encodeAll(system.constraints);
        m_builder.Finish(CreateSystem(m_builder, geometries.types, geometries.objects, constraints.types,
                                      constraints.objects));
    }

    void visitPoint3D(VrexPoint3D& point) override {
        const auto label = labelOf(point);
        const auto position = vector(point.getPosition());
        const auto state = stateOf(point);
        take(nsStreamPeer::CreatePoint(m_builder, &position, &state, label),
             nsStreamPeer::Geometry::Geometry_Point);
    }
    void visitLine3D(VrexLine3D& line) override {
        const auto label = labelOf(line);
        const auto origin = vector(line.getOrigin());
        const auto direction = vector(line.getDirection());
        const auto state = stateOf(line);
        take(nsStreamPeer::CreateLine(m_builder, &origin, &direction, &state, label),
             nsStreamPeer::Geometry_Line);
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        const auto label = labelOf(plane);
        const auto origin = vector(plane.getOrigin());
        const auto normal = vector(plane.getNormal());
        const auto state = stateOf(plane);
        take(nsStreamPeer::CreatePlane(m_builder, &origin, &normal, &state, label),
             nsStreamPeer::Geometry_Plane);
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        const auto label = labelOf(circle);
        const auto center = vector(circle.getCenter());
        const auto normal = vector(circle.getNormal());
        const auto state = stateOf(circle);
        take(nsStreamPeer::CreateCircle(m_builder, &center, &normal, circle.getRadius(),
                                        optional(circle.start()), optional(circle.end()), &state, label),
             nsStreamPeer::Geometry_Circle);
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        const auto label = labelOf(cylinder);
        const auto origin = vector(cylinder.getOrigin());
        const auto direction = vector(cylinder.getDirection());
        const auto state = stateOf(cylinder);
        take(
            nsStreamPeer::CreateCylinder(m_builder, &origin, &direction, cylinder.getRadius(), &state, label),
            nsStreamPeer::Geometry_Cylinder);
    }
    void visitDistance3D(VrexDistance3D& distance) override {
        const Common common(*this, distance);
        const auto variable = distance.getVariable();
        const auto& [lower, upper] = distance.getLimits();
        take(nsStreamPeer::CreateDistance(m_builder, common.geometries, &common.choice, &common.state,
                                          common.label, common.point1(), common.point2(), common.parameter1(),
                                          common.parameter2(), distance.value(), distance.isRigid(),
                                          variable != nullptr
                                              ? flatbuffers::Optional<std::uint64_t>(variable->getID())
                                              : flatbuffers::nullopt,
                                          optional(lower), optional(upper)),
             nsStreamPeer::Constraint_Distance);
    }
    void visitIncidence3D(VrexIncidence3D& incidence) override {
        const Common common(*this, incidence);
        take(nsStreamPeer::CreateIncidence(m_builder, common.geometries, &common.choice, &common.state,
                                           common.label, static_cast<int>(incidence.getIncidenceType()),
                                           common.point1(), common.point2(), common.parameter1(),
                                           common.parameter2()),
             nsStreamPeer::Constraint_Incidence);
    }
    void visitParallelism3D(VrexParallelism3D& parallelism) override {
        const Common common(*this, parallelism);
        take(nsStreamPeer::CreateParallelism(m_builder, common.geometries, &common.choice, &common.state,
                                             common.label, common.point1(), common.point2(),
                                             common.parameter1(), common.parameter2()),
             nsStreamPeer::Constraint_Parallelism);
    }

private:
    template <class Type>
    using Offset = flatbuffers::Offset<Type>;

    /// The two vectors of a vector of unions.
    struct Encoded {
        Offset<flatbuffers::Vector<std::uint8_t>> types;
        Offset<flatbuffers::Vector<Offset<void>>> objects;
    };

    /// The fields of all constraints.
    struct Common {
        Common(StreamPeerEncoder& encoder, const VrexConstraint3D& object)
            : constraint(object),
              geometries(encoder.idsOf(object)),
              label(encoder.labelOf(object)),
              choice(static_cast<int>(object.type()), static_cast<int>(object.getGeomComponentType(1)),
                     static_cast<int>(object.getGeomComponentType(2)), static_cast<int>(object.alignment()),
                     static_cast<int>(object.orientation()), object.fixHelpParameter1(),
                     object.fixHelpParameter2()),
              state(object.getID(), static_cast<int>(object.status()),
                    static_cast<int>(object.satisfiedStatus()), object.isDirty()),
              m_point1(vectorOf(object.helpPoint1())),
              m_point2(vectorOf(object.helpPoint2())),
              m_parameter1(vectorOf(object.helpParam1())),
              m_parameter2(vectorOf(object.helpParam2())) {}

        const nsStreamPeer::Vector* point1() const { return constraint.helpPoint1() ? &m_point1 : nullptr; }
        const nsStreamPeer::Vector* point2() const { return constraint.helpPoint2() ? &m_point2 : nullptr; }
        const nsStreamPeer::Vector2* parameter1() const {
            return constraint.helpParam1() ? &m_parameter1 : nullptr;
        }
        const nsStreamPeer::Vector2* parameter2() const {
            return constraint.helpParam2() ? &m_parameter2 : nullptr;
        }

        const VrexConstraint3D& constraint;
        Offset<flatbuffers::Vector<std::uint64_t>> geometries;
        Offset<flatbuffers::String> label;
        nsStreamPeer::Choice choice;
        nsStreamPeer::State state;

    private:
        static nsStreamPeer::Vector vectorOf(const std::optional<VrexVector3DT<double>>& value) {
            return value ? vector(*value) : nsStreamPeer::Vector();
        }
        static nsStreamPeer::Vector2 vectorOf(const std::optional<VrexVector2DT<double>>& value) {
            return value ? nsStreamPeer::Vector2(value->x(), value->y()) : nsStreamPeer::Vector2();
        }

        nsStreamPeer::Vector m_point1;
        nsStreamPeer::Vector m_point2;
        nsStreamPeer::Vector2 m_parameter1;
        nsStreamPeer::Vector2 m_parameter2;
    };

    template <class Object>
    Encoded encodeAll(const std::vector<std::shared_ptr<Object>>& objects) {
        m_types.clear();
        m_objects.clear();
        for (const auto& object : objects) {
            object->accept(*this);
        }
        return {m_builder.CreateVector(m_types), m_builder.CreateVector(m_objects)};
    }
    template <class Object, class Type>
    void take(Offset<Object> object, Type type) {
        m_objects.push_back(object.Union());
        m_types.push_back(static_cast<std::uint8_t>(type));
    }
    static nsStreamPeer::Vector vector(const VrexVector3DT<double>& value) {
        return {value.x(), value.y(), value.z()};
    }
    static flatbuffers::Optional<double> optional(const std::optional<double>& value) {
        return value ? flatbuffers::Optional<double>(*value) : flatbuffers::nullopt;
    }
    static nsStreamPeer::State stateOf(const VrexBaseGeometry& object) {
        return {object.getID(), static_cast<int>(object.status()), static_cast<int>(object.getChangeStatus()),
                object.isDirty()};
    }
    /// Absent for an empty label.
    Offset<flatbuffers::String> labelOf(const VrexBaseObject& object) {
        return object.label().empty() ? Offset<flatbuffers::String>()
                                      : m_builder.CreateString(object.label());
    }
    Offset<flatbuffers::Vector<std::uint64_t>> idsOf(const VrexConstraint3D& constraint) {
        m_ids.clear();
        for (const auto& geometry : constraint.getGeometries()) {
            if (geometry->baseType() == VrexObjectType::Geometry) {
                m_ids.push_back(geometry->getID());
            }
        }
        return m_builder.CreateVector(m_ids);
    }

    flatbuffers::FlatBufferBuilder& m_builder;
    std::vector<std::uint64_t> m_ids;
    std::vector<std::uint8_t> m_types;
    std::vector<Offset<void>> m_objects;
};
