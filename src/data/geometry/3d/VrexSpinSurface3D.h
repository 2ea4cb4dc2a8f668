#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

/// A curve revolved about a line: kind `SPIN_SURFACE`, name prefix "spin".
///
/// U runs along the profile curve, V is the angle about the axis line in radians. The surface has no
/// parameters of its own: they are those of the profile, then those of the line. It shares the ownership of
/// both.
class VREX_DATA_EXPORT VrexSpinSurface3D final : public VrexParametricSurface3D {
public:
    static constexpr int PARAMETERS_AMOUNT = 0;
    /// A surface without identifier; never null. A null stands for something yet to be set: it has no
    /// freedoms, and the surface cannot be evaluated.
    [[nodiscard]] static std::shared_ptr<VrexSpinSurface3D>
    create(std::shared_ptr<VrexParametricCurve3D> profileCurve, std::shared_ptr<VrexLine3D> axisLine);

    ~VrexSpinSurface3D() override;
    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override; ///< Those of the profile and of the line.
    /// The profile, then the line.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when the profile or the line is another object than in the latest snapshot, or the change status
    /// of either is `Changed`; false without a snapshot. The tolerances have no meaning here: how much either
    /// changed is for whoever sets its status to say.
    bool checkChanged(double first, double second) const override;
    /// That of the profile; the trim of the surface plays no part.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    /// From 0 to 2 pi where not trimmed.
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override;

    const std::shared_ptr<VrexParametricCurve3D>& getProfileCurve() const { return m_profileCurve; }
    void setProfileCurve(std::shared_ptr<VrexParametricCurve3D> profileCurve);
    const std::shared_ptr<VrexLine3D>& getAxisLine() const { return m_axisLine; }
    void setAxisLine(std::shared_ptr<VrexLine3D> axisLine);

private:
    friend class VrexObjectAccess;

    VrexSpinSurface3D(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                      std::shared_ptr<VrexLine3D> axisLine);
    VrexSpinSurface3D(const VrexSpinSurface3D&) = default;
    VrexSpinSurface3D& operator=(VrexSpinSurface3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps profile and line.
    void doUpdateFrom(const VrexBaseObject& other) override;

    std::shared_ptr<VrexParametricCurve3D> m_profileCurve;
    std::shared_ptr<VrexLine3D> m_axisLine;
};
