#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexBaseGeometry.h"
#include "data/VrexExport.h"
#include "data/base/VrexBaseDataManager.h"
#include "data/base/VrexIDRelation.h"
#include "data/geometry/VrexCorrelationCurveManager.h"
#include "data/geometry/VrexGeometrySetManager.h"

class VrexLogRecorder;

/// The geometries of a system by identifier, and beside them which are used by which, which belong to which
/// set, and which curves were made from which by offset or copy.
///
/// Identifier 0 means none; all geometries without an identifier share one place. The relations know
/// identifiers only. Lists of results rise by identifier. Null is refused by every operation that takes a
/// geometry, with `GEOMETRY_ID_INVALID` recorded, and passed over in every list. One thread at a time.
class VREX_DATA_EXPORT VrexGeometryManager : public VrexBaseDataManager<VrexBaseGeometry> {
public:
    /// The recorder must outlive the manager.
    explicit VrexGeometryManager(VrexLogRecorder& logRecorder);
    VrexGeometryManager(const VrexGeometryManager&) = default;
    VrexGeometryManager& operator=(const VrexGeometryManager&) = delete;
    ~VrexGeometryManager() override;
    /// Forgets all geometries and relations.
    void clear() override;
    /// Stores `geometry`. Where its identifier is taken the old one stays and `ID_EXISTED` is recorded.
    virtual void addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry);

    /// Forgets the geometry: as a user of what it is built on now, as a set and as a member of one, and as a
    /// curve with all that derives from it. False when it was not stored.
    ///
    /// Those that use it keep their entry, which `removeGeometryFromMap` takes away. A geometry that was
    /// rebuilt since it was added leaves entries behind.
    bool removeGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry);
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const;
    /// Appends the geometries of `ids` to `out`, in order. At the first that is missing it records
    /// `GEOMETRY_ID_INVALID` and answers false; what was found before stays in `out`.
    bool getGeometries(const std::vector<std::uint64_t>& ids,
                       std::vector<std::shared_ptr<VrexBaseGeometry>>& out) const;
    /// Every stored geometry that is `Changed` becomes `NotChanged`.
    void resetStatus();

    /// The stored geometries that use this one.
    std::vector<std::shared_ptr<VrexBaseGeometry>>
    findRelatedGeometries(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    /// Forgets who uses `id`.
    void removeGeometryFromMap(std::uint64_t id);

    /// The identifier of the set that holds this one, or 0.
    std::uint64_t findRelatedSet(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    /// Enters the geometry, and at every depth what it is built on, into the set.
    void addGeometryRelateSet(const std::shared_ptr<VrexBaseGeometry>& geometry, std::uint64_t setId);
    /// Empties the set and enters its present members, what they are built on left out.
    void updateGeometryRelateSet(const std::shared_ptr<VrexBaseGeometry>& set);
    /// False for a geometry that is in no set.
    bool removeGeometryFromSet(std::uint64_t id);

    /// Does nothing for a 0, for a child that has a parent, and for a curve as its own parent; as does
    /// `addCopyCurveRelationship`.
    void addOffsetRelationship(std::uint64_t child, std::uint64_t parent);
    void addCopyCurveRelationship(std::uint64_t child, std::uint64_t parent);
    /// The curve at the top, 0 for one that was not made from another.
    std::uint64_t findOffsetRootCurve(std::uint64_t id) const;
    std::uint64_t findCopyCurveRootCurve(std::uint64_t id) const;
    /// The curves that were made from this one directly.
    std::vector<std::uint64_t> findOffsetChildCurve(std::uint64_t id) const;
    std::vector<std::uint64_t> findCopyCurveChildCurve(std::uint64_t id) const;

protected:
    /// Registers a stored geometry as a user of what it is built on.
    void initGeometryRelatedMap(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// Enters what `set` is built on, one level deep, into it.
    void enterMembers(const VrexBaseGeometry& set);

    VrexIDRelation m_relatedMap; ///< From a geometry to its users.
    VrexGeometrySetManager m_geometrySetManager;

private:
    /// False, and recorded, for null.
    bool checkNotNull(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    void clearGeometrySets();
    void clearCurves();
    void clearGeometryIds();

    VrexCorrelationCurveManager m_offsetCurveManager;
    VrexCorrelationCurveManager m_copyCurveManager;
    VrexLogRecorder& m_logRecorder;
};
