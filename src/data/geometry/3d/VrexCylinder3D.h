#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

/// A cylinder: kind `CYLINDER`, name prefix "cyl", five degrees of freedom.
///
/// Parameters: slot RADIUS, then X, Y, Z with a point of the axis, POLAR and AZIMUTHAL with the angles of the
/// axis. Lengths are in the model's unit; the radius may be negative. u is the angle about the axis, v the
/// length along it.
class VREX_DATA_EXPORT VrexCylinder3D final : public VrexParametricSurface3D {
public:
    static constexpr int RADIUS = 0;
    static constexpr int X = 1, Y = 2, Z = 3;
    static constexpr int POLAR = 4, AZIMUTHAL = 5;
    static constexpr int PARAMETERS_AMOUNT = 6;
    /// A cylinder without identifier; never null. `direction` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexCylinder3D>
    create(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction, double radius);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the direction left the latest snapshot's by `linear` or more in a component, or the origin
    /// moved across the direction, or the radius changed, by more than `linear`: a shift along the axis is no
    /// change. False without a snapshot. `second` has no meaning for a cylinder.
    bool checkChanged(double linear, double second) const override;
    /// 0 to 2 pi where nothing is trimmed.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    /// -500 to 500 where nothing is trimmed, in the unit of the model.
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override;

    VrexVector3DT<double> getOrigin() const { return getVectorParameter(X); }
    void setOrigin(const VrexVector3DT<double>& origin);
    /// Of unit length.
    VrexVector3DT<double> getDirection() const { return getDirectionParameter(POLAR); }
    /// Takes a vector of any non-zero length.
    void setDirection(const VrexVector3DT<double>& direction);
    double getRadius() const { return getParameter(RADIUS); }
    void setRadius(double radius);
    /// The rotation that takes `canonicalDirection()` to the direction.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.
    /// Whether the solver may turn the radius negative; empty when the application left it open.
    const std::optional<bool>& getAllowRadiusSignChange() const { return m_allowRadiusSignChange; }
    void setAllowRadiusSignChange(std::optional<bool> allow) { m_allowRadiusSignChange = allow; }

private:
    friend class VrexObjectAccess;
    friend class VrexCylinderCalculator3D;

    VrexCylinder3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction,
                   double radius);
    VrexCylinder3D(const VrexCylinder3D&) = default;
    VrexCylinder3D& operator=(VrexCylinder3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<bool> m_allowRadiusSignChange;
};
