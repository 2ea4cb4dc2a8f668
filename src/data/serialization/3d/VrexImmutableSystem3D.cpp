#include "data/serialization/3d/VrexImmutableSystem3D.h"

#include <cstddef>
#include <utility>

#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "data/VrexDependencyOrder.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

template <class Object>
void acceptAll(const std::vector<std::shared_ptr<Object>>& objects, VrexVisitor3D& visitor) {
    for (const std::shared_ptr<Object>& object : objects) {
        if (object != nullptr) {
            object->accept(visitor);
        }
    }
}

class SystemCloner : public VrexConstraintSystemCloner3D {
public:
    explicit SystemCloner(std::size_t count) : VrexConstraintSystemCloner3D({}, {}) { reserve(count); }

    using VrexConstraintSystemCloner3D::linkParents;
    using VrexConstraintSystemCloner3D::takeClones;

    /// What has no clone stays as it is.
    VrexTransform3D cloneTransform(const VrexTransform3D& transform) const {
        if (transform.isEmpty()) {
            return {};
        }
        VrexTransform3D::GeometryMap geometries;
        VrexTransform3D::VariableMap variables;
        for (const auto& record : transform.transformations()) {
            enter(record.geometry, geometries);
        }
        for (const auto& record : transform.transformParameters()) {
            enter(record.geometry, geometries);
        }
        for (const auto& record : transform.variableTransformations()) {
            enter(record.variable, variables);
        }
        return std::move(*transform.clone(geometries, variables));
    }

private:
    template <class Object, class Map>
    void enter(const std::shared_ptr<Object>& object, Map& map) const {
        if (auto clone = std::static_pointer_cast<Object>(findClone(object))) {
            map.try_emplace(object, std::move(clone));
        }
    }
};

} // namespace

VrexImmutableSystem3D::VrexImmutableSystem3D() = default;

VrexImmutableSystem3D::VrexImmutableSystem3D(std::vector<std::shared_ptr<VrexGeometry3D>> geometries,
                                             std::vector<std::shared_ptr<VrexGeometryVariable>> variables,
                                             std::vector<std::shared_ptr<VrexConstraint3D>> constraints,
                                             std::vector<std::shared_ptr<VrexBaseEquation>> equations,
                                             double linearTolerance, double angularTolerance,
                                             VrexTransform3D transform,
                                             std::vector<std::shared_ptr<VrexGeometry3D>> referenceGeometries)
    : m_constraints(std::move(constraints)),
      m_equations(std::move(equations)),
      m_geometries(std::move(geometries)),
      m_variables(std::move(variables)),
      m_referenceGeometries(std::move(referenceGeometries)),
      m_angularTolerance(angularTolerance),
      m_linearTolerance(linearTolerance),
      m_transform(std::move(transform)) {}

VrexImmutableSystem3D::VrexImmutableSystem3D(
    OrderGeometriesAndConstraints, const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries,
    std::vector<std::shared_ptr<VrexGeometryVariable>> variables,
    const std::vector<std::shared_ptr<VrexConstraint3D>>& constraints,
    std::vector<std::shared_ptr<VrexBaseEquation>> equations, double linearTolerance, double angularTolerance,
    VrexTransform3D transform, std::vector<std::shared_ptr<VrexGeometry3D>> referenceGeometries)
    : VrexImmutableSystem3D(orderGeometries(geometries), std::move(variables), orderConstraints(constraints),
                            std::move(equations), linearTolerance, angularTolerance, std::move(transform),
                            std::move(referenceGeometries)) {}

VrexImmutableSystem3D::VrexImmutableSystem3D(OrderGeometriesAndConstraints order,
                                             const VrexImmutableSystem3D& system)
    : VrexImmutableSystem3D(order, VrexImmutableSystem3D(system)) {}

VrexImmutableSystem3D::VrexImmutableSystem3D(OrderGeometriesAndConstraints, VrexImmutableSystem3D&& system)
    : VrexImmutableSystem3D(std::move(system)) {
    m_geometries = orderGeometries(m_geometries);
    m_constraints = orderConstraints(m_constraints);
}

VrexImmutableSystem3D::VrexImmutableSystem3D(const VrexImmutableSystem3D&) = default;

VrexImmutableSystem3D::VrexImmutableSystem3D(VrexImmutableSystem3D&&) noexcept = default;

VrexImmutableSystem3D& VrexImmutableSystem3D::operator=(const VrexImmutableSystem3D&) = default;

VrexImmutableSystem3D& VrexImmutableSystem3D::operator=(VrexImmutableSystem3D&&) noexcept = default;

VrexImmutableSystem3D::~VrexImmutableSystem3D() = default;

void VrexImmutableSystem3D::accept(VrexVisitor3D& visitor) const {
    acceptAll(m_geometries, visitor);
    acceptAll(m_variables, visitor);
    acceptAll(m_constraints, visitor);
    acceptAll(m_equations, visitor);
}

VrexImmutableSystem3D VrexImmutableSystem3D::deepCopy() const {
    SystemCloner cloner(m_variables.size() + m_geometries.size() + m_equations.size() + m_constraints.size());
    auto variables = cloner.takeClones(m_variables);
    auto geometries = cloner.takeClones(m_geometries);
    auto equations = cloner.takeClones(m_equations);
    auto constraints = cloner.takeClones(m_constraints);
    auto referenceGeometries = cloner.takeClones(m_referenceGeometries);
    cloner.linkParents();
    return {std::move(geometries),
            std::move(variables),
            std::move(constraints),
            std::move(equations),
            m_linearTolerance,
            m_angularTolerance,
            cloner.cloneTransform(m_transform),
            std::move(referenceGeometries)};
}

std::vector<std::shared_ptr<VrexGeometry3D>>
VrexImmutableSystem3D::orderGeometries(const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries) {
    return inDependencyOrder(geometries,
                             [](const VrexGeometry3D& geometry) { return geometry.geometries(); });
}

std::vector<std::shared_ptr<VrexConstraint3D>>
VrexImmutableSystem3D::orderConstraints(const std::vector<std::shared_ptr<VrexConstraint3D>>& constraints) {
    return constraints;
}
