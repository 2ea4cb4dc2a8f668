#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexExport.h"
#include "data/constraint/VrexConstraintAlignment.h"
#include "data/constraint/VrexConstraintOrientation.h"

class VrexGeometry;

/// Binds a list of geometries: base kind `Constraint`, name prefix "c".
///
/// The list holds entities and, where a value is bound, a free scalar. It is shared with whoever else holds
/// the geometries, also by copies of the constraint; the parent is held weakly.
class VREX_DATA_EXPORT VrexConstraint : public VrexBaseConstraint {
public:
    ~VrexConstraint() override;

    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& getGeometries() const override;
    /// False by default.
    virtual bool isRigid() const;
    /// Does nothing by default.
    virtual void setRigid(bool rigid);
    /// False by default.
    virtual bool isHelpPointSupported() const;
    /// False by default.
    virtual bool isHelpParameterSupported() const;
    /// Moves the geometries so that the constraint holds, where a class can; does nothing by default.
    virtual void satisfy();

    /// The solution branch that the caller asks for.
    VrexConstraintAlignment& alignment() { return m_alignment; }
    const VrexConstraintAlignment& alignment() const { return m_alignment; }
    VrexConstraintOrientation& orientation() { return m_orientation; }
    const VrexConstraintOrientation& orientation() const { return m_orientation; }

    /// The bound entities, in order, without the variables.
    std::vector<std::shared_ptr<VrexGeometry>> geomArguments() const;
    /// Set by `addGeometry`, by `eraseGeometry` and by every update; nothing in this library clears or reads
    /// it.
    bool areGeometriesChanged() const { return m_geometriesChanged; }
    /// The constraint that owns this one, null when there is none or it is gone.
    std::shared_ptr<VrexConstraint> getParent() const { return m_parent.lock(); }
    void setParent(const std::shared_ptr<VrexConstraint>& parent) { m_parent = parent; }

protected:
    VrexConstraint() : VrexBaseConstraint(VrexObjectType::Constraint) {}
    explicit VrexConstraint(std::uint32_t parameterCount);
    VrexConstraint(const VrexConstraint&) = default;
    VrexConstraint(VrexConstraint&&) = default;
    VrexConstraint& operator=(const VrexConstraint&) = default;
    VrexConstraint& operator=(VrexConstraint&&) = default;

    /// Keeps the geometries besides identifier and label: an update never binds a constraint to others.
    void doUpdateFrom(const VrexBaseObject& other) override;

    void addGeometry(std::shared_ptr<VrexBaseGeometry> geometry) {
        m_geometries.push_back(std::move(geometry));
        m_geometriesChanged = true;
    }
    /// Appends the arguments of a new constraint, nulls too, with room for just these.
    template <class... Geometry>
    void addArguments(const std::shared_ptr<Geometry>&... arguments) {
        initGeometry(sizeof...(arguments));
        (addGeometry(arguments), ...);
    }
    /// Removes the last geometry, if there is one; the flag is set also without one.
    void eraseGeometry();
    std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries() { return m_geometries; }
    /// Reserves room for `capacity` geometries.
    void initGeometry(std::uint64_t capacity) { m_geometries.reserve(capacity); }

private:
    friend class VrexConstraintSystemCloner;

    bool m_geometriesChanged = false;
    VrexConstraintAlignment m_alignment = VrexConstraintAlignment::Current;
    VrexConstraintOrientation m_orientation = VrexConstraintOrientation::Current;
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries;
    std::weak_ptr<VrexConstraint> m_parent;
};
