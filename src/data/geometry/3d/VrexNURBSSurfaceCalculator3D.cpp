#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexBasisDerivatives.h"
#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexControlPoints.h"
#include "data/geometry/3d/VrexKnots.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace {

template <typename T>
using WeightedPoint = VrexNURBSSurfaceCalculator3D::WeightedPoint<T>;
template <typename T>
using Sample = VrexSurfaceSample<VrexVector3DT<T>>;
template <typename T>
using Aders = VrexSurfaceSample<WeightedPoint<T>>;

/// Room for `count` numbers: for plain numbers on the stack, as far as it goes.
template <typename T>
class Scratch {
public:
    T* reserve(std::size_t count) {
        m_long.resize(count);
        return m_long.data();
    }

private:
    std::vector<T> m_long;
};

template <>
class Scratch<double> {
public:
    double* reserve(std::size_t count) {
        if (count <= m_short.size()) {
            return m_short.data();
        }
        m_long.resize(count);
        return m_long.data();
    }

private:
    std::array<double, 256> m_short; // raw; enough for second derivatives up to degree 14
    std::vector<double> m_long;
};

/// What one parameter contributes: its basis functions, and the first of their control points.
template <typename T>
class Direction {
public:
    Direction(const std::vector<double>& knots, int degree, const T& t, int order)
        : m_degree(nsKnots::requireSpans(knots, degree)),
          m_order(std::min(static_cast<std::size_t>(order), m_degree)),
          m_span(nsKnots::findSpan(knots, m_degree, nsVariableUtils::toValue(t))),
          m_basis(m_scratch.reserve(VrexBasisDerivatives<T>::scratchSize(m_degree, m_order))) {
        nsBasis::differentiate(m_degree, m_order, knots.data() + m_span, t, m_basis);
    }
    Direction(const Direction&) = delete;
    Direction& operator=(const Direction&) = delete;

    std::size_t order() const { return m_order; }
    std::size_t count() const { return m_degree + 1; }
    std::size_t first() const { return m_span - m_degree; }
    const T& basis(std::size_t k, std::size_t r) const { return m_basis[k * count() + r]; }

private:
    std::size_t m_degree;
    std::size_t m_order;
    std::size_t m_span;
    Scratch<T> m_scratch;
    T* m_basis;
};

const VrexSpline3D::ControlPoint& requireControlPoint(const VrexNURBSSurface3D& surface, std::size_t row,
                                                      std::size_t column) {
    const auto& rows = surface.controlPoints();
    // Behind the length of the first row there are no parameters either.
    const bool isInNet = row < rows.size() && column < std::min(rows.front().size(), rows[row].size());
    if (!isInNet || rows[row][column].point == nullptr) {
        VREX_RAISE(std::invalid_argument, "Broken internal state: a control point is missing.");
    }
    return rows[row][column];
}

template <typename T>
void add(WeightedPoint<T>& sum, const WeightedPoint<T>& part, const T& factor) {
    sum.point += part.point * factor;
    sum.weight += part.weight * factor;
}

/// One column of the net by derivatives in u, orders 0 to 2.
template <typename T>
using Column = std::array<WeightedPoint<T>, Aders<T>::HIGHEST_ORDER + 1>;

/// `weightedAt(row)` is a control point of the column.
template <typename T, typename WeightedAt>
Column<T> sumColumn(const Direction<T>& u, const WeightedAt& weightedAt) {
    Column<T> sums;
    for (std::size_t r = 0; r < u.count(); ++r) {
        const WeightedPoint<T> P = weightedAt(u.first() + r);
        for (std::size_t k = 0; k <= u.order(); ++k) {
            add(sums[k], P, u.basis(k, r));
        }
    }
    return sums;
}

template <typename T>
void addColumn(Aders<T>& aders, const Column<T>& column, std::size_t orderU, const Direction<T>& v,
               std::size_t s) {
    for (std::size_t k = 0; k <= orderU; ++k) {
        for (std::size_t l = 0; l <= v.order(); ++l) {
            add(aders[3 * k + l], column[k], v.basis(l, s));
        }
    }
}

