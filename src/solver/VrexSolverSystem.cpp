#include "solver/VrexSolverSystem.h"

#include <algorithm>
#include <utility>

VrexSolverBody& VrexSolverSystem::addBody(const VrexSolverBody& body) { return m_bodies.emplace_back(body); }

void VrexSolverSystem::addResidual(VrexSolverResidual residual) {
    m_rowConstraints.insert(m_rowConstraints.end(), residual.rows, residual.constraint);
    m_rowCount += static_cast<Eigen::Index>(residual.rows);
    m_residuals.push_back(std::move(residual));
}

void VrexSolverSystem::numberUnknowns(double length) {
    m_length = length;
    std::size_t unknown = 0;
    for (VrexSolverBody& body : m_bodies) {
        body.setLength(length);
        body.setFirstUnknown(unknown);
        unknown += body.unknownCount();
    }
    m_unknownCount = static_cast<Eigen::Index>(unknown);
    m_firstHelp = m_unknownCount;
}

VrexSolverBody& VrexSolverSystem::addHelp(const VrexSolverBody& body) {
    VrexSolverBody& help = m_bodies.emplace_back(body);
    help.setLength(m_length);
    help.setFirstUnknown(static_cast<std::size_t>(m_unknownCount));
    m_unknownCount += static_cast<Eigen::Index>(help.unknownCount());
    return help;
}

void VrexSolverSystem::evaluate(bool withDerivatives, bool withWishes) {
    m_values.setZero(m_rowCount);
    m_entries.clear();
    m_rowEntries.assign(static_cast<std::size_t>(m_rowCount), 0);
    Eigen::Index row = 0;
    for (const VrexSolverResidual& residual : m_residuals) {
        if (!residual.isSoft || withWishes) {
            addRows(row, residual, withDerivatives);
        }
        row += static_cast<Eigen::Index>(residual.rows);
    }
    if (withDerivatives) {
        m_jacobian.resize(m_rowCount, m_unknownCount);
        m_jacobian.setFromTriplets(m_entries.begin(), m_entries.end());
    }
}

void VrexSolverSystem::addRows(Eigen::Index row, const VrexSolverResidual& residual, bool withDerivatives) {
    m_rows.assign(residual.rows, VrexVariable());
    residual.evaluate(m_rows.data());
    for (const VrexVariable& value : m_rows) {
        addRow(row++, value, withDerivatives);
    }
}

void VrexSolverSystem::addRow(Eigen::Index row, const VrexVariable& value, bool withDerivatives) {
    m_values[row] = value.value();
    if (!withDerivatives) {
        return;
    }
    for (const auto& entry : value.derivatives()) {
        if (entry.value != 0.0) {
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
