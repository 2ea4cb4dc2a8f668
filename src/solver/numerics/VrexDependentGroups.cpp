#include "solver/numerics/VrexDependentGroups.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

#include <Eigen/QR>
#include <Eigen/SVD>

namespace {

using nsDependentGroups::Owners;
using nsDependentGroups::Relation;
using Matrix = Eigen::MatrixXd;
using Index = Eigen::Index;

/// What is smaller, in a relation of length 1, comes from rounding.
constexpr double NOTHING = 1e-5;

/// All multiples of the columns of `matrix` that make its entries vanish, at right angles and of length 1.
Matrix kernel(const Matrix& matrix) {
    const Eigen::JacobiSVD<Matrix> factor(matrix, Eigen::ComputeFullV);
    const double least = NOTHING * std::sqrt(static_cast<double>(matrix.rows()));
    const auto rank = (factor.singularValues().array() > least).count();
    return factor.matrixV().rightCols(matrix.cols() - rank);
}

/// The rows that take part in some relations, each with a place in a matrix.
struct Layout {
    Layout(const std::vector<const Relation*>& relations, const Owners& owners) {
        std::set<Index> known;
        for (const Relation* const relation : relations) {
            for (Eigen::SparseVector<double>::InnerIterator entry(relation->multiples); entry; ++entry) {
                known.insert(entry.index());
            }
        }
        rows.assign(known.begin(), known.end());
        for (std::size_t place = 0; place < rows.size(); ++place) {
            const auto row = static_cast<std::size_t>(rows[place]);
            places[owners[row]].push_back(static_cast<Index>(place));
        }
    }
    Index placeOf(Index row) const { return std::lower_bound(rows.begin(), rows.end(), row) - rows.begin(); }

    std::vector<Index> rows;                          ///< Of the Jacobian, in rising order.
    std::map<std::size_t, std::vector<Index>> places; ///< By constraint.
};

/// The relations among the rows of some constraints: all sums of multiples of the columns of a matrix whose
/// columns have length 1 and stand at right angles.
class Relations {
public:
    /// All of these, each independent of the others.
    Relations(const std::vector<const Relation*>& relations, const Owners& owners)
        : m_layout(std::make_shared<Layout>(relations, owners)),
          m_basis(
              Matrix::Zero(static_cast<Index>(m_layout->rows.size()), static_cast<Index>(relations.size()))) {
        for (std::size_t i = 0; i < relations.size(); ++i) {
            for (Eigen::SparseVector<double>::InnerIterator entry(relations[i]->multiples); entry; ++entry) {
                m_basis(m_layout->placeOf(entry.index()), static_cast<Index>(i)) = entry.value();
            }
        }
        straighten();
    }

    /// How many there are, of which none is a sum of multiples of others.
    Index count() const { return m_basis.cols(); }
    /// The constraints that take part.
    std::vector<std::size_t> members() const {
        std::vector<std::size_t> result;
        for (const auto& [constraint, places] : m_layout->places) {
            if (m_basis(places, Eigen::all).cwiseAbs().maxCoeff() > NOTHING) {
                result.push_back(constraint);
            }
        }
        return result;
    }
    /// Whether this row of the Jacobian takes part; it has a place here.
    bool has(Index row) const { return m_basis.row(m_layout->placeOf(row)).norm() > NOTHING; }
    /// Those in which the constraint takes no part. One that takes part in the only one leaves none, and most
    /// often that is the case.
    Relations without(std::size_t constraint) const {
        const Matrix part = m_basis(m_layout->places.at(constraint), Eigen::all);
        return with(part.cols() == 1 && part.norm() > NOTHING ? Matrix(1, 0) : kernel(part));
    }
    /// Those among these constraints.
    Relations among(const std::vector<std::size_t>& constraints) const {
        const std::set<std::size_t> kept(constraints.begin(), constraints.end());
        std::vector<Index> others;
        for (const auto& [constraint, places] : m_layout->places) {
            if (!kept.contains(constraint)) {
                others.insert(others.end(), places.begin(), places.end());
            }
        }
        return others.empty() ? *this : with(kernel(m_basis(others, Eigen::all)));
    }

private:
    Relations with(const Matrix& multiples) const {
        Relations result(*this);
        result.m_basis = m_basis * multiples;
        return result;
    }
    void straighten() {
        const Eigen::HouseholderQR<Matrix> factor(m_basis);
        m_basis = factor.householderQ() * Matrix::Identity(m_basis.rows(), m_basis.cols());
    }

    std::shared_ptr<const Layout> m_layout;
    Matrix m_basis;
};

/// Leaves out one constraint after the other as long as relations remain that are `wanted`. What one could
/// not be left out of it cannot be left out of less.
template <class IsWanted>
Relations reduced(Relations relations, const IsWanted& isWanted) {
    for (const std::size_t member : relations.members()) {
        Relations rest = relations.without(member);
        if (rest.count() > 0 && rest.count() < relations.count() && isWanted(rest)) {
            relations = std::move(rest);
        }
    }
    return relations;
}

/// The relations by the constraint that their own row belongs to.
using RelationsByOwner = std::unordered_map<std::size_t, std::vector<const Relation*>>;

/// The relation, and others that there are among its constraints.
Relations around(const Relation& relation, const RelationsByOwner& all, const Owners& owners) {
    const std::vector<std::size_t> members = Relations({&relation}, owners).members();
    std::vector<const Relation*> near;
    for (const std::size_t member : members) {
        const auto found = all.find(member);
        if (found != all.end()) {
            near.insert(near.end(), found->second.begin(), found->second.end());
        }
    }
    return Relations(near, owners).among(members);
}

} // namespace

std::set<std::vector<std::size_t>> nsDependentGroups::minimal(const std::vector<Relation>& relations,
                                                              const Owners& owners) {
    RelationsByOwner byOwner;
    for (const Relation& relation : relations) {
        byOwner[owners[static_cast<std::size_t>(relation.row)]].push_back(&relation);
    }
    std::set<std::vector<std::size_t>> groups;
    for (const Relation& relation : relations) {
        const auto withRow = [&relation](const Relations& rest) { return rest.has(relation.row); };
        const auto any = [](const Relations&) { return true; };
        const Relations own = reduced(around(relation, byOwner, owners), withRow);
        groups.insert(reduced(own, any).members());
    }
    return groups;
}
