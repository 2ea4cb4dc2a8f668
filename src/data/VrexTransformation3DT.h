#pragma once

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/VrexVector3DT.h"

/// A motion of space over `double` or `VrexVariable`: rotate by a quaternion, then translate. No motion by
/// default. The rotation is kept as given, not normalised; angles are radians; nothing is checked.
template <typename T>
class VREX_DATA_EXPORT VrexTransformation3DT {
public:
    using Scalar = T;
    using Vector = VrexVector3DT<T>;
    using Quaternion = VrexQuaternionT<T>;

    VrexTransformation3DT();
    VrexTransformation3DT(const Vector& translation, const Quaternion& rotation);
    /// Rotates by `angle` about `axis`, which need not be a unit vector; one of magnitude 1e-6 or
    /// less counts as zero.
    VrexTransformation3DT(const Vector& translation, const T& angle, const Vector& axis);
    VrexTransformation3DT(const T& angle, const Vector& axis);
    /// Rotates by the quaternion w + x i + y j + z k, taken as it is.
    VrexTransformation3DT(const Vector& translation, const T& w, const T& x, const T& y, const T& z);
    /// The motion of a rigid matrix; see VrexTransformMatrix3D::toQuaternion.
    explicit VrexTransformation3DT(const VrexTransformMatrix3D& matrix);

    const Vector& getTranslation() const { return m_translation; }
    void setTranslation(const Vector& translation) { m_translation = translation; }
    const Quaternion& getRotation() const { return m_rotation; }
    void setRotation(const Quaternion& rotation) { m_rotation = rotation; }
    /// The rotation by `angle` about `axis`, which need not be a unit vector; one of magnitude 1e-6 or
    /// less counts as zero.
    void setRotation(const T& angle, const Vector& axis);
    /// The angle of the rotation, in [0, 2 pi].
    T getAngle() const;
    /// The unit axis of the rotation; the X axis when its vector is not longer than 1e-10.
    Vector getAxis() const;

    /// The motion back. A rotation that is not of unit length is turned back by its conjugate, as it is.
    VrexTransformation3DT getInversed() const;
    /// Moves by `o` first, then by this. The rotation of the result is of unit length.
    VrexTransformation3DT operator*(const VrexTransformation3DT& o) const;
    /// True when translations and vectors of the rotations differ by less than `eps1` in each component, and
    /// the scalars of the rotations by less than `eps2`. The stored numbers are compared: q and -q differ.
    bool isEqual(const VrexTransformation3DT& o, double eps1, double eps2) const;

private:
    Vector m_translation;
    Quaternion m_rotation;
};

extern template class VrexTransformation3DT<double>;
extern template class VrexTransformation3DT<VrexVariable>;
