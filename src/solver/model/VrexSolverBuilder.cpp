#include "solver/model/VrexSolverBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "solver/model/VrexSolverFaults.h"
#include "solver/model/VrexSolverNames.h"

namespace {

using Kind = VrexSolverResidual::Kind;

/// Beside the constraints, which count 1.
constexpr double WISH_WEIGHT = 1e-2;

/// False for a limit that is not a number or that nothing can keep, too.
bool areSound(const VrexDimensionLimits& limits) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double low = limits.first.value_or(-infinity);
    const double high = limits.second.value_or(infinity);
    return low <= high && low < infinity && high > -infinity;
}

} // namespace

void VrexSolverBuilder::begin(std::size_t place, const VrexBaseConstraint& constraint) {
    m_place = place;
    m_constraint = &constraint;
    m_refusal.clear();
}

const VrexSolverShape* VrexSolverBuilder::shape(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return geometry != nullptr ? m_model.shape(*geometry) : nullptr;
}

VrexSolverBuilder::Help VrexSolverBuilder::addHelp(const std::array<bool, 2>& isFree,
                                                   const std::array<bool, 2>& isLength) {
    VrexSolverMobility mobility;
    mobility.sizes = isFree;
    VrexSolverBody& body = m_model.system().addHelp({{}, mobility});
    body.setSize(0, 0.0, isLength[0]);
    body.setSize(1, 0.0, isLength[1]);
    return {&body, &m_helpShapes.emplace_back(body, VrexSolverFrame())};
}

void VrexSolverBuilder::add(std::size_t rows, Rows evaluate) {
    m_model.system().addResidual({m_place, rows, Kind::EQUALITY, std::move(evaluate)});
}

void VrexSolverBuilder::addWithSpares(std::size_t rows, Rows evaluate) {
    m_model.system().addResidual({m_place, rows, Kind::WITH_SPARES, std::move(evaluate)});
}

void VrexSolverBuilder::addOneSided(Rows evaluate) {
    m_model.system().addResidual({m_place, 1, Kind::ONE_SIDED, std::move(evaluate)});
}

void VrexSolverBuilder::addWish(std::size_t rows, Rows evaluate) {
    const auto weighed = [rows, evaluate = std::move(evaluate)](VrexVariable* values) {
        evaluate(values);
        std::for_each(values, values + rows, [](VrexVariable& value) { value = value * WISH_WEIGHT; });
    };
    m_model.system().addResidual({m_place, rows, Kind::WISH, weighed});
}

void VrexSolverBuilder::addLimits(const VrexDimensionLimits& limits, const Measure& measure, double unit) {
    if (!limits.first.has_value() && !limits.second.has_value()) {
        return;
    }
    requireSound(limits);
    if (limits.first == limits.second) { // nothing can move between them
        addTarget(
            measure, [held = *limits.first] { return VrexVariable(held); }, unit);
        return;
    }
    addOneSided([limits, measure, unit](VrexVariable* row) {
        const VrexVariable value = measure();
        if (limits.first.has_value() && value < *limits.first) {
            row[0] = (value - *limits.first) / unit;
        } else if (limits.second.has_value() && value > *limits.second) {
            row[0] = (value - *limits.second) / unit;
        }
    });
}

void VrexSolverBuilder::blame(const char* reason) const {
    throw std::invalid_argument(nsSolverNames::nameOf(*m_constraint).append(reason));
}

void VrexSolverBuilder::requireSound(const VrexDimensionLimits& limits) const {
    if (!areSound(limits)) {
        blame(" has limits that contradict each other.");
    }
}

void VrexSolverBuilder::requireFinite(double value) const {
    if (!std::isfinite(value)) {
        blame(" has a value that is not finite.");
    }
    if (std::abs(value) > nsSolverFaults::LARGEST_NUMBER) {
        blame(" has a value beyond 1e100.");
    }
}

void VrexSolverBuilder::requireWithin(const VrexDimensionLimits& limits, double value) const {
    requireSound(limits);
    if (value < limits.first.value_or(value) || value > limits.second.value_or(value)) {
        blame(" has a value outside its limits.");
    }
}

void VrexSolverBuilder::addTarget(const Measure& measure, const Measure& target, double unit) {
    add(1, [measure, target, unit](VrexVariable* row) { row[0] = (measure() - target()) / unit; });
}

bool VrexSolverBuilder::moveContacts() const {
    bool hasMoved = false;
    for (const auto& moveContact : m_checks) {
        hasMoved = moveContact() || hasMoved;
    }
    return hasMoved;
}

void VrexSolverBuilder::writeResults() const {
    for (const auto* const results : {&m_results, &m_finalResults}) {
        for (const auto& write : *results) {
            write();
        }
    }
}
