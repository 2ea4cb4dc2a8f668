#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "data/graph/VrexConnectedComponent.h"

class VrexTransform3D;

/// A copy of a system for the solver to move, and the way back.
///
/// The copies have the identifiers of their sources where these are told apart by them, geometries and
/// constraints together, as a graph needs it. Otherwise the copies are numbered from 1.
class VrexSolverCopy {
public:
    using Geometries = VrexConnectedComponent::Geometries;
    using Constraints = VrexConnectedComponent::Constraints;

    /// Throws what the cloner throws: a constraint may bind only what is in the lists.
    VrexSolverCopy(const Geometries& geometries, const Constraints& constraints);

    const Geometries& geometries() const { return m_geometryCopies; }
    const Constraints& constraints() const { return m_constraintCopies; }
    /// The same drag of the copies.
    std::shared_ptr<VrexTransform3D> copyOf(const VrexTransform3D& drag) const;
    /// The identifier of the source that the copy of this number was made of.
    std::uint64_t sourceId(std::uint64_t number) const {
        return m_sourceIds.empty() ? number : m_sourceIds[number];
    }
    /// Writes what the solver found into the sources: numbers and statuses, and nothing else.
    void layBack() const;

private:
    bool hasClashingIds() const;
    void renumber();

    Geometries m_geometries; ///< Parts of the listed ones included.
    Constraints m_constraints;
    Geometries m_geometryCopies;
    Constraints m_constraintCopies;
    std::vector<std::uint64_t> m_sourceIds; ///< By number; empty where copies kept them.
};
