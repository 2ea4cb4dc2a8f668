#pragma once

#include <array>
#include <cstdint>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"

/// A 4 by 4 matrix of doubles for column vectors, row by row, with the translation in column 3 of rows 0 to
/// 2; the identity by default. A plain value: nothing is checked.
class VREX_DATA_EXPORT VrexTransformMatrix3D {
public:
    using Row = std::array<double, 4>;
    using Rows = std::array<Row, 4>;

    VrexTransformMatrix3D();
    explicit VrexTransformMatrix3D(const Rows& rows);

    /// The rotation by `q`, which has to be of unit length.
    static VrexTransformMatrix3D makeFromQuaternion(const VrexQuaternionT<double>& q);
    /// The translation by `v`.
    static VrexTransformMatrix3D translate(const VrexVector3DT<double>& v);

    const Rows& transformation() const { return m_transformation; }
    Rows& transformation() { return m_transformation; }
    /// A row, 0 to 3.
    const Row& operator[](std::uint64_t row) const { return m_transformation[row]; }
    Row& operator[](std::uint64_t row) { return m_transformation[row]; }

    /// True when all sixteen numbers are exactly equal; so never with a NaN among them.
    bool operator==(const VrexTransformMatrix3D& o) const { return m_transformation == o.m_transformation; }
    VrexTransformMatrix3D operator*(const VrexTransformMatrix3D& o) const;
    Row operator*(const Row& column) const;

    /// True when row 3 is (0, 0, 0, 1), each number within 1e-6; the other rows are not examined.
    bool isTransformMatrix() const;
    /// The inverse of a rigid motion. A matrix with scale or shear gives a wrong result without a report.
    VrexTransformMatrix3D getInverseMatrix() const;
    /// The rotation of the upper 3 by 3 block, which has to be a rotation. The translation plays no part.
    VrexQuaternionT<double> toQuaternion() const;

private:
    Rows m_transformation;
};