/// `weightedAt(row, column)` is a control point of the net.
template <typename T, typename WeightedAt>
Aders<T> sumControlPoints(const Direction<T>& u, const Direction<T>& v, const WeightedAt& weightedAt) {
    Aders<T> aders;
    for (std::size_t s = 0; s < v.count(); ++s) {
        const auto atRow = [&](std::size_t row) { return weightedAt(row, v.first() + s); };
        addColumn(aders, sumColumn(u, atRow), u.order(), v, s);
    }
    return aders;
}

constexpr double BINOMIALS[][3] = {{1.0}, {1.0, 1.0}, {1.0, 2.0, 1.0}};

/// One element of the surface out of those of lower orders: algorithm A4.4 of Piegl and Tiller, The NURBS
/// Book.
template <typename T>
VrexVector3DT<T> divideByWeight(const Aders<T>& aders, const Sample<T>& S, int k, int l) {
    const auto w = [&aders](int i, int j) -> const T& { return aders[Aders<T>::index(i, j)].weight; };
    VrexVector3DT<T> r = aders[Aders<T>::index(k, l)].point;
    for (int j = 1; j <= l; ++j) {
        r -= S[Sample<T>::index(k, l - j)] * (BINOMIALS[l][j] * w(0, j));
    }
    for (int i = 1; i <= k; ++i) {
        r -= S[Sample<T>::index(k - i, l)] * (BINOMIALS[k][i] * w(i, 0));
        VrexVector3DT<T> q;
        for (int j = 1; j <= l; ++j) {
            q += S[Sample<T>::index(k - i, l - j)] * (BINOMIALS[l][j] * w(i, j));
        }
        r -= q * BINOMIALS[k][i];
    }
    return r / w(0, 0);
}

template <typename T>
Sample<T> divideByWeights(const Aders<T>& aders, int order) {
    Sample<T> S;
    for (int k = 0; k <= order; ++k) {
        for (int l = 0; l <= order; ++l) {
            S[Sample<T>::index(k, l)] = divideByWeight(aders, S, k, l);
        }
    }
    return S;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexNURBSSurfaceCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                        const VrexVariable& v, int order) {
    nsCalculator::requireParameters(parameters, 3 * nsControlPoint::countPoints(m_surface.controlPoints()));
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, Sample<VrexVariable>::HIGHEST_ORDER);
    return divideByWeights(findAders(parameters, u, v, reached), reached);
}

VrexSurfaceSample<VrexVector3DT<double>> VrexNURBSSurfaceCalculator3D::calculate(double u, double v,
                                                                                 int order) {
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, Sample<double>::HIGHEST_ORDER);
    return divideByWeights(findAders(u, v, reached), reached);
}

VrexSurfaceSample<VrexNURBSSurfaceCalculator3D::WeightedPoint<VrexVariable>>
VrexNURBSSurfaceCalculator3D::findAders(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                        const VrexVariable& v, int order) const {
    const std::size_t columns = nsControlPoint::countColumns(m_surface.controlPoints());
    const auto weightedAt = [&](std::size_t row, std::size_t column) {
        const double weight = requireControlPoint(m_surface, row, column).weight;
        return WeightedPoint<VrexVariable>{
            nsCalculator::getVector(parameters, 3 * (row * columns + column)) * weight, weight};
    };
    return sumControlPoints(Direction<VrexVariable>(m_surface.uKnots(), m_surface.uDegree(), u, order),
                            Direction<VrexVariable>(m_surface.vKnots(), m_surface.vDegree(), v, order),
                            weightedAt);
}

VrexSurfaceSample<VrexNURBSSurfaceCalculator3D::WeightedPoint<double>>
VrexNURBSSurfaceCalculator3D::findAders(double u, double v, int order) const {
    const auto weightedAt = [this](std::size_t row, std::size_t column) {
        const auto& controlPoint = requireControlPoint(m_surface, row, column);
        return WeightedPoint<double>{controlPoint.point->getPosition() * controlPoint.weight,
                                     controlPoint.weight};
    };
    return sumControlPoints(Direction<double>(m_surface.uKnots(), m_surface.uDegree(), u, order),
                            Direction<double>(m_surface.vKnots(), m_surface.vDegree(), v, order), weightedAt);
}
