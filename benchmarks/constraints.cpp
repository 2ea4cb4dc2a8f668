// Checks of constraint requests against what one writes first: a map from kind to a set of pairs. Both look
// at the count, at nulls and at identifiers, and then for the pair; the peer's sets hold the same pairs. A
// refusal is set beside the recording of its message.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_CERES
#include <ceres/jet.h>
#endif

#include "RatioReport.h"
#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraint3DPreValidator.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Component = VrexGeometryComponentType;
using Geometries = VrexConstraint3DPreValidator::Geometries;
using Kind = VrexConstraint3DType;
using Type = VrexGeometry3DType;

/// An entity of any kind.
class Entity : public VrexGeometry3D {
public:
    Entity(Type type, std::uint64_t id) : VrexGeometry3D(type, 1) { setID(id); }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<Entity>(type(), getID()); }
    const char* getNamePrefix() const override { return "e"; }
    int dof() const override { return 0; }

private:
    void restoreFromCopy(const VrexBaseObject&) override {}
};

struct Request {
    Kind kind;
    Geometries geometries;
};

using PairSets = std::map<Kind, std::set<std::pair<Type, Type>>>;

/// What both have to answer, in an order that no branch predictor learns.
struct Workload {
    std::vector<Request> accepted;
    std::vector<Request> refused;
    PairSets pairs;
};

constexpr Kind PAIR_KINDS[] = {Kind::Distance3D,    Kind::Incidence3D,      Kind::Angle3D,
                               Kind::Parallelism3D, Kind::Concentricity3D,  Kind::SurfaceNormal3D,
                               Kind::Tangency3D,    Kind::EqualDirection3D, Kind::EqualCurvature3D};

bool isAccepted(const Request& request) {
    const VrexDefaultToleranceGetter tolerances;
    VrexLogRecorder recorder(1);
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                              Component::UNKNOWN);
}

Workload makeWorkload() {
    Workload workload;
    constexpr auto types = static_cast<int>(Type::TYPES_COUNT);
    for (const Kind kind : PAIR_KINDS) {
        for (int pair = 0; pair < types * types; ++pair) {
            const auto first = std::make_shared<Entity>(static_cast<Type>(pair / types), 1);
            const auto second = std::make_shared<Entity>(static_cast<Type>(pair % types), 2);
            const Request request{kind, {first, second}};
            const bool accepted = isAccepted(request);
            (accepted ? workload.accepted : workload.refused).push_back(request);
            if (accepted) {
                workload.pairs[kind].emplace(first->type(), second->type());
            }
        }
    }
    std::mt19937 random(20); // any fixed seed
    std::ranges::shuffle(workload.accepted, random);
    std::ranges::shuffle(workload.refused, random);
    return workload;
}

const Workload& workload() {
    static const Workload made = makeWorkload();
    return made;
}

bool isAdmittedByPeer(const PairSets& sets, const Request& request) {
    const Geometries& pair = request.geometries;
    if (pair.size() != 2 || pair[0] == nullptr || pair[1] == nullptr ||
        pair[0]->getID() == pair[1]->getID()) {
        return false;
    }
    const auto found = sets.find(request.kind);
    return found != sets.end() && found->second.contains({pair[0]->type(), pair[1]->type()});
}

/// One request a step.
template <class Check>
void check(benchmark::State& state, const std::vector<Request>& requests, Check check) {
    std::size_t next = 0;
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(check(requests[next]));
        next = next + 1 < requests.size() ? next + 1 : 0;
    }
}

void acceptByMap(benchmark::State& state) {
    check(state, workload().accepted,
          [](const Request& request) { return isAdmittedByPeer(workload().pairs, request); });
}

void acceptByValidator(benchmark::State& state) {
    const VrexDefaultToleranceGetter tolerances;
    VrexLogRecorder recorder(1);
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    check(state, workload().accepted, [&](const Request& request) {
        return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                                  Component::UNKNOWN);
    });
}

/// The search, and a message of the length that the validator's has.
void refuseByMap(benchmark::State& state) {
    check(state, workload().refused, [](const Request& request) {
        VrexLogRecorder recorder(1);
        if (!isAdmittedByPeer(workload().pairs, request)) {
            recorder.recordMessage(VrexErrorCode::GEOMETRY_TYPE_ERROR,
                                   "Do not supported geometry types combination (%s, %s)",
                                   getEnumeratorText(request.geometries[0]->type()),
                                   getEnumeratorText(request.geometries[1]->type()));
        }
        return recorder.isNoError();
    });
}

void refuseByValidator(benchmark::State& state) {
    const VrexDefaultToleranceGetter tolerances;
    check(state, workload().refused, [&](const Request& request) {
        VrexLogRecorder recorder(1);
        const VrexConstraint3DPreValidator validator(tolerances, recorder);
        return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                                  Component::UNKNOWN);
    });
}

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
    benchmark::RegisterBenchmark("pair_accepted/peer_map_of_sets", acceptByMap);
    benchmark::RegisterBenchmark("pair_accepted/validator", acceptByValidator);
    benchmark::RegisterBenchmark("pair_refused/peer_map_and_message", refuseByMap);
    benchmark::RegisterBenchmark("pair_refused/validator", refuseByValidator);
    registerEquations();
    return RatioReport::run(argc, argv);
}
