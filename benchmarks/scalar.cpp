// The differentiable scalar against automatic differentiation with dense derivatives.
//
// Each workload is one template over the scalar, run on values and derivatives of independent inputs, so that
// all sides do the same work in the same words, in this one file and with the same flags. Inputs pass through
// the benchmark library before each run, and results after it, so that nothing is known to the compiler on
// any side. ceres::Jet is the peer where its headers are installed; Eigen's AutoDiffScalar has derivatives of
// dynamic size, as this library has. Eigen evaluates an expression without names for its parts as a whole.

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include <Eigen/Core>
#include <benchmark/benchmark.h>
#include <unsupported/Eigen/AutoDiff>
#ifdef VREX_HAS_CERES
#include <ceres/jet.h>
#endif

#include "RatioReport.h"
#include "Workload.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"

namespace {

using Dynamic = Eigen::AutoDiffScalar<Eigen::VectorXd>;

template <typename T>
using Values = std::vector<T>;

double inputOf(std::size_t i) {
    return 0.3 + 0.07 * static_cast<double>(i % 11) + 0.01 * static_cast<double>(i);
}

Values<VrexVariable> variables(std::size_t count) {
    Values<VrexVariable> inputs;
    for (std::size_t i = 0; i < count; ++i) {
        inputs.emplace_back(inputOf(i));
    }
    VrexVariable::initializeDerivatives(inputs);
    return inputs;
}

Values<Dynamic> dynamics(std::size_t count) {
    Values<Dynamic> inputs;
    for (std::size_t i = 0; i < count; ++i) {
        inputs.emplace_back(inputOf(i), static_cast<Eigen::Index>(count), static_cast<Eigen::Index>(i));
    }
    return inputs;
}

#ifdef VREX_HAS_CERES
template <int Count>
Values<ceres::Jet<double, Count>> jets() {
    Values<ceres::Jet<double, Count>> inputs;
    for (int i = 0; i < Count; ++i) {
        inputs.emplace_back(inputOf(static_cast<std::size_t>(i)), i);
    }
    return inputs;
}
#endif

template <typename T>
struct Quaternion {
    T w, x, y, z;
};

template <typename T>
Quaternion<T> product(const Quaternion<T>& a, const Quaternion<T>& b) {
    return {T(a.w * b.w - (a.x * b.x + a.y * b.y + a.z * b.z)),
            T(b.x * a.w + a.x * b.w + (a.y * b.z - b.y * a.z)),
            T(b.y * a.w + a.y * b.w + (b.x * a.z - a.x * b.z)),
            T(b.z * a.w + a.z * b.w + (a.x * b.y - b.x * a.y))};
}

/// q * p * conjugate(q) with a point p as quaternion without scalar part.
template <typename T>
Quaternion<T> rotated(const Quaternion<T>& q, const T& x, const T& y, const T& z) {
    const Quaternion<T> point{T(0.0), x, y, z};
    const Quaternion<T> conjugate{q.w, T(-q.x), T(-q.y), T(-q.z)};
    return product(product(q, point), conjugate);
}

/// Two quaternions and two points, fourteen inputs.
template <typename T>
T rotatedDistance(const Values<T>& v) {
    const Quaternion<T> a = rotated(Quaternion<T>{v[0], v[1], v[2], v[3]}, v[4], v[5], v[6]);
    const Quaternion<T> b = rotated(Quaternion<T>{v[7], v[8], v[9], v[10]}, v[11], v[12], v[13]);
    const T dx = a.x - b.x;
    const T dy = a.y - b.y;
    const T dz = a.z - b.z;
    return dx * dx + dy * dy + dz * dz;
}

/// The norm of the weighted sum of twenty points, sixty inputs.
template <typename T>
T weightedNorm(const Values<T>& v) {
    using std::sqrt;
    T x = 1.5 * v[0];
    T y = 1.5 * v[1];
    T z = 1.5 * v[2];
    for (std::size_t i = 3; i < v.size(); i += 3) {
        const double weight = 1.0 + 0.1 * static_cast<double>(i);
        x += weight * v[i];
        y += weight * v[i + 1];
        z += weight * v[i + 2];
    }
    return sqrt(x * x + y * y + z * z);
}

/// The weighted sum of the norms of twenty points.
template <typename T>
T sumOfNorms(const Values<T>& v) {
    using std::sqrt;
    T sum(0.0);
    for (std::size_t i = 0; i < v.size(); i += 3) {
        const double weight = 1.0 + 0.1 * static_cast<double>(i);
        sum += weight * sqrt(v[i] * v[i] + v[i + 1] * v[i + 1] + v[i + 2] * v[i + 2]);
    }
    return sum;
}

/// The norm of twenty weighted points as one vector of sixty components.
template <typename T>
T weightedNormOfAll(const Values<T>& v) {
    using std::sqrt;
    T sum = v[0] * v[0];
    for (std::size_t i = 1; i < v.size(); ++i) {
        const std::size_t point = i / 3;
        const double weight = 1.0 + 0.1 * static_cast<double>(point);
        const T component = weight * v[i];
        sum += component * component;
    }
    return sqrt(sum);
}

/// Three inputs, as an equation of a model has it.
template <typename T>
T smallExpression(const Values<T>& v) {
    using std::cos;
    using std::sin;
    using std::sqrt;
    const T& x = v[0];
    const T& y = v[1];
    const T& z = v[2];
    return x * x + 3.0 * sin(y) - sqrt(x * y + 1.0) / (2.0 + cos(z));
}

/// Three inputs, arithmetic alone.
template <typename T>
T smallPolynomial(const Values<T>& v) {
    const T sum = v[0] * v[1] + v[2] * v[0];
    const T ratio = (sum - v[1]) / (v[2] * v[2] + 1.5);
    return ratio * ratio + sum * 0.5 - v[1] * ratio;
}

/// The workloads above through the library's own quaternions and vectors.
VrexVariable rotatedDistanceByVectors(const Values<VrexVariable>& v) {
    using Quaternion3D = VrexQuaternionT<VrexVariable>;
    const auto a = Quaternion3D::rotate(
        {v[4], v[5], v[6]}, Quaternion3D::makeFromScalarAndVector(v[0], {v[1], v[2], v[3]}), false);
    const auto b = Quaternion3D::rotate(
        {v[11], v[12], v[13]}, Quaternion3D::makeFromScalarAndVector(v[7], {v[8], v[9], v[10]}), false);
    return (a - b).magnitudeSquared();
}

VrexVariable weightedNormByVectors(const Values<VrexVariable>& v) {
    using Vector = VrexVector3DT<VrexVariable>;
    Vector sum = Vector(v[0], v[1], v[2]) * 1.5;
    for (std::size_t i = 3; i < v.size(); i += 3) {
        const double weight = 1.0 + 0.1 * static_cast<double>(i);
        sum += Vector(v[i], v[i + 1], v[i + 2]) * weight;
    }
    return sum.magnitude();
}

double valueOf(const VrexVariable& number) { return number.value(); }
template <typename T>
double valueOf(const T& number) {
    if constexpr (requires { number.a; }) {
        return number.a;
    } else {
        return number.value();
    }
}

template <typename T, typename Function>
void measure(const char* name, Values<T> inputs, Function function) {
    expectSameValue(name, valueOf(function(inputs)));
    benchmark::RegisterBenchmark(name, [inputs = std::move(inputs), function](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(inputs.data());
            benchmark::ClobberMemory();
            T result = function(inputs);
            benchmark::DoNotOptimize(&result);
            benchmark::ClobberMemory();
        }
    });
}

