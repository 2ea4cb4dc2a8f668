#pragma once

#include <cstddef>
#include <memory>
#include <random>
#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// Random splines and surfaces, the same in each run.
namespace nsSplineSamples {

class Maker {
public:
    explicit Maker(unsigned seed) : m_engine(seed) {}

    double number(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_engine);
    }
    VrexSpline3D::ControlPoint controlPoint() {
        return {VrexPoint3D::create(number(-2.0, 2.0), number(-2.0, 2.0), number(-2.0, 2.0)),
                number(0.5, 2.0)};
    }
    std::vector<VrexSpline3D::ControlPoint> controlPoints(std::size_t count) {
        std::vector<VrexSpline3D::ControlPoint> list;
        for (std::size_t i = 0; i < count; ++i) {
            list.push_back(controlPoint());
        }
        return list;
    }
    /// Between ends of full multiplicity, for `count` control points.
    std::vector<double> openKnots(std::size_t count, std::size_t degree) {
        std::vector<double> knots(degree + 1, -1.0);
        double knot = -1.0;
        for (std::size_t i = 0; i <= count - degree - 1; ++i) {
            knot += number(0.25, 1.0);
            knots.push_back(knot);
        }
        knots.insert(knots.end(), degree, knot);
        return knots;
    }
    /// Steps that come round again, for `count` control points.
    std::vector<double> periodicKnots(std::size_t count, std::size_t degree) {
        std::vector<double> steps(count);
        for (double& step : steps) {
            step = number(0.25, 1.0);
        }
        std::vector<double> knots{0.5};
        for (std::size_t i = 0; i < count + 2 * degree; ++i) {
            knots.push_back(knots.back() + steps[i % count]);
        }
        return knots;
    }
    std::shared_ptr<VrexSpline3D> spline(int degree, std::size_t count, bool periodic = false) {
        const auto p = static_cast<std::size_t>(degree);
        return VrexSpline3D::create({degree, periodic,
                                     periodic ? periodicKnots(count, p) : openKnots(count, p),
                                     controlPoints(count)});
    }
    std::shared_ptr<VrexNURBSSurface3D> surface(int uDegree, int vDegree, std::size_t rows,
                                                std::size_t columns) {
        std::vector<std::vector<VrexSpline3D::ControlPoint>> net;
        for (std::size_t row = 0; row < rows; ++row) {
            net.push_back(controlPoints(columns));
        }
        return VrexNURBSSurface3D::create({uDegree, vDegree,
                                           openKnots(rows, static_cast<std::size_t>(uDegree)),
                                           openKnots(columns, static_cast<std::size_t>(vDegree)), net});
    }
    /// Strictly inside the range, away from its ends.
    double inside(const std::pair<std::optional<double>, std::optional<double>>& interval) {
        const double length = *interval.second - *interval.first;
        return number(*interval.first + 0.01 * length, *interval.second - 0.01 * length);
    }

private:
    std::mt19937 m_engine;
};

/// The coordinates of all control points, three each.
inline std::vector<double> coordinatesOf(const std::vector<VrexSpline3D::ControlPoint>& controlPoints) {
    std::vector<double> coordinates;
    for (const auto& controlPoint : controlPoints) {
        const auto position = controlPoint.point->getPosition();
        coordinates.insert(coordinates.end(), {position.x(), position.y(), position.z()});
    }
    return coordinates;
}

inline std::vector<double> coordinatesOf(const VrexNURBSSurface3D& surface) {
    std::vector<double> coordinates;
    for (const auto& row : surface.controlPoints()) {
        const auto some = coordinatesOf(row);
        coordinates.insert(coordinates.end(), some.begin(), some.end());
    }
    return coordinates;
}

/// Independent variables with these values; entry i has the key i.
inline std::vector<VrexVariable> variablesOf(const std::vector<double>& values) {
    std::vector<VrexVariable> variables(values.begin(), values.end());
    VrexVariable::initializeDerivatives(variables);
    return variables;
}

} // namespace nsSplineSamples
