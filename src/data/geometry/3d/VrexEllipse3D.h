#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"

/// An ellipse in space: kind `ELLIPSE`, name prefix "el", eight degrees of freedom.
///
/// Parameters: slots R1 and R2 hold the major and the minor radius, X, Y, Z the centre, SCALAR, I, J, K a
/// quaternion, which also says which way the major radius lies. Radii are taken as given: either may be the
/// larger one, or negative.
class VREX_DATA_EXPORT VrexEllipse3D final : public VrexParametricCurve3D {
public:
    static constexpr int R1 = 0, R2 = 1;
    static constexpr int X = 2, Y = 3, Z = 4;
    static constexpr int SCALAR = 5, I = 6, J = 7, K = 8;
    static constexpr int PARAMETERS_AMOUNT = 9;
    /// An ellipse without identifier; never null. `direction`, of the major radius, and `normal` may have any
    /// length above 1e-06 and should stand at a right angle; nothing is checked, and whatever rotation they
    /// give is stored.
    [[nodiscard]] static std::shared_ptr<VrexEllipse3D> create(const VrexVector3DT<double>& center,
                                                               const VrexVector3DT<double>& direction,
                                                               const VrexVector3DT<double>& normal,
                                                               double majorRadius, double minorRadius);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the normal or the direction left the latest snapshot's by `angular` or more in a component,
    /// or the centre moved, or a radius changed, by more than `linear`; false without a snapshot.
    bool checkChanged(double linear, double angular) const override;
    /// 0 to 2 pi where nothing is trimmed.
    std::pair<std::optional<double>, std::optional<double>> interval() const override;

    VrexVector3DT<double> getCenter() const { return getVectorParameter(X); }
    void setCenter(const VrexVector3DT<double>& center);
    double getMajorRadius() const { return getParameter(R1); }
    void setMajorRadius(double majorRadius);
    double getMinorRadius() const { return getParameter(R2); }
    void setMinorRadius(double minorRadius);
    /// The rotation that takes `canonicalDirection()` to the direction and `canonicalNormal()` to the normal.
    VrexQuaternionT<double> getRotation() const { return getRotationParameter(SCALAR); }
    /// False, and nothing changed, unless the norm of `rotation` is 1 within 1e-06.
    bool setRotation(const VrexQuaternionT<double>& rotation);
    /// Takes vectors of any length above 1e-06. False, and nothing changed, unless they stand at a right
    /// angle within 1e-06.
    bool setRotation(const VrexVector3DT<double>& direction, const VrexVector3DT<double>& normal);
    VrexVector3DT<double> getDirection() const; ///< The way of the major radius.
    VrexVector3DT<double> getNormal() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The X axis.
    static VrexVector3DT<double> canonicalNormal();    ///< The Z axis.
    /// Whether the solver may turn a radius negative; empty when the application left it open.
    const std::optional<bool>& getAllowRadiusSignChange() const { return m_allowRadiusSignChange; }
    void setAllowRadiusSignChange(std::optional<bool> allow) { m_allowRadiusSignChange = allow; }

private:
    friend class VrexObjectAccess;

    VrexEllipse3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& direction,
                  const VrexVector3DT<double>& normal, double majorRadius, double minorRadius);
    VrexEllipse3D(const VrexEllipse3D&) = default;
    VrexEllipse3D& operator=(VrexEllipse3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<bool> m_allowRadiusSignChange;
};
