#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

class VrexBaseConstraint;
class VrexBaseGeometry;

/// Degrees of freedom and of constraint, counted and not solved for: what is left over of a system is only
/// known where its constraints are independent of each other.
class VrexDegrees {
public:
    /// Geometries that others of the list carry, or whose freedom is part of theirs, have none of their own.
    explicit VrexDegrees(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries);

    int of(const VrexBaseGeometry& geometry) const;
    /// How many degrees it takes away; none where its kind does not tell.
    static int of(const VrexBaseConstraint& constraint);

private:
    std::unordered_set<const VrexBaseGeometry*> m_carried;
};
