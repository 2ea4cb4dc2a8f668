#include "solver/system/VrexSolverBody.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// Removes what rounding adds to the right angles over many turns.
void straighten(std::array<VrexVector3DT<double>, 3>& axes) {
    axes[2] = axes[2] / axes[2].magnitude();
    axes[0] -= axes[2] * axes[2].dotProduct(axes[0]);
    axes[0] = axes[0] / axes[0].magnitude();
    axes[1] = axes[2].crossProduct(axes[0]);
}

/// Turns by the angle |w| about w; Rodrigues' formula.
void turn(std::array<VrexVector3DT<double>, 3>& axes, const VrexVector3DT<double>& w) {
    const double angle = w.magnitude();
    if (angle == 0.0) {
        return;
    }
    const auto axis = w / angle;
    const double sine = std::sin(angle);
    const double half = std::sin(0.5 * angle);
    for (VrexVector3DT<double>& a : axes) {
        const auto aside = axis.crossProduct(a);
        a += aside * sine + axis.crossProduct(aside) * (2.0 * half * half);
    }
    straighten(axes);
}

} // namespace

std::size_t VrexSolverMobility::count() const {
    const auto each = counts();
    return std::accumulate(each.begin(), each.end(), std::size_t{0});
}

std::array<std::size_t, 4> VrexSolverMobility::counts() const {
    const auto countOf = [](const auto& flags) {
        return static_cast<std::size_t>(std::count(flags.begin(), flags.end(), true));
    };
    return {countOf(translations), countOf(rotations), sizes[0] ? 1U : 0U, sizes[1] ? 1U : 0U};
}

void VrexSolverBody::setSize(std::size_t index, double size, bool isLength) {
    m_sizes[index] = size;
    m_isLength[index] = isLength;
}

void VrexSolverBody::move(const double* step) {
    m_hasMoved = true;
    VrexVector3DT<double> shift;
    for (std::size_t i = 0; i < 3; ++i) {
        if (m_mobility.translations[i]) {
            shift += m_frame.axes[i] * (*step++ * length());
        }
    }
    VrexVector3DT<double> rotation;
    for (std::size_t i = 0; i < 3; ++i) {
        if (m_mobility.rotations[i]) {
            rotation += m_frame.axes[i] * *step++;
        }
    }
    m_frame.origin += shift;
    turn(m_frame.axes, rotation);
    for (std::size_t i = 0; i < 2; ++i) {
        if (m_mobility.sizes[i]) {
            m_sizes[i] += *step++ * sizeUnit(i);
        }
    }
}
