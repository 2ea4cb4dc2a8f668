#include "solver/numerics/VrexLeastSquares.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "solver/numerics/VrexDampedStep.h"
#include "solver/system/VrexSolverSystem.h"

namespace {

/// Between what Nielsen takes for a start that is believed to be good, 1e-6, and for others, 1e-3.
constexpr double FIRST_DAMPING = 1e-4;
/// Of so many unknowns the damping begins to fall, as one by the square of their count: so do the squares
/// that the slowest motions of a chain change its residuals by, and more would leave these for the last.
constexpr double CHAIN = 100.0;
constexpr double LEAST_DAMPING = 1e-14;
constexpr double GREATEST_DAMPING = 1e12;
/// A step that gains less than this part is the last: the minimum is reached, be it zero or not.
constexpr double LEAST_GAIN = 1e-9;
/// Steps that still gain such a part are on their way to zero. What contradicts itself creeps at the end.
constexpr double PROMISING_GAIN = 0.1;

/// The damping factor between the steps: less where the linear model holds, ever more where it does not.
class Damping {
public:
    explicit Damping(Eigen::Index unknowns)
        : m_value(FIRST_DAMPING * std::pow(std::min(1.0, CHAIN / static_cast<double>(unknowns)), 2)) {}

    double value() const { return m_value; }
    bool isExhausted() const { return m_value > GREATEST_DAMPING; }
    void accept(double gainRatio) {
        const double x = 2.0 * gainRatio - 1.0;
        m_value = std::max(LEAST_DAMPING, m_value * std::max(1.0 / 10.0, 1.0 - x * x * x));
        m_growth = 2.0;
    }
    void refuse() {
        m_value *= m_growth;
        m_growth *= 2.0;
    }

private:
    double m_value;
    double m_growth = 2.0;
};

/// Takes the step under the present damping; back where it was and false where it does not gain.
bool tryStep(VrexSolverSystem& system, VrexDampedStep& linear, Damping& damping, double cost,
             bool withWishes) {
    const Eigen::VectorXd step = linear.solve(damping.value());
    const double predicted = linear.predictedGain(step, damping.value());
    if (!step.allFinite() || !(predicted > 0.0)) {
        return false;
    }
    system.move(step);
    system.evaluate(false, withWishes);
    const double gain = cost - 0.5 * system.values().squaredNorm();
    if (gain > 0.0) { // false also for NaN
        damping.accept(gain / predicted);
        return true;
    }
    system.restore();
    return false;
}

/// Tries steps under rising damping until one gains; false where none does.
bool advance(VrexSolverSystem& system, VrexDampedStep& linear, Damping& damping, bool withWishes) {
    const double cost = 0.5 * system.values().squaredNorm();
    system.save();
    while (!damping.isExhausted()) {
        if (tryStep(system, linear, damping, cost, withWishes)) {
            return true;
        }
        damping.refuse();
    }
    system.evaluate(false, withWishes);
    return false;
}

} // namespace

VrexLeastSquares::VrexLeastSquares(double tolerance, int maxIterations, KeepGoing keepGoing)
    : m_tolerance(tolerance), m_maxIterations(maxIterations), m_keepGoing(std::move(keepGoing)) {}

VrexLeastSquaresResult VrexLeastSquares::solve(VrexSolverSystem& system, bool withWishes) const {
    VrexLeastSquaresResult result;
    VrexDampedStep linear(system.unknownGroups());
    Damping damping(system.unknownCount());
    system.evaluate(false, withWishes);
    result.largestResidual = system.largestValue();
    // Once started the last digits cost one or two steps more, since the convergence is quadratic.
    const double target = 1e-3 * m_tolerance;
    double wanted = m_tolerance;
    bool isGaining = system.unknownCount() > 0; // else nothing can move
    bool isPromising = isGaining;
    while (isGaining && !(result.largestResidual <= wanted) && result.iterations < m_maxIterations) {
        if (m_keepGoing && !m_keepGoing(result.iterations, result.largestResidual)) {
            result.isCancelled = true;
            break;
        }
        wanted = target;
        system.evaluate(true, withWishes);
        linear.setJacobian(system.jacobian(), system.values());
        const double costBefore = system.values().squaredNorm();
        const bool hasMoved = advance(system, linear, damping, withWishes);
        const double cost = system.values().squaredNorm();
        const bool hasGained = cost < (1.0 - LEAST_GAIN) * costBefore;
        ++result.iterations;
        const double before = result.largestResidual;
        result.largestResidual = system.largestValue();
        isPromising = cost < (1.0 - PROMISING_GAIN) * costBefore;
        isGaining = hasMoved && hasGained && (before > m_tolerance || result.largestResidual <= 0.5 * before);
    }
    result.isConverged = result.largestResidual <= m_tolerance;
    result.isUnfinished = isGaining && isPromising && !result.isConverged && !result.isCancelled;
    return result;
}
