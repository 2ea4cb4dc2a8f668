#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexQuaternionT.h"
#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexConnectedComponent.h"

/// Bodies and joints, numbered from 1 as they are added.
class Mechanism {
public:
    using Vector = VrexVector3DT<double>;

    template <class Geometry>
    std::shared_ptr<Geometry> add(const std::shared_ptr<Geometry>& geometry) {
        geometry->setID(++m_lastId);
        geometries.push_back(geometry);
        return geometry;
    }
    template <class Constraint>
    std::shared_ptr<Constraint> bind(const std::shared_ptr<Constraint>& constraint) {
        constraint->setID(++m_lastId);
        constraints.push_back(constraint);
        return constraint;
    }

    std::shared_ptr<VrexRigidSet3D> body(std::vector<std::shared_ptr<VrexGeometry3D>> members = {}) {
        return add(VrexRigidSet3D::create(std::move(members)));
    }
    std::shared_ptr<VrexRigidSet3D> ground() {
        auto set = body();
        bind(VrexFixation3D::create(set, VrexFixation3DType::Complete3D));
        return set;
    }
    /// A frame on `body`, in its coordinates.
    std::shared_ptr<VrexConnector3D>
    connector(const std::shared_ptr<VrexRigidSet3D>& body, const Vector& place,
              const VrexQuaternionT<double>& rotation = VrexQuaternionT<double>::ONE()) {
        auto result = VrexConnector3D::create(body);
        result->setTransformation({place, rotation});
        return add(result);
    }
    /// A hinge at this place, about Z of space turned by `rotation`.
    std::shared_ptr<VrexRevoluteMate3D>
    hinge(const std::shared_ptr<VrexRigidSet3D>& first, const std::shared_ptr<VrexRigidSet3D>& second,
          const Vector& place, const VrexQuaternionT<double>& rotation = VrexQuaternionT<double>::ONE()) {
        return bind(VrexRevoluteMate3D::create(connector(first, place, rotation),
                                               connector(second, place, rotation), {}));
    }
    /// The rotation that takes Z of space there, for connectors.
    static VrexQuaternionT<double> towards(const Vector& direction) {
        return VrexQuaternionT<double>::makeRotation(Vector::OZ(), direction / direction.magnitude(), 1e-12,
                                                     Vector::OX());
    }

    std::shared_ptr<VrexConnectedComponent> component() const {
        return std::make_shared<VrexConnectedComponent>(geometries, constraints);
    }

    VrexConnectedComponent::Geometries geometries;
    VrexConnectedComponent::Constraints constraints;

private:
    std::uint64_t m_lastId = 0;
};
