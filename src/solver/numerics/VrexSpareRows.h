#pragma once

#include <unordered_set>

#include <Eigen/Core>
#include <Eigen/SparseCore>

class VrexSolverSystem;

/// Rows of residuals that are allowed to say things more than once, or that hold nothing for good.
namespace nsSpareRows {

/// Clears those rows of the Jacobian, all of length 1 or zero, that are combinations of rows before them in
/// the same residual, up to a rest of `tolerance`, and those that hold on one side alone; tells which they
/// are. Gram-Schmidt, done twice.
std::unordered_set<Eigen::Index> clear(Eigen::SparseMatrix<double>& jacobian, const VrexSolverSystem& system,
                                       double tolerance);

} // namespace nsSpareRows
