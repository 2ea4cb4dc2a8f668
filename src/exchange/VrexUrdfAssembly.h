#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "exchange/VrexUrdfRobot.h"

class VrexConnector3D;
class VrexMate3D;
class VrexRigidSet3D;
class VrexUrdfTree;

/// Builds the system of a robot in which nothing was refused.
class VrexUrdfAssembly {
public:
    explicit VrexUrdfAssembly(const VrexUrdfTree& tree);

    /// Objects are numbered from 1 on, geometries first, in the order in which they stand in the system.
    VrexImmutableSystem3D system() const;

private:
    using Frame = VrexTransformation3DT<double>;
    using Set = std::shared_ptr<VrexRigidSet3D>;
    using Connector = std::shared_ptr<VrexConnector3D>;

    /// A frame on a set.
    struct End {
        Set set;
        Frame frame;
    };

    void addLink(std::size_t link);
    void addLoopPoints(const VrexUrdfLoop& loop);
    void addJoint(const VrexUrdfJoint& joint);
    void addUniversal(const VrexUrdfJoint& joint, const End& parent, const End& child);
    void addThread(const VrexUrdfJoint& joint, const std::shared_ptr<VrexMate3D>& mate);
    void addLoop(const VrexUrdfLoop& loop);
    void addFollowing(const VrexUrdfJoint& joint);

    Connector addConnector(const End& end, const std::string& label);
    std::shared_ptr<VrexMate3D> addMate(VrexUrdfJointKind kind, const VrexDimensionLimits& limits,
                                        const End& first, const End& second, const std::string& label);
    void addRelation(std::vector<std::shared_ptr<VrexMate3D>> mates, std::vector<std::uint64_t> indices,
                     double ratio, const std::string& label);
    void add(const std::shared_ptr<VrexGeometry3D>& geometry, const std::string& label);
    void add(const std::shared_ptr<VrexConstraint3D>& constraint, const std::string& label);
    const Set& setOf(const std::string& link) const;
    Frame inSpace(const VrexUrdfLoopEnd& end) const;

    const VrexUrdfTree& m_tree;
    const VrexUrdfRobot& m_robot;
    std::vector<std::vector<std::shared_ptr<VrexGeometry3D>>> m_members; ///< By the place of the link.
    std::vector<Set> m_sets;                                             ///< Likewise.
    std::vector<std::shared_ptr<VrexMate3D>> m_mates;                    ///< By the place of the joint.
    std::vector<std::shared_ptr<VrexConstraint3D>> m_pointPairs;
    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
};
