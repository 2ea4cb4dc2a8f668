#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"

/// A circle in space: kind `CIRCLE`, name prefix "r", six degrees of freedom.
///
/// Parameters: slot RADIUS, then X, Y, Z with the centre, POLAR and AZIMUTHAL with the angles of the normal.
/// Lengths are in the model's unit; the radius may be negative.
class VREX_DATA_EXPORT VrexCircle3D final : public VrexParametricCurve3D {
public:
    static constexpr int RADIUS = 0;
    static constexpr int X = 1, Y = 2, Z = 3;
    static constexpr int POLAR = 4, AZIMUTHAL = 5;
    static constexpr int PARAMETERS_AMOUNT = 6;
    /// A circle without identifier; never null. `normal` may have any non-zero length.
    [[nodiscard]] static std::shared_ptr<VrexCircle3D>
    create(const VrexVector3DT<double>& center, const VrexVector3DT<double>& normal, double radius);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the normal left the latest snapshot's by `linear` or more in a component, or the centre
    /// moved, or the radius changed, by more than `linear`; false without a snapshot. `second` has no meaning
    /// for a circle.
    bool checkChanged(double linear, double second) const override;
    /// 0 to 2 pi where nothing is trimmed.
    std::pair<std::optional<double>, std::optional<double>> interval() const override;

    VrexVector3DT<double> getCenter() const { return getVectorParameter(X); }
    void setCenter(const VrexVector3DT<double>& center);
    /// Of unit length.
    VrexVector3DT<double> getNormal() const { return getDirectionParameter(POLAR); }
    /// Takes a vector of any non-zero length.
    void setNormal(const VrexVector3DT<double>& normal);
    double getRadius() const { return getParameter(RADIUS); }
    void setRadius(double radius);
    /// The rotation that takes `canonicalDirection()` to the normal.
    VrexQuaternionT<double> getRotation() const;
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.
    /// Whether the solver may turn the radius negative; empty when the application left it open.
    const std::optional<bool>& getAllowRadiusSignChange() const { return m_allowRadiusSignChange; }
    void setAllowRadiusSignChange(std::optional<bool> allow) { m_allowRadiusSignChange = allow; }

private:
    friend class VrexObjectAccess;
    friend class VrexCircleCalculator3D;

    VrexCircle3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& normal, double radius);
    VrexCircle3D(const VrexCircle3D&) = default;
    VrexCircle3D& operator=(VrexCircle3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<bool> m_allowRadiusSignChange;
};
