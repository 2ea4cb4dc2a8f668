#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexExport.h"
#include "data/VrexGeometryChangeStatus.h"
#include "data/VrexGeometryStatus.h"

class VrexGeometryVariable;

/// The base of what a constraint may bind: geometric entities and free scalars.
class VREX_DATA_EXPORT VrexBaseGeometry : public VrexBaseObject {
public:
    void accept(VrexVisitor3D& visitor) override;
    /// Degrees of freedom.
    virtual int dof() const = 0;
    /// The geometries that this one is built on; none by default.
    virtual std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const;
    /// The free scalars that this one depends on; none by default.
    virtual std::vector<std::shared_ptr<VrexGeometryVariable>> getVariables() const;
    /// Whether this geometry differs from its latest snapshot by more than the tolerances; each class says
    /// what they measure. False without a snapshot, and by default.
    virtual bool checkChanged(double first, double second) const;
    virtual bool isPattern() const;

    VrexGeometryStatus& status() { return m_status; }
    const VrexGeometryStatus& status() const { return m_status; }
    VrexGeometryChangeStatus getChangeStatus() const { return m_changeStatus; }
    void setChangeStatus(VrexGeometryChangeStatus status) { m_changeStatus = status; }

protected:
    explicit VrexBaseGeometry(VrexObjectType type);
    VrexBaseGeometry(VrexObjectType type, std::uint32_t parameterCount);
    VrexBaseGeometry(const VrexBaseGeometry&) = default;
    VrexBaseGeometry(VrexBaseGeometry&&) = default;
    VrexBaseGeometry& operator=(const VrexBaseGeometry&) = default;
    VrexBaseGeometry& operator=(VrexBaseGeometry&&) = default;

private:
    VrexGeometryStatus m_status = VrexGeometryStatus::Unknown;
    VrexGeometryChangeStatus m_changeStatus = VrexGeometryChangeStatus::NotChanged;
};
