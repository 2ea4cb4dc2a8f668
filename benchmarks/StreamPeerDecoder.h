#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <boost/unordered/unordered_flat_map.hpp>
#include <stream_generated.h>

#include "StreamSystem.h"
#include "data/VrexVector2DT.h"

/// Verifies a FlatBuffer and builds of it the objects that the decoder of the compact stream builds, as one
/// would by hand: the table of known objects has its room from the start, and needs no cast.
class StreamPeerDecoder {
public:
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;

    bool decode(const unsigned char* buffer, std::size_t size) {
        // By default no more tables than a million are verified.
        flatbuffers::Verifier::Options options;
        options.max_tables = 10'000'000;
        flatbuffers::Verifier verifier(buffer, size, options);
        if (!verifier.VerifyBuffer<nsStreamPeer::System>(nullptr)) {
            return false;
        }
        const auto& system = *flatbuffers::GetRoot<nsStreamPeer::System>(buffer);
        return decodeGeometries(system) && decodeConstraints(system);
    }

private:
    using Made = std::shared_ptr<VrexGeometry3D>;
    using Bound = std::array<Made, 2>;

    bool decodeGeometries(const nsStreamPeer::System& system) {
        if (system.geometries() == nullptr) {
            return false;
        }
        const std::uint32_t count = system.geometries()->size();
        geometries.reserve(count);
        m_known.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            auto geometry = decodeGeometry(system.geometries_type()->Get(i), system.geometries()->Get(i));
            if (geometry == nullptr) {
                return false;
            }
            m_known[geometry->getID()] = geometry;
            geometries.push_back(std::move(geometry));
        }
        return true;
    }
    static Made decodeGeometry(std::uint8_t type, const void* table) {
        switch (type) {
        case nsStreamPeer::Geometry_Point:
            return decodePoint(*static_cast<const nsStreamPeer::Point*>(table));
        case nsStreamPeer::Geometry_Line:
            return decodeLine(*static_cast<const nsStreamPeer::Line*>(table));
        case nsStreamPeer::Geometry_Plane:
            return decodePlane(*static_cast<const nsStreamPeer::Plane*>(table));
        case nsStreamPeer::Geometry_Circle:
            return decodeCircle(*static_cast<const nsStreamPeer::Circle*>(table));
        case nsStreamPeer::Geometry_Cylinder:
            return decodeCylinder(*static_cast<const nsStreamPeer::Cylinder*>(table));
        default:
            return nullptr;
        }
    }
    static Made decodePoint(const nsStreamPeer::Point& table) {
        const auto* const position = table.position();
        return position == nullptr
                   ? nullptr
                   : dressed(table, VrexPoint3D::create(position->x(), position->y(), position->z()));
    }
    static Made decodeLine(const nsStreamPeer::Line& table) {
        return table.origin() == nullptr || table.direction() == nullptr
                   ? nullptr
                   : dressed(table, VrexLine3D::create(vector(*table.origin()), vector(*table.direction())));
    }
    static Made decodePlane(const nsStreamPeer::Plane& table) {
        return table.origin() == nullptr || table.normal() == nullptr
                   ? nullptr
                   : dressed(table, VrexPlane3D::create(vector(*table.origin()), vector(*table.normal())));
    }
    static Made decodeCircle(const nsStreamPeer::Circle& table) {
        if (table.center() == nullptr || table.normal() == nullptr) {
            return nullptr;
        }
        auto circle = VrexCircle3D::create(vector(*table.center()), vector(*table.normal()), table.radius());
        circle->start() = optional(table.start());
        circle->end() = optional(table.end());
        return dressed(table, std::move(circle));
    }
    static Made decodeCylinder(const nsStreamPeer::Cylinder& table) {
        return table.origin() == nullptr || table.direction() == nullptr
                   ? nullptr
                   : dressed(table, VrexCylinder3D::create(vector(*table.origin()),
                                                           vector(*table.direction()), table.radius()));
    }

    bool decodeConstraints(const nsStreamPeer::System& system) {
        if (system.constraints() == nullptr) {
            return false;
        }
        const std::uint32_t count = system.constraints()->size();
        constraints.reserve(count);
        m_knownConstraints.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            auto constraint =
                decodeConstraint(system.constraints_type()->Get(i), system.constraints()->Get(i));
            if (constraint == nullptr) {
                return false;
            }
            m_knownConstraints[constraint->getID()] = constraint;
            constraints.push_back(std::move(constraint));
        }
        return true;
    }
    std::shared_ptr<VrexConstraint3D> decodeConstraint(std::uint8_t type, const void* table) {
        switch (type) {
        case nsStreamPeer::Constraint_Distance:
            return decodeDistance(*static_cast<const nsStreamPeer::Distance*>(table));
        case nsStreamPeer::Constraint_Incidence:
            return decodeIncidence(*static_cast<const nsStreamPeer::Incidence*>(table));
        case nsStreamPeer::Constraint_Parallelism:
            return decodeParallelism(*static_cast<const nsStreamPeer::Parallelism*>(table));
        default:
            return nullptr;
        }
    }
    std::shared_ptr<VrexConstraint3D> decodeDistance(const nsStreamPeer::Distance& table) {
        Bound bound;
        if (!findBound(table, bound)) {
            return nullptr;
        }
        auto distance =
            VrexDistance3D::create(bound[0], bound[1], table.value(), component1(table), component2(table));
        distance->setRigid(table.rigid());
        distance->setLimits({optional(table.lower()), optional(table.upper())});
        return dressed(table, std::move(distance));
    }
    std::shared_ptr<VrexConstraint3D> decodeIncidence(const nsStreamPeer::Incidence& table) {
        Bound bound;
        return findBound(table, bound)
                   ? dressed(table,
                             VrexIncidence3D::create(bound[0], bound[1],
                                                     static_cast<VrexIncidence3DType>(table.incidence()),
                                                     component1(table), component2(table)))
                   : nullptr;
    }
    std::shared_ptr<VrexConstraint3D> decodeParallelism(const nsStreamPeer::Parallelism& table) {
        Bound bound;
        return findBound(table, bound) ? dressed(table, VrexParallelism3D::create(bound[0], bound[1]))
                                       : nullptr;
    }

    /// What tables of geometries have in common.
    template <class Table, class Geometry>
    requires requires(const Table& table) {
        table.state()->second();
    } &&(!requires(const Table& table) { table.choice(); }) static Made
        dressed(const Table& table, std::shared_ptr<Geometry> geometry) {
        const auto* const state = table.state();
        if (state == nullptr) {
            return nullptr;
        }
        dress(table, *geometry);
        geometry->setChangeStatus(static_cast<VrexGeometryChangeStatus>(state->second()));
        geometry->status() = static_cast<VrexGeometryStatus>(state->status());
        return geometry;
    }
    /// The same of constraints.
    template <class Table, class Constraint>
    requires requires(const Table& table) { table.choice(); }
    static std::shared_ptr<VrexConstraint3D> dressed(const Table& table,
                                                     std::shared_ptr<Constraint> constraint) {
        const auto* const state = table.state();
        if (state == nullptr) {
            return nullptr;
        }
        dress(table, *constraint);
        constraint->status() = static_cast<VrexConstraintStatus>(state->status());
        constraint->satisfiedStatus() = static_cast<VrexConstraintSatisfiedStatus>(state->second());
        constraint->alignment() = static_cast<VrexConstraintAlignment>(table.choice()->alignment());
        constraint->orientation() = static_cast<VrexConstraintOrientation>(table.choice()->orientation());
        constraint->helpPoint1() = optional(table.point1());
        constraint->helpPoint2() = optional(table.point2());
        constraint->helpParam1() = optional(table.parameter1());
        constraint->helpParam2() = optional(table.parameter2());
        return constraint;
    }
    template <class Table>
    static void dress(const Table& table, VrexBaseObject& object) {
        object.setID(table.state()->id());
        object.setDirty(table.state()->dirty());
        if (table.label() != nullptr) {
            object.label().assign(table.label()->c_str(), table.label()->size());
        }
    }
    template <class Table>
    bool findBound(const Table& table, Bound& bound) const {
        const auto* const ids = table.geometries();
        if (ids == nullptr || ids->size() != bound.size() || table.choice() == nullptr) {
            return false;
        }
        for (std::uint32_t i = 0; i < bound.size(); ++i) {
            const auto found = m_known.find(ids->Get(i));
            if (found == m_known.end()) {
                return false;
            }
            bound[i] = found->second;
        }
        return true;
    }
    template <class Table>
    static VrexGeometryComponentType component1(const Table& table) {
        return static_cast<VrexGeometryComponentType>(table.choice()->component1());
    }
    template <class Table>
    static VrexGeometryComponentType component2(const Table& table) {
        return static_cast<VrexGeometryComponentType>(table.choice()->component2());
    }
    static VrexVector3DT<double> vector(const nsStreamPeer::Vector& value) {
        return {value.x(), value.y(), value.z()};
    }
    static std::optional<double> optional(const flatbuffers::Optional<double>& value) {
        return value.has_value() ? std::optional(*value) : std::nullopt;
    }
    static std::optional<VrexVector3DT<double>> optional(const nsStreamPeer::Vector* value) {
        return value != nullptr ? std::optional(vector(*value)) : std::nullopt;
    }
    static std::optional<VrexVector2DT<double>> optional(const nsStreamPeer::Vector2* value) {
        return value != nullptr ? std::optional(VrexVector2DT<double>(value->x(), value->y())) : std::nullopt;
    }

    boost::unordered_flat_map<std::uint64_t, Made> m_known;
    boost::unordered_flat_map<std::uint64_t, std::shared_ptr<VrexConstraint3D>> m_knownConstraints;
};
