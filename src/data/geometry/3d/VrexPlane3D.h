#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// An unbounded plane: kind `PLANE`, name prefix "pl", three degrees of freedom.
///
/// Parameters: slot DIST holds the signed distance of the plane from the origin of space along the normal,
/// POLAR and AZIMUTHAL the angles of the normal. Beside them stands the point that the application gave as
/// the plane's origin; a solver moves the plane through the three slots, and that point stays.
class VREX_DATA_EXPORT VrexPlane3D final : public VrexGeometry3D {
public:
    static constexpr int DIST = 0, POLAR = 1, AZIMUTHAL = 2;
    static constexpr int PARAMETERS_AMOUNT = 3;
    /// A plane without identifier; never null. `normal` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexPlane3D> create(const VrexVector3DT<double>& origin,
                                                             const VrexVector3DT<double>& normal);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the normal left the latest snapshot's by `linear` or more in a component, or the stored
    /// origin moved by more than `linear` in a direction whose cosine to the normal exceeds `linear`: a shift
    /// inside the plane is no change, nor is one of DIST alone. False without a snapshot. `second` has no
    /// meaning for a plane.
    bool checkChanged(double linear, double second) const override;

    /// The point last given, whatever DIST says.
    const VrexVector3DT<double>& getOrigin() const { return m_origin; }
    /// Sets DIST to the normal times `origin`.
    void setOrigin(const VrexVector3DT<double>& origin);
    /// Of unit length.
    VrexVector3DT<double> getNormal() const;
    /// Sets DIST to the new normal times the stored origin.
    void setNormal(const VrexVector3DT<double>& normal);
    /// The rotation that takes `canonicalDirection()` to the normal.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.

private:
    friend class VrexObjectAccess;

    VrexPlane3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& normal);
    VrexPlane3D(const VrexPlane3D&) = default;
    VrexPlane3D& operator=(VrexPlane3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    void updateDistance();

    VrexVector3DT<double> m_origin;
};
