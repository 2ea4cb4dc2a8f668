#pragma once

#include <cstddef>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"

/// Finds the spline through given points: parameters, knots and control points, all weights being 1.
///
/// Points are Cartesian coordinates; the caller makes point objects of the control points. Parameters run
/// from 0 to n + p for an open curve through n points of degree p, and from p to n + p for a closed one,
/// whose list of parameters ends with that of the first point again.
class VREX_DATA_EXPORT VrexInterpolatedSplineCalculator3D {
public:
    /// Always true. Distances between neighbours space the parameters when `useChordLength` is set, their
    /// square roots otherwise (centripetal).
    ///
    /// The results should come in empty: `parameters` is overwritten, `controlPoints` is appended to, and old
    /// inner knots of an open curve are scaled instead of made. Points that repeat give the solution of least
    /// squares and least norm; when all are equal the knots, and with them the control points, are not
    /// finite. Throws `std::length_error`, nothing changed, unless there are more points than `degree`. One
    /// of the three systems of equations is solved on another thread.
    static bool calculate(const std::vector<VrexVector3DT<double>>& points, std::vector<double>& knots,
                          std::vector<VrexVector3DT<double>>& controlPoints, std::vector<double>& parameters,
                          std::size_t degree, bool periodic, bool useChordLength);

    /// Takes parameters that a caller brings along into `result`, which may be the same list. False, with
    /// `result` untouched, unless these are more than `degree`, never falling, and reach exactly from the
    /// knot at `degree` to the one as far from the end, of (2 + periodic) `degree` + 2 knots at least.
    static bool calculateParameters(const std::vector<double>& parameters, const std::vector<double>& knots,
                                    std::size_t degree, bool periodic, std::vector<double>& result);

private:
    using Points = std::vector<VrexVector3DT<double>>;
    class BasisMatrix;

    static void computeLengths(const Points& points, bool periodic, bool useChordLength,
                               std::vector<double>& lengths);
    static void computeParameters(const Points& points, const std::vector<double>& lengths, bool periodic,
                                  std::size_t degree, std::vector<double>& parameters);
    static void computeKnots(const Points& points, const std::vector<double>& lengths, std::size_t degree,
                             bool periodic, std::vector<double>& knots);
    static void computeControlPoints(const std::vector<double>& knots, std::size_t order,
                                     const std::vector<double>& parameters, const Points& points,
                                     bool periodic, Points& controlPoints);
    /// N(i, p)(t) by the recursion of Cox and de Boor.
    static double computeNURBSBasis(std::size_t i, std::size_t degree, const std::vector<double>& knots,
                                    double t);
    static void computeNURBSBasisMatrix(const std::vector<double>& knots, std::size_t order,
                                        const std::vector<double>& parameters, BasisMatrix& matrix,
                                        bool periodic);
};
