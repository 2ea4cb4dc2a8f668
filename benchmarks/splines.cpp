// Rational B-spline curves and surfaces against OpenCASCADE, and the gradient of a curve in all coordinates
// of its control points against ceres::Jet.
//
// Calculators are held, as a caller does who samples a curve; each call takes another parameter. The variants
// of a workload compute the same, which is looked at before anything is measured.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>
#ifdef VREX_HAS_CERES
#include <ceres/jet.h>
#endif
#ifdef VREX_HAS_OPENCASCADE
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#endif

#include "RatioReport.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSplineCalculator3D.h"

namespace {

using Vector = VrexVector3DT<double>;
using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

constexpr std::size_t DEGREE = 3;
constexpr std::size_t POINTS = 20;
constexpr std::size_t NET = 10;
constexpr std::size_t COORDINATES = 3 * POINTS;

VrexSpline3D::ControlPoint controlPoint(std::size_t i, std::size_t j) {
    const auto x = static_cast<double>(i);
    const auto y = static_cast<double>(j);
    return {VrexPoint3D::create(x, y, std::sin(x) + std::cos(0.7 * y)), 1.0 + 0.25 * std::sin(1.3 * x + y)};
}

ControlPoints controlPoints(std::size_t count, std::size_t row) {
    ControlPoints list;
    for (std::size_t i = 0; i < count; ++i) {
        list.push_back(controlPoint(row, i));
    }
    return list;
}

/// 0, ..., 0, 1, 2, ... with ends of full multiplicity.
std::vector<double> knots(std::size_t count) {
    std::vector<double> list(DEGREE, 0.0);
    for (std::size_t i = 0; i <= count - DEGREE; ++i) {
        list.push_back(static_cast<double>(i));
    }
    list.insert(list.end(), DEGREE, list.back());
    return list;
}

/// Parameters all over the range, in no order.
class Parameters {
public:
    explicit Parameters(std::size_t count) {
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            m_values[i] = static_cast<double>(count - DEGREE) * std::fmod(0.618033988749895 * double(i), 1.0);
        }
    }
    double next() { return m_values[++m_position % m_values.size()]; }

private:
    std::array<double, 64> m_values;
    std::size_t m_position = 0;
};

/// Sums of what a workload computes, by which its variants are compared.
void expectSame(const char* name, double value, double expected) {
    if (!(std::fabs(value - expected) <= 1e-9 * (1.0 + std::fabs(expected)))) {
        std::fprintf(stderr, "%s gives %.17g, its peer %.17g\n", name, value, expected);
        std::exit(1);
    }
}

template <typename Function>
void measure(const char* name, Function function) {
    benchmark::RegisterBenchmark(name, [function](benchmark::State& state) mutable {
        for (auto _ : state) {
            auto result = function();
            benchmark::DoNotOptimize(&result);
            benchmark::ClobberMemory();
        }
    });
}

std::shared_ptr<VrexSpline3D> makeSpline() {
    return VrexSpline3D::create({static_cast<int>(DEGREE), false, knots(POINTS), controlPoints(POINTS, 1)});
}

std::shared_ptr<VrexNURBSSurface3D> makeSurface() {
    std::vector<ControlPoints> net;
    for (std::size_t row = 0; row < NET; ++row) {
        net.push_back(controlPoints(NET, row));
    }
    const int degree = static_cast<int>(DEGREE);
    return VrexNURBSSurface3D::create({degree, degree, knots(NET), knots(NET), net});
}

#ifdef VREX_HAS_OPENCASCADE

gp_Pnt toPoint(const VrexSpline3D::ControlPoint& controlPoint) {
    const Vector position = controlPoint.point->getPosition();
    return {position.x(), position.y(), position.z()};
}

/// The knots once each, and how often they stand.
struct Multiplicities {
    explicit Multiplicities(std::size_t count)
        : knots(1, static_cast<int>(count - DEGREE + 1)), counts(1, knots.Upper()) {
        for (int i = 1; i <= knots.Upper(); ++i) {
            knots(i) = i - 1;
            counts(i) = i == 1 || i == knots.Upper() ? static_cast<int>(DEGREE) + 1 : 1;
        }
    }
    TColStd_Array1OfReal knots;
    TColStd_Array1OfInteger counts;
};

