#pragma once

#include <tuple>

#include "data/VrexVector3DT.h"

/// The axes X, Y and Z of an entity that keeps its axis Z as a polar and an azimuthal angle: those of space,
/// carried along by the shortest rotation that takes the Z axis there. `T` is `double` or `VrexVariable`.
template <typename T>
class VrexAxisFrame3D {
public:
    VrexAxisFrame3D(const T& polar, const T& azimuthal)
        : VrexAxisFrame3D(VrexVector3DT<T>::getRotatedBasisVectors(polar, azimuthal)) {}

    /// c_x X + c_y Y + c_z Z, summed from left to right. A coefficient of zero counts too: the result depends
    /// on all three axes.
    VrexVector3DT<T> combine(const VrexVector3DT<T>& coefficients) const {
        return {m_rowX.dotProduct(coefficients), m_rowY.dotProduct(coefficients),
                m_rowZ.dotProduct(coefficients)};
    }

private:
    using Axes = std::tuple<VrexVector3DT<T>, VrexVector3DT<T>, VrexVector3DT<T>>;

    explicit VrexAxisFrame3D(const Axes& axes)
        : m_rowX(std::get<0>(axes).x(), std::get<1>(axes).x(), std::get<2>(axes).x()),
          m_rowY(std::get<0>(axes).y(), std::get<1>(axes).y(), std::get<2>(axes).y()),
          m_rowZ(std::get<0>(axes).z(), std::get<1>(axes).z(), std::get<2>(axes).z()) {}

    // The same component of all three axes, so that a sum of multiples is a dot product, which is one step
    // for differentiable numbers.
    VrexVector3DT<T> m_rowX;
    VrexVector3DT<T> m_rowY;
    VrexVector3DT<T> m_rowZ;
};
