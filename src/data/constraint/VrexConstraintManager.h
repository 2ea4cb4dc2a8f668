#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexExport.h"
#include "data/base/VrexBaseDataManager.h"
#include "data/base/VrexIDRelation.h"

class VrexBaseGeometry;
class VrexLogRecorder;

/// The constraints and equations of a system by identifier, and which of them touch a geometry or are made of
/// another constraint.
///
/// The relations know identifiers only: all geometries without an identifier share one entry, and of the
/// constraints without one only the first is stored. Lists of results rise by identifier. Null is refused by
/// every operation that takes an object, and passed over in every list. One thread at a time.
class VREX_DATA_EXPORT VrexConstraintManager : public VrexBaseDataManager<VrexBaseConstraint> {
public:
    /// In place of an index: the geometry selects the slot.
    static constexpr std::uint64_t INVALID_PARAMETER_INDEX = std::numeric_limits<std::uint64_t>::max();
    static constexpr std::uint64_t INVALID_HELP_POINT_INDEX = std::numeric_limits<std::uint64_t>::max();

    /// The recorder must outlive the manager.
    explicit VrexConstraintManager(VrexLogRecorder& logRecorder);
    VrexConstraintManager(const VrexConstraintManager&) = default;
    VrexConstraintManager& operator=(const VrexConstraintManager&) = delete;
    ~VrexConstraintManager() override;
    /// Forgets all constraints and relations.
    /// Kept: the over-constrained subsets stay.
    void clear() override;

    /// Stores the constraint and what it touches. Where its identifier is taken `ID_EXISTED` is recorded and
    /// nothing changes.
    void addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// Forgets the constraint and what it touches now; what it touched before `updateRelatedGeometries` only
    /// stays. False when it was not stored.
    bool removeConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// The stored constraints on the geometry. Those known by identifier that are not stored are left out,
    /// and `CONSTRAINT_ID_INVALID` is recorded for each.
    std::vector<std::shared_ptr<VrexBaseConstraint>>
    findRelatedConstraints(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    /// The stored constraints that are made of this one, in the same way.
    std::vector<std::shared_ptr<VrexBaseConstraint>>
    findRelatedConstraints(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() const;
    /// Registers the constraint with the geometries that it has now.
    /// Kept: geometries that it has left stay registered.
    void updateRelatedGeometries(const std::shared_ptr<VrexBaseConstraint>& constraint);

    /// The solver's: identifiers of constraints that cannot hold together, a list each.
    std::vector<std::vector<std::uint64_t>> getOverConstrainedSubsets() const;
    void setOverConstrainedSubsets(std::vector<std::vector<std::uint64_t>> subsets);

protected:
    /// Forgets that these constraints touch the geometry.
    void removeRelatedMap(const std::shared_ptr<VrexBaseGeometry>& geometry,
                          const std::vector<std::uint64_t>& ids);
    const VrexIDRelation& getRelatedGeometryMap() const { return m_relatedGeometryMap; }
    const VrexIDRelation& getRelatedConstraintMap() const { return m_relatedConstraintMap; }
    /// Records that no constraint goes by this identifier; always false.
    bool refuseConstraintId(std::uint64_t id) const;
    /// False, and recorded, for null.
    bool checkNotNull(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    bool checkNotNull(const std::shared_ptr<VrexBaseGeometry>& geometry) const;

    VrexLogRecorder& m_logRecorder;

private:
    std::vector<std::shared_ptr<VrexBaseConstraint>> findStored(const std::vector<std::uint64_t>& ids) const;
    void registerGeometries(const VrexBaseConstraint& constraint);

    VrexIDRelation m_relatedGeometryMap;   ///< From a geometry to the constraints on it.
    VrexIDRelation m_relatedConstraintMap; ///< From a constraint to those that are made of it.
    std::vector<std::vector<std::uint64_t>> m_overConstrainedSubsets;
};
