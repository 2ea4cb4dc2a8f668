#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

/// A torus: kind `TORUS`, name prefix "tor", seven degrees of freedom.
///
/// Parameters: slots MAJOR_RAD and MINOR_RAD hold the radii of the spine and of the tube about it, X, Y, Z
/// the centre, POLAR and AZIMUTHAL the angles of the normal. Radii are taken as given. u is the angle about
/// the normal, v the angle around the tube.
class VREX_DATA_EXPORT VrexTorus3D final : public VrexParametricSurface3D {
public:
    static constexpr int MAJOR_RAD = 0, MINOR_RAD = 1;
    static constexpr int X = 2, Y = 3, Z = 4;
    static constexpr int POLAR = 5, AZIMUTHAL = 6;
    static constexpr int PARAMETERS_AMOUNT = 7;
    /// A torus without identifier; never null. `normal` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexTorus3D> create(const VrexVector3DT<double>& center,
                                                             const VrexVector3DT<double>& normal,
                                                             double majorRadius, double minorRadius);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the normal left the latest snapshot's by `linear` or more in a component, or the centre
    /// moved, or a radius changed, by more than `linear`; false without a snapshot. `second` has no meaning
    /// for a torus.
    bool checkChanged(double linear, double second) const override;
    /// 0 to 2 pi where nothing is trimmed.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    /// The same.
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override;

    VrexVector3DT<double> getCenter() const { return getVectorParameter(X); }
    void setCenter(const VrexVector3DT<double>& center);
    /// Of unit length.
    VrexVector3DT<double> getNormal() const { return getDirectionParameter(POLAR); }
    /// Takes a vector of any non-zero length.
    void setNormal(const VrexVector3DT<double>& normal);
    double getMajorRadius() const { return getParameter(MAJOR_RAD); }
    void setMajorRadius(double majorRadius);
    double getMinorRadius() const { return getParameter(MINOR_RAD); }
    void setMinorRadius(double minorRadius);
    /// The rotation that takes `canonicalDirection()` to the normal.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.
    /// Whether the solver may turn a radius negative; empty when the application left it open.
    const std::optional<bool>& getAllowRadiusSignChange() const { return m_allowRadiusSignChange; }
    void setAllowRadiusSignChange(std::optional<bool> allow) { m_allowRadiusSignChange = allow; }

private:
    friend class VrexObjectAccess;
    friend class VrexTorusCalculator3D;

    VrexTorus3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& normal, double majorRadius,
                double minorRadius);
    VrexTorus3D(const VrexTorus3D&) = default;
    VrexTorus3D& operator=(VrexTorus3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<bool> m_allowRadiusSignChange;
};
