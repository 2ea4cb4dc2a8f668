#include "solver/residuals/VrexImagePairs.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"

namespace {

using nsImagePairs::Pair;
using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

/// Of knots and weights, which have no unit.
constexpr double TOLERANCE = 1e-12;

bool areAlike(double first, double second) { return std::abs(first - second) <= TOLERANCE; }

bool areAlike(const std::vector<double>& first, const std::vector<double>& second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](double a, double b) { return areAlike(a, b); });
}

template <class Evaluated>
bool areAlike(const Evaluated& first, const Evaluated& second) {
    const auto isSame = [](const VrexVariableDescriptor& a, const VrexVariableDescriptor& b) {
        return a.index() == b.index() && a.object() == b.object() && a.variableName() == b.variableName();
    };
    const auto& ones = first.descriptors();
    const auto& others = second.descriptors();
    return first.getX() == second.getX() && first.getY() == second.getY() && first.getZ() == second.getZ() &&
           std::equal(ones.begin(), ones.end(), others.begin(), others.end(), isSame);
}

/// Pairs that are still to be taken apart and those that cannot be.
class Apart {
public:
    explicit Apart(const Pair& pair) { open(pair.first, pair.second); }

    bool takeApart() {
        for (std::size_t i = 0; i < m_open.size(); ++i) { // grows on the way
            const Pair pair = m_open[i];
            if (pair.first == nullptr || pair.second == nullptr ||
                pair.first->type() != pair.second->type() || !takeApart(pair)) {
                return false;
            }
        }
        return true;
    }
    const std::vector<Pair>& simple() const { return m_simple; }

private:
    void open(const std::shared_ptr<VrexGeometry3D>& first, const std::shared_ptr<VrexGeometry3D>& second) {
        if (m_known.emplace(first.get(), second.get()).second) {
            m_open.emplace_back(first, second);
        }
    }

    bool takeApart(const Pair& pair) {
        switch (pair.first->type()) {
        case VrexGeometry3DType::RIGID_SET:
            return takeSetsApart(pair);
        case VrexGeometry3DType::SPLINE:
            return openParts<VrexSpline3D>(pair);
        case VrexGeometry3DType::NURBS_SURFACE:
            return openParts<VrexNURBSSurface3D>(pair);
        case VrexGeometry3DType::SPIN_SURFACE:
            return openParts<VrexSpinSurface3D>(pair);
        case VrexGeometry3DType::SWEEP_SURFACE:
            return openParts<VrexSweepSurface3D>(pair);
        case VrexGeometry3DType::EVAL_CURVE:
            m_simple.push_back(pair);
            return areAlikeAs<VrexEvaluatedCurve3D>(pair);
        case VrexGeometry3DType::EVAL_SURFACE:
            m_simple.push_back(pair);
            return areAlikeAs<VrexEvaluatedSurface3D>(pair);
        default:
            m_simple.push_back(pair);
            return true;
        }
    }

    template <class Shape>
    static bool areAlikeAs(const Pair& pair) {
        return areAlike(static_cast<const Shape&>(*pair.first), static_cast<const Shape&>(*pair.second));
    }
    template <class Shape>
    bool openParts(const Pair& pair) {
        return openParts(static_cast<const Shape&>(*pair.first), static_cast<const Shape&>(*pair.second));
    }

    bool takeSetsApart(const Pair& pair) {
        const auto& ones = static_cast<const VrexRigidSet3D&>(*pair.first).geometries();
        const auto& others = static_cast<const VrexRigidSet3D&>(*pair.second).geometries();
        if (ones.empty()) {
            m_simple.push_back(pair);
        }
        for (std::size_t i = 0; i < std::min(ones.size(), others.size()); ++i) {
            open(ones[i], others[i]);
        }
        return ones.size() == others.size();
    }
    bool openParts(const VrexSpline3D& first, const VrexSpline3D& second) {
        return first.degree() == second.degree() && first.periodic() == second.periodic() &&
               areAlike(first.knots(), second.knots()) &&
               openRow(first.controlPoints(), second.controlPoints());
    }
    bool openParts(const VrexNURBSSurface3D& first, const VrexNURBSSurface3D& second) {
        const auto& ones = first.controlPoints();
        const auto& others = second.controlPoints();
        return first.uDegree() == second.uDegree() && first.vDegree() == second.vDegree() &&
               areAlike(first.uKnots(), second.uKnots()) && areAlike(first.vKnots(), second.vKnots()) &&
               std::equal(ones.begin(), ones.end(), others.begin(), others.end(),
                          [this](const auto& one, const auto& other) { return openRow(one, other); });
    }
    bool openParts(const VrexSpinSurface3D& first, const VrexSpinSurface3D& second) {
        open(first.getProfileCurve(), second.getProfileCurve());
        open(first.getAxisLine(), second.getAxisLine());
        return true;
    }
    bool openParts(const VrexSweepSurface3D& first, const VrexSweepSurface3D& second) {
        open(first.getProfileCurve(), second.getProfileCurve());
        open(first.getTrajectoryLine(), second.getTrajectoryLine());
        return true;
    }
    bool openRow(const ControlPoints& first, const ControlPoints& second) {
        return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                          [this](const auto& one, const auto& other) {
                              open(one.point, other.point);
                              return areAlike(one.weight, other.weight);
                          });
    }

    std::vector<Pair> m_open;
    std::vector<Pair> m_simple;
    std::set<std::pair<const VrexGeometry3D*, const VrexGeometry3D*>> m_known;
};

} // namespace

std::optional<std::vector<Pair>> nsImagePairs::of(const std::shared_ptr<VrexGeometry3D>& first,
                                                  const std::shared_ptr<VrexGeometry3D>& second) {
    Apart apart({first, second});
    return apart.takeApart() ? std::optional(apart.simple()) : std::nullopt;
}
