#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numbers>
#include <vector>

#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/graph/VrexConnectedComponent.h"

/// Bodies that hang together by hinges about Z of space. The first one is held.
class Linkage {
public:
    using Vector = VrexVector3DT<double>;

    /// A regular polygon of so many bodies of length 1, each at the middle of its side. The first joint is to
    /// turn a little, so that the loop has to close anew.
    static Linkage loop(std::size_t bodies) {
        const double count = static_cast<double>(bodies);
        const double radius = 0.5 / std::sin(std::numbers::pi / count);
        const auto corner = [radius, count](std::size_t i) {
            const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / count;
            return Vector(radius * std::cos(angle), radius * std::sin(angle), 0.0);
        };
        Linkage result;
        for (std::size_t i = 1; i < bodies; ++i) {
            result.addBody((corner(i - 1) + corner(i)) * 0.5);
            result.addHinge(i - 1, i, corner(i));
        }
        result.addHinge(bodies - 1, 0, corner(0));
        result.turn(0, 0.02);
        return result;
    }

    /// Ground 4, crank 1, coupler 3.5, rocker 2.5; the crank is to turn by 0.9 from where it stands upright.
    static Linkage fourBar() {
        constexpr double ground = 4.0, coupler = 3.5, rocker = 2.5;
        const Vector end(0.0, 1.0, 0.0);
        const Vector pivot(ground, 0.0, 0.0);
        const double reach = (pivot - end).magnitude();
        const double along = (coupler * coupler - rocker * rocker + reach * reach) / (2.0 * reach);
        const double up = std::sqrt(coupler * coupler - along * along);
        const Vector way = (pivot - end) / reach;
        const Vector tip = end + way * along + Vector(-way.y(), way.x(), 0.0) * up;
        Linkage result;
        result.addBody(end * 0.5);
        result.addBody((end + tip) * 0.5);
        result.addBody((tip + pivot) * 0.5);
        result.addHinge(0, 1, {0.0, 0.0, 0.0});
        result.addHinge(1, 2, end);
        result.addHinge(2, 3, tip);
        result.addHinge(3, 0, pivot);
        result.turn(0, 0.9);
        return result;
    }

    const std::shared_ptr<VrexConnectedComponent>& component() const { return m_component; }

private:
    Linkage() {
        addBody({0.0, 0.0, 0.0});
        m_component->addConstraint(
            numbered(VrexFixation3D::create(m_bodies.front(), VrexFixation3DType::Complete3D)));
    }
    void addBody(const Vector& place) {
        m_bodies.push_back(numbered(VrexRigidSet3D::create({})));
        m_bodies.back()->setOrigin(place);
        m_component->addGeometry(m_bodies.back());
    }
    void addHinge(std::size_t first, std::size_t second, const Vector& place) {
        m_hinges.push_back(
            numbered(VrexRevoluteMate3D::create(connector(first, place), connector(second, place), {})));
        m_component->addConstraint(m_hinges.back());
    }
    std::shared_ptr<VrexConnector3D> connector(std::size_t body, const Vector& place) {
        const auto result = numbered(VrexConnector3D::create(m_bodies[body]));
        result->setTransformation({place, VrexQuaternionT<double>::ONE()});
        m_component->addGeometry(result);
        return result;
    }
    void turn(std::size_t hinge, double angle) {
        m_hinges[hinge]->getAngle().value = angle;
        m_hinges[hinge]->getAngle().setFixed(true);
    }
    template <class Object>
    std::shared_ptr<Object> numbered(std::shared_ptr<Object> object) {
        object->setID(++m_lastId);
        return object;
    }

    std::uint64_t m_lastId = 0;
    std::shared_ptr<VrexConnectedComponent> m_component = std::make_shared<VrexConnectedComponent>();
    std::vector<std::shared_ptr<VrexRigidSet3D>> m_bodies;
    std::vector<std::shared_ptr<VrexRevoluteMate3D>> m_hinges;
};
