#pragma once

#include <memory>
#include <optional>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// An unbounded line: kind `LINE`, name prefix "l", four degrees of freedom.
///
/// Parameters: slots X, Y, Z hold a point of the line, POLAR and AZIMUTHAL the angles of its direction.
class VREX_DATA_EXPORT VrexLine3D final : public VrexGeometry3D {
public:
    static constexpr int X = 0, Y = 1, Z = 2;
    static constexpr int POLAR = 3, AZIMUTHAL = 4;
    static constexpr int PARAMETERS_AMOUNT = 5;
    /// A line without identifier; never null. `direction` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexLine3D> create(const VrexVector3DT<double>& origin,
                                                            const VrexVector3DT<double>& direction);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the direction left the latest snapshot's by `linear` or more in a component, or the origin
    /// moved by more than `linear` in a direction whose sine to the line exceeds `linear`: a shift along the
    /// line is no change. False without a snapshot. `second` has no meaning for a line.
    bool checkChanged(double linear, double second) const override;

    VrexVector3DT<double> getOrigin() const { return getVectorParameter(X); }
    void setOrigin(const VrexVector3DT<double>& origin);
    /// Of unit length.
    VrexVector3DT<double> getDirection() const;
    void setDirection(const VrexVector3DT<double>& direction);
    /// The direction of the latest snapshot; empty without one.
    std::optional<VrexVector3DT<double>> getBackupDirection() const;
    /// The rotation that takes `canonicalDirection()` to the direction.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.

private:
    friend class VrexObjectAccess;

    VrexLine3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction);
    VrexLine3D(const VrexLine3D&) = default;
    VrexLine3D& operator=(VrexLine3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