Handle(Geom_BSplineCurve) makePeerCurve(const VrexSpline3D& spline) {
    TColgp_Array1OfPnt points(1, static_cast<int>(POINTS));
    TColStd_Array1OfReal weights(1, static_cast<int>(POINTS));
    for (int i = 1; i <= points.Upper(); ++i) {
        const auto& one = spline.controlPoints()[static_cast<std::size_t>(i) - 1];
        points(i) = toPoint(one);
        weights(i) = one.weight;
    }
    const Multiplicities list(POINTS);
    return new Geom_BSplineCurve(points, weights, list.knots, list.counts, static_cast<int>(DEGREE));
}

Handle(Geom_BSplineSurface) makePeerSurface(const VrexNURBSSurface3D& surface) {
    const int size = static_cast<int>(NET);
    TColgp_Array2OfPnt points(1, size, 1, size);
    TColStd_Array2OfReal weights(1, size, 1, size);
    for (int i = 1; i <= size; ++i) {
        for (int j = 1; j <= size; ++j) {
            const auto& row = surface.controlPoints()[static_cast<std::size_t>(i) - 1];
            points(i, j) = toPoint(row[static_cast<std::size_t>(j) - 1]);
            weights(i, j) = row[static_cast<std::size_t>(j) - 1].weight;
        }
    }
    const Multiplicities list(NET);
    const int degree = static_cast<int>(DEGREE);
    return new Geom_BSplineSurface(points, weights, list.knots, list.knots, list.counts, list.counts, degree,
                                   degree);
}

struct PeerCurveResult {
    gp_Pnt point;
    gp_Vec first, second;
};

struct PeerSurfaceResult {
    gp_Pnt point;
    gp_Vec u, v, uu, vv, uv;
};

void registerPeerCurve(const std::shared_ptr<VrexSpline3D>& spline) {
    const auto curve = makePeerCurve(*spline);
    VrexSplineCalculator3D calculator(*spline);
    PeerCurveResult result;
    curve->D2(7.3, result.point, result.first, result.second);
    const auto own = calculator.calculate(7.3, 2);
    expectSame("spline_d2", own[0].z() + own[1].y() + own[2].z(),
               result.point.Z() + result.first.Y() + result.second.Z());
    measure("spline_d2/peer_opencascade", [curve, parameters = Parameters(POINTS)]() mutable {
        PeerCurveResult each;
        curve->D2(parameters.next(), each.point, each.first, each.second);
        return each;
    });
}

void registerPeerSurface(const std::shared_ptr<VrexNURBSSurface3D>& surface) {
    const auto peer = makePeerSurface(*surface);
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    PeerSurfaceResult r;
    peer->D2(2.3, 4.6, r.point, r.u, r.v, r.uu, r.vv, r.uv);
    const auto own = calculator.calculate(2.3, 4.6, 2);
    expectSame("nurbs_d2", own[0].z() + own[1].z() + own[2].z() + own[3].z() + own[4].z() + own[6].z(),
               r.point.Z() + r.u.Z() + r.v.Z() + r.uu.Z() + r.vv.Z() + r.uv.Z());
    measure("nurbs_d2/peer_opencascade", [peer, parameters = Parameters(NET)]() mutable {
        PeerSurfaceResult each;
        const double u = parameters.next();
        peer->D2(u, parameters.next(), each.point, each.u, each.v, each.uu, each.vv, each.uv);
        return each;
    });
}

#endif

#ifdef VREX_HAS_CERES

using Jet = ceres::Jet<double, COORDINATES>;
using JetVector = std::array<Jet, 3>;

/// Values, first and second derivatives of the basis functions of a span: A2.3 of The NURBS Book for a fixed
/// degree.
std::array<std::array<double, DEGREE + 1>, 3> basisOf(const double* span, double t) {
    std::array<std::array<double, DEGREE + 1>, DEGREE + 1> lower{}; // by degree
    lower[0][0] = 1.0;
    for (std::size_t j = 1; j <= DEGREE; ++j) {
        double saved = 0.0;
        for (std::size_t r = 0; r < j; ++r) {
            const double right = span[r + 1] - t;
            const double left = t - *(span + 1 + r - j);
            const double ratio = lower[j - 1][r] / (right + left);
            lower[j][r] = saved + right * ratio;
            saved = left * ratio;
        }
        lower[j][j] = saved;
    }
    std::array<std::array<double, DEGREE + 1>, 3> basis{lower[DEGREE]};
    for (std::size_t k = 1; k <= 2; ++k) {
        // Differences of the functions of degree p - k, k times over.
        basis[k] = lower[DEGREE - k];
        for (std::size_t q = DEGREE - k + 1; q <= DEGREE; ++q) {
            std::array<double, DEGREE + 2> scaled{};
            for (std::size_t r = 0; r < q; ++r) {
                scaled[r + 1] = double(q) * basis[k][r] / (span[r + 1] - *(span + 1 + r - q));
            }
            for (std::size_t r = 0; r <= q; ++r) {
                basis[k][r] = scaled[r] - scaled[r + 1];
            }
        }
    }
    return basis;
}

