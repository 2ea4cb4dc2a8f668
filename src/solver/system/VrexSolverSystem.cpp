#include "solver/system/VrexSolverSystem.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {

/// What is this small beside the largest derivative of its row is left of directions at right angles, and
/// comes and goes from place to place.
constexpr double ROUNDING = 1e-14;

double largestFinite(const VrexVariable::Derivatives& derivatives) {
    double largest = 0.0;
    for (const auto& entry : derivatives) {
        largest = std::isfinite(entry.value) ? std::max(largest, std::abs(entry.value)) : largest;
    }
    return largest;
}

} // namespace

VrexSolverBody& VrexSolverSystem::addBody(const VrexSolverBody& body) {
    VrexSolverBody& added = m_bodies.emplace_back(body);
    added.setSpace(m_space);
    return added;
}

void VrexSolverSystem::addResidual(VrexSolverResidual residual) {
    m_rowConstraints.insert(m_rowConstraints.end(), residual.rows, residual.constraint);
    m_rowCount += static_cast<Eigen::Index>(residual.rows);
    m_hasWishes = m_hasWishes || residual.kind == VrexSolverResidual::Kind::WISH;
    m_residuals.push_back(std::move(residual));
}

void VrexSolverSystem::numberUnknowns(double length) {
    m_space.setLength(length);
    m_unknownGroups.clear();
    m_unknownCount = 0;
    for (VrexSolverBody& body : m_bodies) {
        number(body);
    }
    m_firstHelp = m_unknownCount;
}

void VrexSolverSystem::number(VrexSolverBody& body) {
    body.setFirstUnknown(static_cast<std::size_t>(m_unknownCount));
    const auto [shifts, turns, first, second] = body.mobility().counts();
    const bool isPlaced = shifts + turns > 0;
    std::optional<Eigen::Index> length;
    std::optional<Eigen::Index> angle;
    const auto add = [&](std::size_t count, std::optional<Eigen::Index>& group) {
        for (std::size_t i = 0; i < count; ++i) {
            group = group.value_or(m_unknownCount);
            m_unknownGroups.push_back(*group);
            ++m_unknownCount;
        }
    };
    add(shifts, length);
    add(turns, angle);
    std::optional<Eigen::Index> ownFirst;
    std::optional<Eigen::Index> ownSecond;
    add(first, !isPlaced ? ownFirst : body.isLength(0) ? length : angle);
    add(second, !isPlaced ? ownSecond : body.isLength(1) ? length : angle);
}

VrexSolverBody& VrexSolverSystem::addHelp(const VrexSolverBody& body) {
    VrexSolverBody& help = addBody(body);
    number(help);
    return help;
}

void VrexSolverSystem::evaluate(bool withDerivatives, bool withWishes) {
    m_values.setZero(m_rowCount);
    std::optional<VrexSolverSpace::ValuesOnly> valuesOnly;
    if (withDerivatives) {
        m_entries.clear();
        m_rowEntries.assign(static_cast<std::size_t>(m_rowCount), 0);
    } else {
        valuesOnly.emplace(m_space);
    }
    Eigen::Index row = 0;
    for (const VrexSolverResidual& residual : m_residuals) {
        if (isInForce(residual, withWishes)) {
            addRows(row, residual);
        }
        row += static_cast<Eigen::Index>(residual.rows);
    }
    if (withDerivatives) {
        m_jacobian.resize(m_rowCount, m_unknownCount);
        m_jacobian.setFromTriplets(m_entries.begin(), m_entries.end());
    }
}

void VrexSolverSystem::holdOnly(const std::vector<std::size_t>& constraints) {
    m_held.emplace(constraints.begin(), constraints.end());
}

bool VrexSolverSystem::isInForce(const VrexSolverResidual& residual, bool withWishes) const {
    return residual.kind == VrexSolverResidual::Kind::WISH
               ? withWishes
               : !m_held.has_value() || m_held->contains(residual.constraint);
}

void VrexSolverSystem::addRows(Eigen::Index row, const VrexSolverResidual& residual) {
    m_rows.assign(residual.rows, VrexVariable());
    residual.evaluate(m_rows.data());
    for (const VrexVariable& value : m_rows) {
        addRow(row++, value);
    }
}

void VrexSolverSystem::addRow(Eigen::Index row, const VrexVariable& value) {
    m_values[row] = value.value();
    const double least = ROUNDING * largestFinite(value.derivatives());
    for (const auto& entry : value.derivatives()) {
        if (!(std::abs(entry.value) <= least)) { // also what is not finite
            ++m_rowEntries[static_cast<std::size_t>(row)];
            m_entries.emplace_back(row, static_cast<Eigen::Index>(entry.key), entry.value);
        }
    }
}

void VrexSolverSystem::move(const Eigen::VectorXd& step) {
    for (VrexSolverBody& body : m_bodies) {
        if (!body.isFixed()) {
            body.move(step.data() + body.firstUnknown());
        }
    }
}

void VrexSolverSystem::restore() { std::copy(m_saved.begin(), m_saved.end(), m_bodies.begin()); }
