#pragma once

#include <memory>
#include <optional>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// A sphere: kind `SPHERE`, name prefix "s", four degrees of freedom.
///
/// Parameters: slot RADIUS, then X, Y, Z with the centre, lengths in the model's unit.
class VREX_DATA_EXPORT VrexSphere3D final : public VrexGeometry3D {
public:
    static constexpr int RADIUS = 0;
    static constexpr int X = 1, Y = 2, Z = 3;
    static constexpr int PARAMETERS_AMOUNT = 4;
    /// A sphere without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexSphere3D> create(const VrexVector3DT<double>& center,
                                                              double radius);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the centre moved, or the radius changed, by more than `linear` since the latest snapshot;
    /// false without one. `second` has no meaning for a sphere.
    bool checkChanged(double linear, double second) const override;

    VrexVector3DT<double> getCenter() const { return getVectorParameter(X); }
    void setCenter(const VrexVector3DT<double>& center);
    double getRadius() const { return getParameter(RADIUS); }
    void setRadius(double radius);
    /// Whether the solver may turn the radius negative; empty when the application left it open.
    const std::optional<bool>& getAllowRadiusSignChange() const { return m_allowRadiusSignChange; }
    void setAllowRadiusSignChange(std::optional<bool> allow) { m_allowRadiusSignChange = allow; }

private:
    friend class VrexObjectAccess;

    VrexSphere3D(const VrexVector3DT<double>& center, double radius);
    VrexSphere3D(const VrexSphere3D&) = default;
    VrexSphere3D& operator=(VrexSphere3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<bool> m_allowRadiusSignChange;
};
