// An equation over three numbers, value and gradient: as text, as a callback over differentiable numbers, as
// a callback with a gradient by hand, and as a weighted sum, each against the same formula compiled over the
// automatic derivatives of Ceres.

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_CERES
#include <ceres/jet.h>
#endif

#include "RatioReport.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

constexpr const char* TEXT = "x*sin(y) + sqrt(x*x + z*z) - z*cos(y)/x";
const std::vector<double> VALUES{0.7, 1.3, 0.4};
const std::vector<double> COEFFICIENTS{2.0, -1.5, 0.25};
constexpr double CONSTANT = 3.0;

/// The same as TEXT.
template <typename T>
T compiled(const std::vector<T>& v) {
    using std::cos;
    using std::sin;
    using std::sqrt;
    return v[0] * sin(v[1]) + sqrt(v[0] * v[0] + v[2] * v[2]) - v[2] * cos(v[1]) / v[0];
}

/// The same with a gradient by hand.
double withGradient(const double* v, unsigned int /*count*/, double* gradient) {
    const double sine = std::sin(v[1]);
    const double cosine = std::cos(v[1]);
    const double length = std::sqrt(v[0] * v[0] + v[2] * v[2]);
    gradient[0] = sine + v[0] / length + v[2] * cosine / (v[0] * v[0]);
    gradient[1] = v[0] * cosine + v[2] * sine / v[0];
    gradient[2] = v[2] / length - cosine / v[0];
    return v[0] * sine + length - v[2] * cosine / v[0];
}

/// COEFFICIENTS and CONSTANT.
template <typename T>
T weightedSum(const std::vector<T>& v) {
    T sum = COEFFICIENTS[0] * v[0];
    for (std::size_t i = 1; i < v.size(); ++i) {
        sum += COEFFICIENTS[i] * v[i];
    }
    return sum + CONSTANT;
}

/// The variants of a workload compute the same value and the same sum of derivatives.
void expectSame(const std::string& name, double sum) {
    static std::map<std::string, double> sums;
    const double first = sums.try_emplace(name.substr(0, name.find('/')), sum).first->second;
    if (!(std::fabs(sum - first) <= 1e-12 * std::fabs(first))) {
        std::fprintf(stderr, "%s gives %.17g, its peer %.17g\n", name.c_str(), sum, first);
        std::exit(1);
    }
}

template <class Function>
void measure(const char* name, Function function) {
    benchmark::RegisterBenchmark(name, [function](benchmark::State& state) {
        for ([[maybe_unused]] auto step : state) {
            benchmark::ClobberMemory();
            auto result = function();
            benchmark::DoNotOptimize(&result);
        }
    });
}

void measureEquation(const char* name, const std::shared_ptr<VrexBaseEquation>& equation) {
    std::vector<VrexVariable> args(VALUES.begin(), VALUES.end());
    VrexVariable::initializeDerivatives(args);
    const VrexVariable result = equation->evaluate(args);
    double sum = result.value();
    for (const auto& entry : result.derivatives()) {
        sum += entry.value;
    }
    expectSame(name, sum);
    measure(name, [equation, args] { return equation->evaluate(args); });
}

#ifdef VREX_HAS_CERES
using Jet = ceres::Jet<double, 3>;

void measureJet(const char* name, const std::function<Jet(const std::vector<Jet>&)>& function) {
    std::vector<Jet> args;
    for (std::size_t i = 0; i < VALUES.size(); ++i) {
        args.emplace_back(VALUES[i], static_cast<int>(i));
    }
    const Jet result = function(args);
    expectSame(name, result.a + result.v.sum());
    measure(name, [function, args] { return function(args); });
}
#endif

void registerEquations() {
#ifdef VREX_HAS_CERES
    measureJet("equation/peer_jet", compiled<Jet>);
    measureJet("linear_equation/peer_jet", weightedSum<Jet>);
#endif
    constexpr auto condition = VrexEquationConditionType::equalToZero;
    std::vector<VrexVariableDescriptor> descriptors;
    for (const char* name : {"x", "y", "z"}) {
        descriptors.emplace_back(VrexGeometryVariable::create(0.0), 0, name);
    }
    measureEquation("equation/expression", VrexExpressionEquation::create(descriptors, condition, TEXT));
    measureEquation("equation/callback", VrexCallbackEquation::create(condition, compiled<VrexVariable>));
    measureEquation("equation/callback_gradient",
                    VrexCallbackEquation::create(condition, VrexEquationCallback(withGradient)));
    measureEquation(
        "linear_equation/callback",
        VrexCallbackEquation::create(condition, VrexLinearEquationCallback(COEFFICIENTS, CONSTANT)));
}

} // namespace

int main(int argc, char** argv) {
    registerEquations();
    return RatioReport::run(argc, argv);
}
