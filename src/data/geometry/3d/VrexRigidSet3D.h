#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometrySet3D.h"

/// A group of entities that moves as one body: kind `RIGID_SET`, name prefix "rs", six degrees of freedom.
///
/// Parameters: slots X, Y, Z hold the body's origin, SCALAR, I, J, K its orientation, a unit quaternion. A
/// new set stands at the origin of space, not turned, wherever its members are. Angles are in radians.
class VREX_DATA_EXPORT VrexRigidSet3D final : public VrexGeometrySet3D {
public:
    static constexpr int PARAMETERS_AMOUNT = 7;
    /// A set without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexRigidSet3D>
    create(std::vector<std::shared_ptr<VrexGeometry3D>> members);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the origin left the latest snapshot's by `linear` or more in a component, or the angle of
    /// the rotation did by `angular` or more, so always for an `angular` of 0, or the axis did by `linear` or
    /// more where the angle is at least `angular`. False without a snapshot. The members play no part.
    bool checkChanged(double linear, double angular) const override;

    VrexVector3DT<double> getOrigin() const { return getVectorParameter(X); }
    void setOrigin(const VrexVector3DT<double>& origin);
    VrexQuaternionT<double> getRotation() const { return getRotationParameter(SCALAR); }
    /// False, and nothing stored, unless the norm of `rotation` is 1 within 1e-06.
    bool setRotation(const VrexQuaternionT<double>& rotation);
    /// The rotation that takes the canonical direction and normal to these, which may have any length above
    /// 1e-06. False, and nothing stored, unless they stand at a right angle within 1e-06.
    bool setRotation(const VrexVector3DT<double>& direction, const VrexVector3DT<double>& normal);
    /// False, and nothing stored, for an angle above 1e-06 about an axis shorter than 1e-06.
    bool setRotation(double angle, const VrexVector3DT<double>& axis);
    double getAngle() const; ///< Of the rotation, in [0, 2 pi].
    /// The unit axis of the rotation; the X axis when there is none.
    VrexVector3DT<double> getAxis() const;
    VrexVector3DT<double> getDirection() const;        ///< The canonical direction, turned.
    VrexVector3DT<double> getNormal() const;           ///< The canonical normal, turned.
    static VrexVector3DT<double> canonicalDirection(); ///< The X axis.
    static VrexVector3DT<double> canonicalNormal();    ///< The Z axis.
    VrexTransformation3DT<double> getTransformation() const;
    /// Takes the translation as the origin, then the rotation as `setRotation` does.
    /// Kept: where that refuses, the origin has moved all the same.
    bool setTransformation(const VrexTransformation3DT<double>& transformation);

private:
    friend class VrexObjectAccess;

    explicit VrexRigidSet3D(std::vector<std::shared_ptr<VrexGeometry3D>> members);
    VrexRigidSet3D(const VrexRigidSet3D&) = default;
    VrexRigidSet3D& operator=(VrexRigidSet3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
