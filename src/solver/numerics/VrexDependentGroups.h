#pragma once

#include <cstddef>
#include <set>
#include <vector>

#include <Eigen/Core>
#include <Eigen/SparseCore>

/// Which constraints say the same, told by relations: multiples of rows of the Jacobian whose sum vanishes.
namespace nsDependentGroups {

/// A row that depends on others, and its multiples of the rows, among them its own, which is in no other
/// relation.
struct Relation {
    Eigen::Index row = 0;
    Eigen::SparseVector<double> multiples;
};

/// By row the constraint that it belongs to.
using Owners = std::vector<std::size_t>;

/// Groups of constraints that depend on each other and no more do so once any one is left out. Each group is
/// in rising order, and none is there twice. Every relation has one in which its own row takes part, unless
/// fewer of its constraints depend on each other without that row.
std::set<std::vector<std::size_t>> minimal(const std::vector<Relation>& relations, const Owners& owners);

} // namespace nsDependentGroups
