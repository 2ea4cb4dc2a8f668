// Expressions from text: evaluated, with and without gradient, and parsed for one evaluation.
//
// muParser is the peer of values, ceres::Jet in a compiled lambda that of gradients, where they are
// installed.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_CERES
#include <ceres/jet.h>
#endif
#ifdef VREX_HAS_MUPARSER
#include <muParser.h>
#endif

#include "RatioReport.h"
#include "data/VrexExprParser.h"
#include "data/VrexVar.h"
#include "data/VrexVariable.h"
#include "data/constraint/equation/VrexExpressionParser.h"

namespace {

constexpr const char* TEXT = "x*x + 3*sin(y) - sqrt(x*y+1)/(2+cos(z))";

/// The same as TEXT.
template <typename T>
T compiled(const T& x, const T& y, const T& z) {
    using std::cos;
    using std::sin;
    using std::sqrt;
    return x * x + 3.0 * sin(y) - sqrt(x * y + 1.0) / (2.0 + cos(z));
}

const std::vector<double> VALUES{0.7, 1.3, 0.4};

std::vector<VrexVariable> independent() {
    std::vector<VrexVariable> variables(VALUES.begin(), VALUES.end());
    VrexVariable::initializeDerivatives(variables);
    return variables;
}

std::vector<std::shared_ptr<VrexVar>> names() {
    return {VrexVar::create("x", 0.0), VrexVar::create("y", 0.0), VrexVar::create("z", 0.0)};
}

/// The variants of a workload compute the same, or the comparison means nothing.
void expectSameValue(const std::string& name, double value) {
    static std::map<std::string, double> values;
    const double first = values.try_emplace(name.substr(0, name.find('/')), value).first->second;
    if (!(std::fabs(value - first) <= 1e-12 * std::fabs(first))) {
        std::fprintf(stderr, "%s gives %.17g, its peer %.17g\n", name.c_str(), value, first);
        std::exit(1);
    }
}

/// `function` makes one result; `valueOf` is what to compare of it.
template <typename Function, typename ValueOf>
void measure(const char* name, Function function, ValueOf valueOf) {
    expectSameValue(name, valueOf(function()));
    benchmark::RegisterBenchmark(name, [function](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::ClobberMemory();
            auto result = function();
            benchmark::DoNotOptimize(&result);
        }
    });
}

double plain(double value) { return value; }

#ifdef VREX_HAS_MUPARSER
/// A parser with its variables, which stay where they are.
struct MuParser {
    explicit MuParser(const std::vector<double>& inputs) : values(inputs) {
        parser.DefineVar("x", &values[0]);
        parser.DefineVar("y", &values[1]);
        parser.DefineVar("z", &values[2]);
        parser.SetExpr(TEXT);
    }

    std::vector<double> values;
    mu::Parser parser;
};
#endif

void registerValues() {
#ifdef VREX_HAS_MUPARSER
    const auto peer = std::make_shared<MuParser>(VALUES);
    measure(
        "evaluate/peer_muparser",
        [peer] {
            benchmark::DoNotOptimize(peer->values.data());
            return peer->parser.Eval();
        },
        plain);
    measure(
        "parse_and_evaluate/peer_muparser", [] { return MuParser(VALUES).parser.Eval(); }, plain);
#endif
    const auto expression = std::make_shared<VrexExpressionParser>();
    expression->setExpression(names(), TEXT, true);
    measure(
        "evaluate/expression", [expression] { return expression->evaluate(VALUES); }, plain);
    const auto variables = names();
    measure(
        "parse_and_evaluate/expression",
        [variables] {
            VrexExpressionParser fresh;
            fresh.setExpression(variables, TEXT, true);
            return fresh.evaluate(VALUES);
        },
        plain);
    for (std::size_t i = 0; i < VALUES.size(); ++i) {
        variables[i]->setValue(VALUES[i]);
    }
    const std::shared_ptr<VrexExpr> tree = VrexExprParser(TEXT, variables).parse();
    measure(
        "evaluate/tree", [tree] { return tree->eval(); }, plain);
}

void registerGradients() {
#ifdef VREX_HAS_CERES
    using Jet = ceres::Jet<double, 3>;
    const auto jets = std::make_shared<std::vector<Jet>>();
    for (int i = 0; i < 3; ++i) {
        jets->emplace_back(VALUES[static_cast<std::size_t>(i)], i);
    }
    measure(
        "gradient/peer_jet3",
        [jets] {
            benchmark::DoNotOptimize(jets->data());
            return compiled((*jets)[0], (*jets)[1], (*jets)[2]);
        },
        [](const Jet& jet) { return jet.a + jet.v.sum(); });
#endif
    const auto sum = [](const VrexVariable& result) {
        return result.value() + result.derivatives()[0] + result.derivatives()[1] + result.derivatives()[2];
    };
    const auto expression = std::make_shared<VrexExpressionParser>();
    expression->setExpression(names(), TEXT, true);
    const std::vector<VrexVariable> variables = independent();
    measure(
        "gradient/expression", [expression, variables] { return expression->evaluateVar(variables); }, sum);
    measure(
        "gradient/compiled", [variables] { return compiled(variables[0], variables[1], variables[2]); }, sum);
}

} // namespace

int main(int argc, char** argv) {
    registerValues();
    registerGradients();
    return RatioReport::run(argc, argv);
}
