#include "data/geometry/3d/VrexInterpolatedSplineCalculator3D.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <numeric>
#include <stdexcept>

#include <Eigen/Dense>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCoxDeBoorRow.h"

class VrexInterpolatedSplineCalculator3D::BasisMatrix : public Eigen::MatrixXd {
public:
    double& at(std::size_t row, std::size_t column) {
        return (*this)(static_cast<Eigen::Index>(row), static_cast<Eigen::Index>(column));
    }
};

namespace {

/// Inner knots as sliding means of p neighbouring parameters, after de Boor.
void computeOpenKnots(const std::vector<double>& lengths, std::size_t n, std::size_t p,
                      std::vector<double>& knots) {
    const double L = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const auto range = static_cast<double>(n + p);
    const double pL = static_cast<double>(p) * L;
    const std::size_t m = n - p - 1;
    // Kept: what stands in the list is scaled, which is the range only where nothing stood.
    knots.resize(m, range);
    double S = 0.0;
    double W = 0.0;
    for (std::size_t i = 0; i < p; ++i) {
        S += static_cast<double>(p - i) * lengths[i];
        W += lengths[i];
    }
    for (std::size_t k = 0; k < m; ++k) {
        if (k > 0) {
            W = W - lengths[k - 1] + lengths[k + p - 1];
            S = S + W;
        }
        knots[k] = S / pL * knots[k];
    }
    knots.insert(knots.begin(), p + 1, 0.0);
    knots.insert(knots.end(), p + 1, range);
}

/// Knots at the parameters for an odd degree, in their middles for an even one, going round.
void computePeriodicKnots(const std::vector<double>& lengths, std::size_t n, std::size_t p,
                          std::vector<double>& knots) {
    const double L = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const auto count = static_cast<double>(n);
    knots.resize(n + 2 * p + 1);
    knots[p] = static_cast<double>(p);
    for (std::size_t q = 0; q + 1 < n; ++q) {
        double step = 0.0;
        if (p % 2 != 0) {
            step = lengths[q] / L * count;
        } else {
            step = (q == 0 ? 2.0 * lengths[0] + lengths[1] : lengths[q] + lengths[q + 1]) / (2.0 * L) * count;
        }
        knots[p + 1 + q] = knots[p + q] + step;
    }
    knots[n + p] = static_cast<double>(n + p);
    for (std::size_t i = 0; i < p; ++i) {
        knots[i] = knots[i + n] - count;
    }
    for (std::size_t k = n + p; k < knots.size(); ++k) {
        knots[k] = knots[k - n] + count;
    }
}

bool isSorted(const std::vector<double>& knots) {
    const auto isFalling = [](double a, double b) { return !(a <= b); };
    return std::adjacent_find(knots.begin(), knots.end(), isFalling) == knots.end();
}

struct Columns {
    std::size_t first;
    std::size_t count;
};

/// The columns of the basis matrix, of `count`, whose closed range of knots holds t: all others are 0.
Columns findColumns(const std::vector<double>& knots, std::size_t p, std::size_t count, double t) {
    const auto starts = knots.begin();
    const auto ends = starts + static_cast<std::ptrdiff_t>(p) + 1;
    const auto columns = static_cast<std::ptrdiff_t>(count);
    const auto first = std::lower_bound(ends, ends + columns, t) - ends;
    const auto last = std::upper_bound(starts, starts + columns, t) - starts;
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(std::max(first, last) - first)};
}

Eigen::VectorXd collect(const std::vector<VrexVector3DT<double>>& points, int component) {
    Eigen::VectorXd coordinates(std::ssize(points));
    for (Eigen::Index i = 0; i < coordinates.size(); ++i) {
        coordinates[i] = points[static_cast<std::size_t>(i)][component];
    }
    return coordinates;
}

} // namespace

bool VrexInterpolatedSplineCalculator3D::calculate(const Points& points, std::vector<double>& knots,
                                                   Points& controlPoints, std::vector<double>& parameters,
                                                   std::size_t degree, bool periodic, bool useChordLength) {
    if (points.size() <= degree) {
        VREX_RAISE(std::length_error, "A spline needs more points than its degree.");
    }
    std::vector<double> lengths;
    computeLengths(points, periodic, useChordLength, lengths);
    computeParameters(points, lengths, periodic, degree, parameters);
    computeKnots(points, lengths, degree, periodic, knots);
    computeControlPoints(knots, degree + 1, parameters, points, periodic, controlPoints);
    return true;
}

void VrexInterpolatedSplineCalculator3D::computeLengths(const Points& points, bool periodic,
                                                        bool useChordLength, std::vector<double>& lengths) {
    lengths.clear();
    lengths.reserve(points.size());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        lengths.push_back(points[i].distanceTo(points[i + 1]));
    }
    if (periodic) {
        lengths.push_back(points.front().distanceTo(points.back()));
    }
    if (!useChordLength) {
        std::transform(lengths.begin(), lengths.end(), lengths.begin(),
                       [](double length) { return std::sqrt(length); });
    }
}

