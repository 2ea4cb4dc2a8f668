#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

/// A cone: kind `CONE`, name prefix "cone", six degrees of freedom.
///
/// Parameters: slot ALPHA holds the aperture, the angle between the axis and the surface in radians, X, Y, Z
/// the apex, POLAR and AZIMUTHAL the angles of the axis. u is the angle about the axis, v the length from the
/// apex along the surface.
class VREX_DATA_EXPORT VrexCone3D final : public VrexParametricSurface3D {
public:
    static constexpr int ALPHA = 0;
    static constexpr int X = 1, Y = 2, Z = 3;
    static constexpr int POLAR = 4, AZIMUTHAL = 5;
    static constexpr int PARAMETERS_AMOUNT = 6;
    /// A cone without identifier, its apex at `origin`; never null. `direction` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexCone3D>
    create(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction, double aperture);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the direction left the latest snapshot's by `linear` or more in a component, or the apex
    /// moved by more than `linear`, or the aperture changed by more than `angular`; false without a snapshot.
    bool checkChanged(double linear, double angular) const override;
    /// 0 to 2 pi where nothing is trimmed.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    /// From 0, whatever `startV()` holds, to `endV()`, which may be empty: a cone has no natural end.
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override;

    VrexVector3DT<double> getOrigin() const { return getVectorParameter(X); }
    void setOrigin(const VrexVector3DT<double>& origin);
    /// Of unit length.
    VrexVector3DT<double> getDirection() const { return getDirectionParameter(POLAR); }
    /// Takes a vector of any non-zero length.
    void setDirection(const VrexVector3DT<double>& direction);
    double getAperture() const { return getParameter(ALPHA); }
    /// Stores the angle less whole turns, in [-pi, pi).
    void setAperture(double aperture);
    /// The rotation that takes `canonicalDirection()` to the direction.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.

private:
    friend class VrexObjectAccess;
    friend class VrexConeCalculator3D;

    VrexCone3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction, double aperture);
    VrexCone3D(const VrexCone3D&) = default;
    VrexCone3D& operator=(VrexCone3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
