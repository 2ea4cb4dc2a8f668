#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/graph/VrexDegreesOfFreedom2D.h"
#include "data/graph/VrexInsertionSetT.h"
#include "data/graph/VrexResultStatus.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// A piece of a system that can be solved by itself: geometries and constraints, fixations included.
///
/// Objects are told apart by address and listed in the order of their addition. Nulls are passed over. Not
/// even reading is for several threads.
class VREX_DATA_EXPORT VrexConnectedComponent {
public:
    using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
    using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

    VrexConnectedComponent();
    /// Adds the geometries, then the constraints, in order.
    VrexConnectedComponent(const Geometries& geometries, const Constraints& constraints);
    VrexConnectedComponent(const VrexConnectedComponent&);
    VrexConnectedComponent& operator=(const VrexConnectedComponent&);
    virtual ~VrexConnectedComponent();

    void addGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// With one that holds its geometry completely the geometry comes too, fixed by the latest such
    /// constraint. Does nothing for a constraint that is there.
    void addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);
    bool hasGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    bool hasConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    Geometries getGeometries() const;
    Constraints getConstraints() const;
    /// The constraint that holds the geometry completely, null where there is none.
    std::shared_ptr<VrexBaseConstraint>
    getCompleteFixation(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    /// Kept: its fixation stays, in the list and as the answer to `getCompleteFixation`.
    void removeGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry);
    void removeConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// How many geometries and constraints there are.
    std::uint32_t getScale() const;

    /// 0 until somebody assigns one.
    std::uint64_t getID() const { return m_id; }
    void assignID(std::uint64_t id) { m_id = id; }
    bool needAnalysisStatus() const { return m_needAnalysis; }
    void setNeedAnalysisStatus(bool needed) { m_needAnalysis = needed; }
    VrexResultStatus getResultStatus() const { return m_resultStatus; }
    void setResultStatus(VrexResultStatus status) { m_resultStatus = status; }
    /// Groups of identifiers of constraints, the solver's to fill.
    std::vector<std::vector<std::uint64_t>>& getOverConstrainedSubsets() { return m_overConstrainedSubsets; }
    /// By identifier of the geometry, the solver's to fill.
    std::unordered_map<std::uint64_t, VrexDegreesOfFreedom2D>& getGeomUnderdefinedDof() {
        return m_geomUnderdefinedDof;
    }

private:
    friend class VrexIndexWalk;

    /// What a complete fixation brings along.
    void addFixation(const std::shared_ptr<VrexBaseConstraint>& constraint);

    VrexInsertionSetT<VrexBaseGeometry> m_geometries;
    VrexInsertionSetT<VrexBaseConstraint> m_constraints;
    std::unordered_map<std::uint64_t, std::shared_ptr<VrexBaseConstraint>> m_fixations;
    std::uint64_t m_id = 0;
    bool m_needAnalysis = true;
    VrexResultStatus m_resultStatus{-1};
    std::vector<std::vector<std::uint64_t>> m_overConstrainedSubsets;
    std::unordered_map<std::uint64_t, VrexDegreesOfFreedom2D> m_geomUnderdefinedDof;
};
