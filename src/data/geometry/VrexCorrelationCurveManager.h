#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/base/VrexIDHash.h"
#include "data/base/VrexIDRelation.h"

/// Which curves derive from which, by identifiers; 0 means none. A curve has one parent at most.
class VREX_DATA_EXPORT VrexCorrelationCurveManager {
public:
    /// False, and nothing changed, for a 0, for a child that has a parent, and for a curve as its own parent.
    /// Longer rings are not noticed.
    bool addToParent(std::uint64_t child, std::uint64_t parent);
    /// 0 for a curve without a parent.
    std::uint64_t findParent(std::uint64_t id) const;
    /// The topmost curve above `id`.
    /// Kept: 0, not itself, for a curve without a parent. 0 with a line in the log on a ring.
    std::uint64_t findRoot(std::uint64_t id) const;
    /// The curves that derive from `id` directly, rising.
    std::vector<std::uint64_t> findChildren(std::uint64_t id) const;
    /// Forgets `id` and all that derives from it.
    /// Kept: does nothing for a curve without a parent, whose children stay its children; and the parent of
    /// `id` stays known as a parent, of no curve perhaps.
    void erase(std::uint64_t id);
    void eraseAll();
    /// Whether curves ever derived from `id`, since it was last forgotten.
    bool isKnownParent(std::uint64_t id) const { return m_children.contains(id); }

private:
    std::unordered_map<std::uint64_t, std::uint64_t, VrexIDHash> m_parents;
    VrexIDRelation m_children;
};