std::array<JetVector, 3> evaluateJets(const VrexSpline3D& spline, const std::vector<Jet>& coordinates,
                                      double t) {
    const auto& U = spline.knots();
    std::size_t span = DEGREE;
    while (span + 1 < POINTS && t >= U[span + 1]) {
        ++span;
    }
    const auto basis = basisOf(U.data() + span, t);
    std::array<JetVector, 3> A;
    std::array<double, 3> w{};
    for (std::size_t j = 0; j <= DEGREE; ++j) {
        const std::size_t i = span - DEGREE + j;
        for (std::size_t k = 0; k < 3; ++k) {
            const double factor = spline.controlPoints()[i].weight * basis[k][j];
            for (std::size_t c = 0; c < 3; ++c) {
                A[k][c] += coordinates[3 * i + c] * factor;
            }
            w[k] += factor;
        }
    }
    for (std::size_t c = 0; c < 3; ++c) {
        A[0][c] /= w[0];
        A[1][c] = (A[1][c] - A[0][c] * w[1]) / w[0];
        A[2][c] = (A[2][c] - A[1][c] * (2.0 * w[1]) - A[0][c] * w[2]) / w[0];
    }
    return A;
}

std::vector<Jet> jetsOf(const VrexSpline3D& spline) {
    std::vector<Jet> jets;
    for (const auto& one : spline.controlPoints()) {
        const Vector position = one.point->getPosition();
        for (int c = 0; c < 3; ++c) {
            jets.emplace_back(position[c], static_cast<int>(jets.size()));
        }
    }
    return jets;
}

#endif

std::vector<VrexVariable> variablesOf(const VrexSpline3D& spline) {
    std::vector<VrexVariable> variables;
    for (const auto& one : spline.controlPoints()) {
        const Vector position = one.point->getPosition();
        variables.insert(variables.end(), {position.x(), position.y(), position.z()});
    }
    VrexVariable::initializeDerivatives(variables);
    return variables;
}

void registerGradient(const std::shared_ptr<VrexSpline3D>& spline) {
    const auto variables = variablesOf(*spline);
    const auto calculator = std::make_shared<VrexSplineCalculator3D>(*spline);
#ifdef VREX_HAS_CERES
    const auto jets = jetsOf(*spline);
    const auto peer = evaluateJets(*spline, jets, 7.3);
    const auto own = calculator->calculate(variables, VrexVariable(7.3), 2);
    for (std::size_t k = 0; k < 3; ++k) {
        expectSame("spline_gradient", own[k].z().value(), peer[k][2].a);
        for (std::size_t key = 0; key < COORDINATES; ++key) {
            expectSame("spline_gradient", own[k].z().derivatives()[key],
                       peer[k][2].v[static_cast<Eigen::Index>(key)]);
        }
    }
    measure("spline_gradient/peer_jet60", [spline, jets, parameters = Parameters(POINTS)]() mutable {
        return evaluateJets(*spline, jets, parameters.next());
    });
#endif
    measure("spline_gradient/held_calculator",
            [spline, calculator, variables, parameters = Parameters(POINTS)]() mutable {
                return calculator->calculate(variables, VrexVariable(parameters.next()), 2);
            });
}

void registerAll() {
    const auto spline = makeSpline();
    const auto surface = makeSurface();
#ifdef VREX_HAS_OPENCASCADE
    registerPeerCurve(spline);
    registerPeerSurface(surface);
#endif
    measure(
        "spline_d2/held_calculator",
        [spline, calculator = std::make_shared<VrexSplineCalculator3D>(*spline),
         parameters = Parameters(POINTS)]() mutable { return calculator->calculate(parameters.next(), 2); });
    measure("nurbs_d2/held_calculator",
            [surface, calculator = std::make_shared<VrexNURBSSurfaceCalculator3D>(*surface),
             parameters = Parameters(NET)]() mutable {
                const double u = parameters.next();
                return calculator->calculate(u, parameters.next(), 2);
            });
    registerGradient(spline);
}

} // namespace

int main(int argc, char** argv) {
    registerAll();
    return RatioReport::run(argc, argv);
}
