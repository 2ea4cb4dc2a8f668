#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <Eigen/Core>
#include <gtest/gtest.h>

#include "data/VrexBaseConstraint.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverModel.h"
#include "solver/residuals/VrexSolverResiduals.h"

/// What of a component the solver sees: bodies that can be moved, and the residuals of the constraints.
class SolverProbe {
public:
    using Geometries = VrexSolverModel::Geometries;
    using Constraints = VrexSolverModel::Constraints;

    SolverProbe(const Geometries& geometries, const Constraints& constraints)
        : m_model(geometries, constraints), m_builder(m_model) {
        for (std::size_t i = 0; i < constraints.size(); ++i) {
            m_refusals.append(VrexSolverResiduals::add(m_builder, i, *constraints[i]));
        }
    }

    VrexSolverSystem& system() { return m_model.system(); }
    const VrexSolverBuilder& builder() const { return m_builder; }
    /// Of the builder, one behind the other; empty where it took all.
    const std::string& refusals() const { return m_refusals; }

    Eigen::VectorXd values() {
        system().evaluate(false, true);
        return system().values();
    }
    /// Moves all bodies by unknowns drawn up to `size`, the same ones for the same `seed`, and writes the
    /// entities.
    void disturb(double size, std::uint64_t seed) {
        std::mt19937_64 random(seed);
        std::uniform_real_distribution<double> uniform(-size, size);
        const auto next = [&](Eigen::Index) { return uniform(random); };
        system().move(Eigen::VectorXd::NullaryExpr(system().unknownCount(), next));
        m_model.writeBack();
    }
    /// Expects that every derivative agrees with the five-point difference, which steps of 1e-4 make good to
    /// about 1e-10: a body's motions are analytic, and rounding counts 1e-16 / 1e-4.
    void expectDerivativesMatch(double tolerance = 1e-8) {
        ASSERT_EQ(m_refusals, "");
        system().evaluate(true, true);
        ASSERT_TRUE(system().values().allFinite());
        const Eigen::MatrixXd jacobian = system().jacobian();
        ASSERT_GT(jacobian.rows(), 0);
        for (Eigen::Index column = 0; column < jacobian.cols(); ++column) {
            const Eigen::VectorXd slopes = slopesBy(column);
            for (Eigen::Index row = 0; row < jacobian.rows(); ++row) {
                EXPECT_NEAR(jacobian(row, column), slopes[row],
                            tolerance * std::max(1.0, std::abs(slopes[row])))
                    << "row " << row << " by unknown " << column;
            }
        }
    }

private:
    Eigen::VectorXd slopesBy(Eigen::Index unknown) {
        constexpr double step = 1e-4;
        const auto at = [&](double steps) {
            system().save();
            system().move(Eigen::VectorXd::Unit(system().unknownCount(), unknown) * (steps * step));
            Eigen::VectorXd result = values();
            system().restore();
            return result;
        };
        return (8.0 * (at(1.0) - at(-1.0)) - (at(2.0) - at(-2.0))) / (12.0 * step);
    }

    VrexSolverModel m_model;
    VrexSolverBuilder m_builder;
    std::string m_refusals;
};

/// Checks the derivatives of one constraint between free entities, and between the same entities as members
/// of a rigid set each. `numbers` are those that stay free: bound variables and the like.
inline void expectJacobianMatches(const std::shared_ptr<VrexBaseConstraint>& constraint,
                                  const std::vector<std::shared_ptr<VrexGeometry3D>>& entities,
                                  const SolverProbe::Geometries& numbers = {}, double tolerance = 1e-8) {
    SolverProbe::Geometries free(numbers);
    SolverProbe::Geometries carried(numbers);
    for (const auto& entity : entities) {
        free.push_back(entity);
        carried.push_back(VrexRigidSet3D::create({entity}));
        carried.push_back(entity);
    }
    {
        SCOPED_TRACE("free");
        SolverProbe(free, {constraint}).expectDerivativesMatch(tolerance);
    }
    SCOPED_TRACE("as members of rigid sets");
    SolverProbe(carried, {constraint}).expectDerivativesMatch(tolerance);
}

/// Moves the entities away from where they stand, rigid sets as a whole, what is fixed not at all.
inline void disturb(const SolverProbe::Geometries& geometries, const SolverProbe::Constraints& constraints,
                    double size, std::uint64_t seed) {
    SolverProbe(geometries, constraints).disturb(size, seed);
}
