#pragma once

#include <memory>
#include <vector>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexExport.h"
#include "data/VrexVisitable.h"

class VrexBaseEquation;
class VrexConstraint3D;
class VrexGeometry3D;
class VrexGeometryVariable;
class VrexVisitor3D;

/// A snapshot of a system: its objects, which it shares, the tolerances that it was solved with, and what was
/// being dragged. Its lists are never edited; the objects may be.
class VREX_DATA_EXPORT VrexImmutableSystem3D : public VrexVisitable {
public:
    /// Asks a constructor to bring the geometries into an order in which each stands behind what it is built
    /// on; what is built on but not given is added, nulls and repeats are left out. What an evaluated surface
    /// names does not count. Constraints keep their order.
    struct OrderGeometriesAndConstraints {};

    /// Without objects, both tolerances 0.
    VrexImmutableSystem3D();
    /// Keeps the order given. Lengths in the model's unit, angles in radians.
    VrexImmutableSystem3D(std::vector<std::shared_ptr<VrexGeometry3D>> geometries,
                          std::vector<std::shared_ptr<VrexGeometryVariable>> variables,
                          std::vector<std::shared_ptr<VrexConstraint3D>> constraints,
                          std::vector<std::shared_ptr<VrexBaseEquation>> equations, double linearTolerance,
                          double angularTolerance, VrexTransform3D transform,
                          std::vector<std::shared_ptr<VrexGeometry3D>> referenceGeometries);
    VrexImmutableSystem3D(OrderGeometriesAndConstraints order,
                          const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries,
                          std::vector<std::shared_ptr<VrexGeometryVariable>> variables,
                          const std::vector<std::shared_ptr<VrexConstraint3D>>& constraints,
                          std::vector<std::shared_ptr<VrexBaseEquation>> equations, double linearTolerance,
                          double angularTolerance, VrexTransform3D transform,
                          std::vector<std::shared_ptr<VrexGeometry3D>> referenceGeometries);
    VrexImmutableSystem3D(OrderGeometriesAndConstraints order, const VrexImmutableSystem3D& system);
    VrexImmutableSystem3D(OrderGeometriesAndConstraints order, VrexImmutableSystem3D&& system);
    /// Copies share the objects.
    VrexImmutableSystem3D(const VrexImmutableSystem3D&);
    VrexImmutableSystem3D(VrexImmutableSystem3D&&) noexcept;
    VrexImmutableSystem3D& operator=(const VrexImmutableSystem3D&);
    VrexImmutableSystem3D& operator=(VrexImmutableSystem3D&&) noexcept;
    ~VrexImmutableSystem3D() override;

    /// Passes the visitor to every geometry, variable, constraint and equation, kind by kind in this order.
    /// Nulls, reference geometries and what is dragged are left out.
    void accept(VrexVisitor3D& visitor) const override;

    /// The same system of new objects, null where this has null, the links among them as here, without
    /// snapshots. What is dragged and no part of the system stays the same object. Throws what
    /// `VrexConstraintSystemCloner3D` throws: all that constraints bind has to be part of the system.
    [[nodiscard]] VrexImmutableSystem3D deepCopy() const;

    const std::vector<std::shared_ptr<VrexConstraint3D>>& constraints() const { return m_constraints; }
    const std::vector<std::shared_ptr<VrexBaseEquation>>& equations() const { return m_equations; }
    const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries() const { return m_geometries; }
    const std::vector<std::shared_ptr<VrexGeometryVariable>>& variables() const { return m_variables; }
    const std::vector<std::shared_ptr<VrexGeometry3D>>& referenceGeometries() const {
        return m_referenceGeometries;
    }
    double angularTolerance() const { return m_angularTolerance; }
    double linearTolerance() const { return m_linearTolerance; }
    const VrexTransform3D& transform() const { return m_transform; }

private:
    static std::vector<std::shared_ptr<VrexGeometry3D>>
    orderGeometries(const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries);
    static std::vector<std::shared_ptr<VrexConstraint3D>>
    orderConstraints(const std::vector<std::shared_ptr<VrexConstraint3D>>& constraints);

    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
    std::vector<std::shared_ptr<VrexBaseEquation>> m_equations;
    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
    std::vector<std::shared_ptr<VrexGeometryVariable>> m_variables;
    std::vector<std::shared_ptr<VrexGeometry3D>> m_referenceGeometries;
    double m_angularTolerance = 0.0;
    double m_linearTolerance = 0.0;
    VrexTransform3D m_transform;
};
