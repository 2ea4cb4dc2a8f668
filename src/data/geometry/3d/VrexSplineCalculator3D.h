#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

class VrexSpline3D;

/// Evaluates a spline.
///
/// A parameter of a periodic spline is first reduced to its range. What is computed for each scalar is set up
/// by the first call with it, which fixes degree and periodicity; a spline that changed these needs a new
/// calculator. Knots, weights and points are read in each call. Both `calculate` throw
/// `std::invalid_argument` when knots or control points are missing or null, and for an order above 100000.
class VREX_DATA_EXPORT VrexSplineCalculator3D final : public VrexParametricCurveCalculator3D {
public:
    explicit VrexSplineCalculator3D(const VrexSpline3D& spline);
    VrexSplineCalculator3D(const VrexSplineCalculator3D& other);
    VrexSplineCalculator3D& operator=(const VrexSplineCalculator3D&) = delete;
    ~VrexSplineCalculator3D() override;

    /// The positions of the control points are the `parameters`, three each; the weights are the spline's.
    /// Derivatives above the degree are zero.
    ///
    /// Kept: for a periodic spline the reduced parameter is written back to `t`. `t` may have one derivative
    /// and is taken to be that variable itself, whatever the derivative's value; for more of them
    /// `std::runtime_error` is thrown.
    std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                       const VrexVariable& t, int order) override;
    std::vector<VrexVector3DT<double>> calculate(double t, int order) override;

    const VrexSpline3D& getSpline() const { return m_spline; }

private:
    struct Engines;

    Engines& engines();

    const VrexSpline3D& m_spline;
    std::unique_ptr<Engines> m_engines; ///< Null before the first call.
};
