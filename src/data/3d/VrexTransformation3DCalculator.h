#pragma once

#include "data/VrexExport.h"
#include "data/VrexTransformation3DT.h"

class VrexGeometry3D;

/// Finds the rigid motion that carries one entity onto another of its kind.
///
/// An entity with a frame (connector, ellipse, evaluated curve or surface) is carried frame onto frame. One
/// with a single direction leaves the turn about it open: the shortest rotation is taken, and a half turn
/// about the X axis where it can be. Points and spheres are only translated. Shapes that other entities give
/// (splines, NURBS, spin and sweep surfaces) are not looked at: the result is no motion, however they differ.
class VREX_DATA_EXPORT VrexTransformation3DCalculator {
public:
    /// The motion from `a` onto `b`, radii and other sizes apart. `tolerance` is that of
    /// `VrexQuaternionT::makeRotation`. Throws `std::runtime_error` "VrexTransformation3DCalculatorVisitor:
    /// geometry not handled" for a set, a pattern or a shared value, and where the kinds differ.
    VrexTransformation3DT<double> operator()(const VrexGeometry3D& a, const VrexGeometry3D& b,
                                             double tolerance) const;
};
