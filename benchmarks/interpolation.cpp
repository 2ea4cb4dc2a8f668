// Interpolation of points by a spline against the part of it that cannot be avoided: three decompositions of
// the basis matrix, each with its solution.
//
// Both sides solve one of the three on another thread, and both take the time of all their threads.

#include <cmath>
#include <cstddef>
#include <future>
#include <string>
#include <vector>

#include <Eigen/Dense>
#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "data/geometry/3d/VrexInterpolatedSplineCalculator3D.h"

namespace {

using Points = std::vector<VrexVector3DT<double>>;

constexpr std::size_t DEGREE = 3;

Points makePoints(std::size_t count) {
    Points points;
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 0.1 * static_cast<double>(i);
        points.emplace_back(std::cos(t), std::sin(t), 0.25 * t + 0.1 * std::sin(7.0 * t));
    }
    return points;
}

struct Interpolation {
    explicit Interpolation(const Points& points, bool periodic) {
        VrexInterpolatedSplineCalculator3D::calculate(points, knots, controlPoints, parameters, DEGREE,
                                                      periodic, true);
    }

    std::vector<double> knots;
    Points controlPoints;
    std::vector<double> parameters;
};

/// N(i, k)(t) by the recursion of Cox and de Boor.
double basis(const std::vector<double>& U, std::size_t i, std::size_t k, double t) {
    if (k == 0) {
        return U[i] <= t && t < U[i + 1] ? 1.0 : 0.0;
    }
    const double a = U[i + k] - U[i];
    const double b = U[i + k + 1] - U[i + 1];
    return (a > 0.0 ? (t - U[i]) / a * basis(U, i, k - 1, t) : 0.0) +
           (b > 0.0 ? (U[i + k + 1] - t) / b * basis(U, i + 1, k - 1, t) : 0.0);
}

/// The matrix whose rows are the basis functions at the parameters of an open curve.
Eigen::MatrixXd makeMatrix(const Interpolation& fit) {
    const auto count = static_cast<Eigen::Index>(fit.parameters.size());
    Eigen::MatrixXd matrix(count, count);
    for (Eigen::Index row = 0; row < count; ++row) {
        for (Eigen::Index column = 0; column < count; ++column) {
            matrix(row, column) = basis(fit.knots, static_cast<std::size_t>(column), DEGREE,
                                        fit.parameters[static_cast<std::size_t>(row)]);
        }
    }
    matrix(count - 1, count - 1) = 1.0;
    return matrix;
}

Eigen::VectorXd solve(const Eigen::MatrixXd& matrix, const Eigen::VectorXd& right) {
    return Eigen::CompleteOrthogonalDecomposition<Eigen::MatrixXd>(matrix).solve(right);
}

void registerPeer(const std::string& workload, const Points& points) {
    const Eigen::MatrixXd matrix = makeMatrix(Interpolation(points, false));
    const Eigen::VectorXd right = Eigen::VectorXd::LinSpaced(matrix.rows(), 0.0, 1.0);
    benchmark::RegisterBenchmark((workload + "/peer_decompositions").c_str(), [matrix, right](
                                                                                  benchmark::State& state) {
        for (auto _ : state) {
            auto x = std::async(std::launch::async, solve, matrix, right);
            const Eigen::VectorXd y = solve(matrix, right);
            const Eigen::VectorXd z = solve(matrix, right);
            benchmark::DoNotOptimize(x.get().sum() + y.sum() + z.sum());
        }
    })->MeasureProcessCPUTime();
}

void registerFor(std::size_t count) {
    const std::string workload = "interpolate_" + std::to_string(count);
    const Points points = makePoints(count);
    registerPeer(workload, points);
    for (const bool periodic : {false, true}) {
        benchmark::RegisterBenchmark((workload + (periodic ? "/closed" : "/open")).c_str(),
                                     [points, periodic](benchmark::State& state) {
                                         for (auto _ : state) {
                                             const Interpolation fit(points, periodic);
                                             benchmark::DoNotOptimize(fit.controlPoints.data());
                                         }
                                     })
            ->MeasureProcessCPUTime();
    }
}

} // namespace

int main(int argc, char** argv) {
    registerFor(50);
    registerFor(500);
    return RatioReport::run(argc, argv);
}