void registerAll() {
#ifdef VREX_HAS_CERES
    measure("rotated_distance/peer_jet14", jets<14>(), [](const auto& v) { return rotatedDistance(v); });
    measure("weighted_norm/peer_jet60", jets<60>(), [](const auto& v) { return weightedNorm(v); });
    measure("weighted_norm_of_all/peer_jet60", jets<60>(),
            [](const auto& v) { return weightedNormOfAll(v); });
    measure("sum_of_norms/peer_jet60", jets<60>(), [](const auto& v) { return sumOfNorms(v); });
    measure("small_expression/peer_jet3", jets<3>(), [](const auto& v) { return smallExpression(v); });
    measure("small_polynomial/peer_jet3", jets<3>(), [](const auto& v) { return smallPolynomial(v); });
#endif
    measure("rotated_distance/operators", variables(14), [](const auto& v) { return rotatedDistance(v); });
    measure("rotated_distance/vectors", variables(14), rotatedDistanceByVectors);
    measure("rotated_distance/eigen_dynamic", dynamics(14), [](const auto& v) { return rotatedDistance(v); });
    measure("weighted_norm/operators", variables(60), [](const auto& v) { return weightedNorm(v); });
    measure("weighted_norm/vectors", variables(60), weightedNormByVectors);
    measure("weighted_norm/eigen_dynamic", dynamics(60), [](const auto& v) { return weightedNorm(v); });
    measure("weighted_norm_of_all/operators", variables(60),
            [](const auto& v) { return weightedNormOfAll(v); });
    measure("weighted_norm_of_all/eigen_dynamic", dynamics(60),
            [](const auto& v) { return weightedNormOfAll(v); });
    measure("sum_of_norms/operators", variables(60), [](const auto& v) { return sumOfNorms(v); });
    measure("small_expression/operators", variables(3), [](const auto& v) { return smallExpression(v); });
    measure("small_polynomial/operators", variables(3), [](const auto& v) { return smallPolynomial(v); });
    measure("small_expression/eigen_dynamic", dynamics(3), [](const auto& v) { return smallExpression(v); });
    measure("small_polynomial/eigen_dynamic", dynamics(3), [](const auto& v) { return smallPolynomial(v); });
}

} // namespace

int main(int argc, char** argv) {
    registerAll();
    return RatioReport::run(argc, argv);
}
