#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexCurveProperty3DType.h"

class VrexGeometry3D;

/// A property that two curves have in common where they meet: kind `EqualDirection3D`, `EqualCurvature3D`,
/// `EqualFirstDerivative3D`, `EqualSecondDerivative3D` or `EqualCurvatureDerivative3D`, degree of
/// constraint 1.
///
/// The places are the help parameters.
class VREX_DATA_EXPORT VrexEqualCurveProperty3D final : public VrexConstraint3D {
public:
    /// Whether both are there and are parametric curves; beside a line or a circle only the other one has to
    /// be.
    ///
    /// Kept: where the first is a line or a circle, the second is the one that is asked, so that a line
    /// beside a circle will do and a circle beside a line will not.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                        const std::shared_ptr<VrexGeometry3D>& geometry2);
    /// A constraint without identifier; never null. Null geometries are stored as given, and so is a property
    /// beyond the five, which gives the kind `Unknown`.
    [[nodiscard]] static std::shared_ptr<VrexEqualCurveProperty3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           VrexCurveProperty3DType property);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpParameterSupported() const override; ///< True.

    VrexCurveProperty3DType getCurveProperty() const { return m_property; }

private:
    friend class VrexObjectAccess;

    VrexEqualCurveProperty3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                             const std::shared_ptr<VrexGeometry3D>& geometry2,
                             VrexCurveProperty3DType property);
    VrexEqualCurveProperty3D(const VrexEqualCurveProperty3D&) = default;
    VrexEqualCurveProperty3D& operator=(VrexEqualCurveProperty3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    static VrexConstraint3DType convertToType(VrexCurveProperty3DType property);

    VrexCurveProperty3DType m_property;
};
