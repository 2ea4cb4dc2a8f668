#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

/// A curve drawn along the direction of a line: kind `SWEEP_SURFACE`, name prefix "sweep".
///
/// U runs along the profile curve, V is the length along the line's direction; where the line stands plays no
/// part, and at V = 0 the surface is its profile. The surface has no parameters of its own: they are those of
/// the profile, then those of the line. It shares the ownership of both.
class VREX_DATA_EXPORT VrexSweepSurface3D final : public VrexParametricSurface3D {
public:
    static constexpr int PARAMETERS_AMOUNT = 0;
    /// A surface without identifier; never null. `range` trims V, an empty end leaves it open. A null stands
    /// for something yet to be set: it has no freedoms, and the surface cannot be evaluated.
    [[nodiscard]] static std::shared_ptr<VrexSweepSurface3D>
    create(std::shared_ptr<VrexParametricCurve3D> profileCurve, std::shared_ptr<VrexLine3D> trajectoryLine,
           const std::pair<std::optional<double>, std::optional<double>>& range);

    ~VrexSweepSurface3D() override;
    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override; ///< Those of the profile and of the line.
    /// The profile, then the line.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when the direction of the line left, by `first` or more in a component, that of the snapshot of
    /// the line which the surface's own snapshot holds; or the profile is another object than in the
    /// surface's snapshot, or its change status is `Changed`. `second` has no meaning here.
    /// Kept: false whatever else changed as long as that line has no snapshot of its own.
    bool checkChanged(double first, double second) const override;
    /// That of the profile; the trim of the surface plays no part.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    /// The trim as it stands: either end may be empty.
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override;

    const std::shared_ptr<VrexParametricCurve3D>& getProfileCurve() const { return m_profileCurve; }
    void setProfileCurve(std::shared_ptr<VrexParametricCurve3D> profileCurve);
    const std::shared_ptr<VrexLine3D>& getTrajectoryLine() const { return m_trajectoryLine; }
    void setTrajectoryLine(std::shared_ptr<VrexLine3D> trajectoryLine);

private:
    friend class VrexObjectAccess;

    VrexSweepSurface3D(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                       std::shared_ptr<VrexLine3D> trajectoryLine,
                       const std::pair<std::optional<double>, std::optional<double>>& range);
    VrexSweepSurface3D(const VrexSweepSurface3D&) = default;
    VrexSweepSurface3D& operator=(VrexSweepSurface3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps profile and line.
    void doUpdateFrom(const VrexBaseObject& other) override;

    std::shared_ptr<VrexParametricCurve3D> m_profileCurve;
    std::shared_ptr<VrexLine3D> m_trajectoryLine;
};
