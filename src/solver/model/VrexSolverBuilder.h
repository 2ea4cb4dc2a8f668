#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexVariable.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "solver/model/VrexSolverModel.h"
#include "solver/system/VrexSolverShape.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// Where the families of residuals put what a constraint asks for.
///
/// Functions that are added are called again and again while the bodies move, so they hold shapes by address
/// and read everything else once.
class VrexSolverBuilder {
public:
    using Measure = std::function<VrexVariable()>;
    using Rows = std::function<void(VrexVariable* rows)>;

    explicit VrexSolverBuilder(VrexSolverModel& model) : m_model(model) {}

    VrexSolverModel& model() const { return m_model; }
    double length() const { return m_model.length(); }

    /// What is added from now on is asked for by the constraint at this place of the component's list.
    void begin(std::size_t place, const VrexBaseConstraint& constraint);
    /// Why what the constraint asks for cannot be added; empty where it was.
    std::string end() { return std::exchange(m_refusal, {}); }

    // For the families.

    /// A pair of numbers of the constraint's own, such as the parameters of a point of contact. It starts at
    /// the values that the body is given; no part of it is seen from outside.
    struct Help {
        VrexSolverBody* body;
        const VrexSolverShape* shape; ///< With sizes 0 and 1.
    };
    /// Numbers that are not free keep their values.
    Help addHelp(const std::array<bool, 2>& isFree, const std::array<bool, 2>& isLength);

    /// Null for a null, and for what has no shape.
    const VrexSolverShape* shape(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    void add(std::size_t rows, Rows evaluate);
    /// Rows of which some may say what others of them do: that makes no constraint overdefined.
    void addWithSpares(std::size_t rows, Rows evaluate);
    /// A row that is zero on one side, where nothing is held.
    void addOneSided(Rows evaluate);
    /// What pulls, but need not be reached.
    void addWish(std::size_t rows, Rows evaluate);
    /// Keeps `measure` between the limits, of which either may be missing. `unit` is what one row is of it:
    /// the component's length for a length, 1 for an angle. Throws `std::invalid_argument` that names the
    /// constraint for limits that contradict each other or are no numbers.
    void addLimits(const VrexDimensionLimits& limits, const Measure& measure, double unit);
    /// Throws `std::invalid_argument` that names the constraint for a value that is not finite.
    void requireFinite(double value) const;
    /// Throws likewise for limits that contradict each other or are no numbers, and for a value beyond them.
    void requireWithin(const VrexDimensionLimits& limits, double value) const;
    /// Keeps `measure` at `target`.
    void addTarget(const Measure& measure, const Measure& target, double unit);
    /// To be asked once all residuals vanish: moves points of contact that are no longer where two entities
    /// are nearest, and tells whether it did.
    void addCheck(std::function<bool()> moveContact) { m_checks.push_back(std::move(moveContact)); }
    /// To be done once the component is solved: writes what was measured into the constraint.
    void addResult(std::function<void()> write) { m_results.push_back(std::move(write)); }
    /// To be done behind those: what of them it writes again counts.
    void addFinalResult(std::function<void()> write) { m_finalResults.push_back(std::move(write)); }
    /// The constraint is of no kind, or between kinds, that this solver knows.
    void refuse(const std::string& reason) { m_refusal = reason; }

    /// Whether any point of contact had to move, so that the search goes on.
    bool moveContacts() const;
    void writeResults() const;

private:
    void requireSound(const VrexDimensionLimits& limits) const;
    /// Throws `std::invalid_argument` with the constraint's name and what is wrong with it.
    [[noreturn]] void blame(const char* reason) const;

    VrexSolverModel& m_model;
    std::size_t m_place = 0;
    const VrexBaseConstraint* m_constraint = nullptr;
    std::string m_refusal;
    std::vector<std::function<bool()>> m_checks;
    std::vector<std::function<void()>> m_results;
    std::vector<std::function<void()>> m_finalResults;
    std::deque<VrexSolverShape> m_helpShapes; ///< Functions hold their addresses.
};