void VrexInterpolatedSplineCalculator3D::computeParameters(const Points& points,
                                                           const std::vector<double>& lengths, bool periodic,
                                                           std::size_t degree,
                                                           std::vector<double>& parameters) {
    parameters.resize(lengths.size() + 1);
    parameters[0] = 0.0;
    std::partial_sum(lengths.begin(), lengths.end(), parameters.begin() + 1);
    const double total = parameters.back();
    const auto scale = static_cast<double>(periodic ? points.size() : points.size() + degree);
    const double offset = periodic ? static_cast<double>(degree) : 0.0;
    // Kept: where all points are equal the parameters stay 0, also those of a closed curve.
    if (total > 0.0) {
        for (double& parameter : parameters) {
            parameter = parameter / total * scale + offset;
        }
    }
}

void VrexInterpolatedSplineCalculator3D::computeKnots(const Points& points,
                                                      const std::vector<double>& lengths, std::size_t degree,
                                                      bool periodic, std::vector<double>& knots) {
    if (periodic) {
        computePeriodicKnots(lengths, points.size(), degree, knots);
    } else {
        computeOpenKnots(lengths, points.size(), degree, knots);
    }
}

void VrexInterpolatedSplineCalculator3D::computeControlPoints(const std::vector<double>& knots,
                                                              std::size_t order,
                                                              const std::vector<double>& parameters,
                                                              const Points& points, bool periodic,
                                                              Points& controlPoints) {
    BasisMatrix A;
    computeNURBSBasisMatrix(knots, order, parameters, A, periodic);
    // Kept: three decompositions of one matrix, and copies of all that the task reads, so that the threads
    // share nothing.
    const auto solve = [](const Eigen::MatrixXd& matrix, const Eigen::VectorXd& right) -> Eigen::VectorXd {
        return Eigen::CompleteOrthogonalDecomposition<Eigen::MatrixXd>(matrix).solve(right);
    };
    auto task =
        std::async(std::launch::async | std::launch::deferred, solve, Eigen::MatrixXd(A), collect(points, 0));
    const Eigen::VectorXd Y = solve(A, collect(points, 1));
    const Eigen::VectorXd Z = solve(A, collect(points, 2));
    const Eigen::VectorXd X = task.get();
    controlPoints.reserve(controlPoints.size() + points.size());
    for (Eigen::Index i = 0; i < X.size(); ++i) {
        controlPoints.emplace_back(X[i], Y[i], Z[i]);
    }
}

double VrexInterpolatedSplineCalculator3D::computeNURBSBasis(std::size_t i, std::size_t degree,
                                                             const std::vector<double>& knots, double t) {
    return VrexCoxDeBoorRow().calculate(knots, degree, i, 1, t).front();
}

void VrexInterpolatedSplineCalculator3D::computeNURBSBasisMatrix(const std::vector<double>& knots,
                                                                 std::size_t order,
                                                                 const std::vector<double>& parameters,
                                                                 BasisMatrix& matrix, bool periodic) {
    const std::size_t p = order - 1;
    const std::size_t n = periodic ? parameters.size() - 1 : parameters.size();
    const bool canSkip = isSorted(knots);
    VrexCoxDeBoorRow row;
    matrix.setZero(static_cast<Eigen::Index>(n), static_cast<Eigen::Index>(n));
    for (std::size_t r = 0; r < n; ++r) {
        const double t = parameters[r];
        const Columns columns = canSkip ? findColumns(knots, p, n, t) : Columns{0, n};
        const auto& functions = row.calculate(knots, p, columns.first, columns.count, t);
        for (std::size_t c = 0; c < columns.count; ++c) {
            matrix.at(r, columns.first + c) = functions[c];
        }
        // The first functions of a closed curve reach in again behind the last.
        for (std::size_t k = 0; periodic && k + n + 1 <= r + p; ++k) {
            matrix.at(r, k) = computeNURBSBasis(n + k, p, knots, t);
        }
    }
    if (!periodic) {
        matrix.at(n - 1, n - 1) = 1.0; // the basis is half open at the end of its range
    }
}

bool VrexInterpolatedSplineCalculator3D::calculateParameters(const std::vector<double>& parameters,
                                                             const std::vector<double>& knots,
                                                             std::size_t degree, bool periodic,
                                                             std::vector<double>& result) {
    const std::size_t ends = periodic ? 3 : 2;
    if (parameters.size() <= degree || knots.size() < ends * degree + 2) {
        return false;
    }
    const bool isInRange =
        parameters.front() == knots[degree] && parameters.back() == knots[knots.size() - degree - 1];
    if (!isInRange || !isSorted(parameters)) {
        return false;
    }
    if (&result != &parameters) {
        result = parameters;
    }
    return true;
}
