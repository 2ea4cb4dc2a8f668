#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexGeometry3D;
class VrexPoint3D;

/// The length of a curve between two points on it: kind `CurveLength3D`, degree of constraint 0.
///
/// The help parameters are those of the two points on the curve, so both belong to the third geometry.
class VREX_DATA_EXPORT VrexCurveLength3D final : public VrexDimension3D {
public:
    /// Whether all three are there and `curve` is a parametric curve.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                        const std::shared_ptr<VrexPoint3D>& point2,
                                        const std::shared_ptr<VrexGeometry3D>& curve);
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexCurveLength3D>
    create(const std::shared_ptr<VrexPoint3D>& point1, const std::shared_ptr<VrexPoint3D>& point2,
           const std::shared_ptr<VrexGeometry3D>& curve, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpParameterSupported() const override; ///< True.
    /// The curve for `HPARAMU1` and `HPARAMU2`, null for every other index.
    std::shared_ptr<VrexGeometry3D> getGeometryByParameterIndex(std::uint64_t index) const override;

    /// Radians; empty at first. Carried for the solver.
    const std::optional<double>& getWindingAngle() const { return m_windingAngle; }
    void setWindingAngle(std::optional<double> angle) { m_windingAngle = angle; }

private:
    friend class VrexObjectAccess;

    VrexCurveLength3D(const std::shared_ptr<VrexPoint3D>& point1, const std::shared_ptr<VrexPoint3D>& point2,
                      const std::shared_ptr<VrexGeometry3D>& curve, double value);
    VrexCurveLength3D(const VrexCurveLength3D&) = default;
    VrexCurveLength3D& operator=(VrexCurveLength3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::optional<double> m_windingAngle;
};
