#include "exchange/VrexUrdfAssembly.h"

#include <numbers>
#include <utility>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexIDGenerator.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "exchange/VrexUrdfFrames.h"
#include "exchange/VrexUrdfShapes.h"
#include "exchange/VrexUrdfTree.h"

namespace {

using Kind = VrexUrdfJointKind;

constexpr double FULL_TURN = 2.0 * std::numbers::pi;

/// The way along the axis that belongs to the mate's value.
double wayOf(const VrexUrdfJoint& joint, double value) {
    return joint.kind == Kind::Prismatic ? value : value * joint.pitch / FULL_TURN;
}

/// The angle that belongs to the mate's value.
double angleOf(const VrexUrdfJoint& joint, double value) {
    return joint.kind == Kind::Prismatic ? 0.0 : value;
}

/// Of the mate's dimension that is the value of the joint.
std::uint64_t valueIndexOf(const VrexUrdfJoint& joint) {
    return joint.kind == Kind::Screw ? VrexCylinderMate3D::ANGLE : 0;
}

VrexDimensionLimits shifted(const VrexDimensionLimits& limits, double shift) {
    const auto less = [shift](const std::optional<double>& end) {
        return end.has_value() ? std::optional(*end - shift) : std::nullopt;
    };
    return {less(limits.first), less(limits.second)};
}

std::shared_ptr<VrexMate3D> makeMate(Kind kind, const std::shared_ptr<VrexConnector3D>& first,
                                     const std::shared_ptr<VrexConnector3D>& second,
                                     const VrexDimensionLimits& limits) {
    switch (kind) {
    case Kind::Revolute:
    case Kind::Continuous:
    case Kind::Universal:
        return VrexRevoluteMate3D::create(first, second, limits);
    case Kind::Prismatic:
        return VrexSliderMate3D::create(first, second, limits);
    case Kind::Planar:
        return VrexPlanarMate3D::create(first, second, {}, {}, {});
    case Kind::Ball:
        return VrexBallMate3D::create(
            first, second,
            {VrexBallMate3D::BALL_MATE_HALF_ANGLE_MIN, VrexBallMate3D::BALL_MATE_HALF_ANGLE_MAX});
    case Kind::Screw:
        return VrexCylinderMate3D::create(first, second, {}, limits);
    default:
        return VrexFastenedMate3D::create(first, second);
    }
}

} // namespace

VrexUrdfAssembly::VrexUrdfAssembly(const VrexUrdfTree& tree) : m_tree(tree), m_robot(tree.robot()) {
    m_members.resize(m_robot.links.size());
    for (const VrexUrdfLoop& loop : m_robot.loops) {
        if (loop.kind == Kind::Point) {
            addLoopPoints(loop);
        }
    }
    for (std::size_t i = 0; i < m_robot.links.size(); ++i) {
        addLink(i);
    }
    for (const VrexUrdfJoint& joint : m_robot.joints) {
        addJoint(joint);
    }
    for (const VrexUrdfLoop& loop : m_robot.loops) {
        addLoop(loop);
    }
    m_constraints.insert(m_constraints.end(), m_pointPairs.begin(), m_pointPairs.end());
    for (const VrexUrdfJoint& joint : m_robot.joints) {
        addFollowing(joint);
    }
}

VrexImmutableSystem3D VrexUrdfAssembly::system() const {
    VrexIDGenerator ids;
    for (const auto& geometry : m_geometries) {
        geometry->setID(ids.next());
    }
    for (const auto& constraint : m_constraints) {
        constraint->setID(ids.next());
    }
    const VrexDefaultToleranceGetter tolerances;
    return {m_geometries,
            {},
            m_constraints,
            {},
            tolerances.getLinearTolerance(),
            tolerances.getAngularTolerance(),
            {},
            {}};
}

void VrexUrdfAssembly::addLink(std::size_t link) {
    const std::string& name = m_robot.links[link].name;
    auto members = nsUrdfShapes::membersOf(m_robot.links[link], m_tree.poseOf(link));
    members.insert(members.end(), m_members[link].begin(), m_members[link].end());
    m_geometries.insert(m_geometries.end(), members.begin(), members.end());
    m_sets.push_back(VrexRigidSet3D::create(std::move(members)));
    m_sets.back()->setTransformation(m_tree.poseOf(link));
    add(m_sets.back(), name);
    if (m_tree.isRoot(link)) {
        add(VrexFixation3D::create(m_sets.back(), VrexFixation3DType::Complete3D), name);
    }
}

void VrexUrdfAssembly::addLoopPoints(const VrexUrdfLoop& loop) {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    for (const VrexUrdfLoopEnd* end : {&loop.predecessor, &loop.successor}) {
        const auto place = inSpace(*end).getTranslation();
        points.push_back(VrexPoint3D::create(place.x(), place.y(), place.z()));
        points.back()->label() = loop.name;
        m_members[m_tree.linkNamed(end->link)].push_back(points.back());
    }
    constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
    m_pointPairs.push_back(
        VrexIncidence3D::create(points[0], points[1], VrexIncidence3DType::Default, WHOLE, WHOLE));
    m_pointPairs.back()->label() = loop.name;
}

void VrexUrdfAssembly::addJoint(const VrexUrdfJoint& joint) {
    m_mates.emplace_back();
    if (joint.kind == Kind::Floating || joint.kind == Kind::Other) {
        return;
    }
    const Frame turn = nsUrdfFrames::turnTo(joint.axis);
    const Frame shift = nsUrdfFrames::alongZ(wayOf(joint, joint.shift), angleOf(joint, joint.shift));
    const End parent{setOf(joint.parent), joint.origin * turn * shift};
    const End child{setOf(joint.child), turn};
    if (joint.kind == Kind::Universal) {
        addUniversal(joint, parent, child);
        return;
    }
    const auto mate = addMate(joint.kind, shifted(joint.limits, joint.shift), parent, child, joint.name);
    m_mates.back() = mate;
    if (joint.shift != 0.0) {
        mate->getDimension(valueIndexOf(joint)).value = -joint.shift;
    }
    if (joint.kind == Kind::Screw) {
        addThread(joint, mate);
    }
}

void VrexUrdfAssembly::addUniversal(const VrexUrdfJoint& joint, const End& parent, const End& child) {
    const auto cross = VrexRigidSet3D::create({});
    const Frame& pose = m_tree.poseOf(m_tree.linkNamed(joint.child));
    cross->setTransformation(pose);
    add(cross, joint.name);
    // The second axis is the Y axis of the first one's connectors.
    const Frame across = child.frame * nsUrdfFrames::turnTo(VrexVector3DT<double>::OY());
    addMate(joint.kind, {}, parent, {cross, child.frame}, joint.name);
    addMate(joint.kind, {}, {cross, across}, {child.set, across}, joint.name);
}

void VrexUrdfAssembly::addThread(const VrexUrdfJoint& joint, const std::shared_ptr<VrexMate3D>& mate) {
    mate->getDimension(VrexCylinderMate3D::DISTANCE).value = wayOf(joint, -joint.shift);
    addRelation({mate, mate}, {VrexCylinderMate3D::DISTANCE, VrexCylinderMate3D::ANGLE},
                joint.pitch / FULL_TURN, joint.name);
}

void VrexUrdfAssembly::addLoop(const VrexUrdfLoop& loop) {
    if (loop.kind == Kind::Point || loop.kind == Kind::Other) {
        return;
    }
    const Frame turn = loop.kind == Kind::Fixed ? Frame() : nsUrdfFrames::turnTo(loop.axis);
    addMate(loop.kind, {}, {setOf(loop.predecessor.link), loop.predecessor.origin * turn},
            {setOf(loop.successor.link), loop.successor.origin * turn}, loop.name);
}

void VrexUrdfAssembly::addFollowing(const VrexUrdfJoint& joint) {
    if (!joint.following.has_value()) {
        return;
    }
    const std::size_t leader = m_tree.jointNamed(joint.following->leader);
    addRelation({m_mates[m_tree.jointNamed(joint.name)], m_mates[leader]},
                {valueIndexOf(joint), valueIndexOf(m_robot.joints[leader])}, joint.following->ratio,
                joint.following->label);
}

VrexUrdfAssembly::Connector VrexUrdfAssembly::addConnector(const End& end, const std::string& label) {
    auto connector = VrexConnector3D::create(end.set);
    connector->setTransformation(end.frame);
    add(connector, label);
    return connector;
}

std::shared_ptr<VrexMate3D> VrexUrdfAssembly::addMate(Kind kind, const VrexDimensionLimits& limits,
                                                      const End& first, const End& second,
                                                      const std::string& label) {
    const Connector firstConnector = addConnector(first, label);
    auto mate = makeMate(kind, firstConnector, addConnector(second, label), limits);
    mate->alignment() = VrexConstraintAlignment::Positive;
    add(mate, label);
    return mate;
}

void VrexUrdfAssembly::addRelation(std::vector<std::shared_ptr<VrexMate3D>> mates,
                                   std::vector<std::uint64_t> indices, double ratio,
                                   const std::string& label) {
    add(VrexMateRelation3D::create(std::move(mates), std::move(indices), ratio), label);
}

void VrexUrdfAssembly::add(const std::shared_ptr<VrexGeometry3D>& geometry, const std::string& label) {
    geometry->label() = label;
    m_geometries.push_back(geometry);
}

void VrexUrdfAssembly::add(const std::shared_ptr<VrexConstraint3D>& constraint, const std::string& label) {
    constraint->label() = label;
    m_constraints.push_back(constraint);
}

const VrexUrdfAssembly::Set& VrexUrdfAssembly::setOf(const std::string& link) const {
    return m_sets[m_tree.linkNamed(link)];
}

VrexUrdfAssembly::Frame VrexUrdfAssembly::inSpace(const VrexUrdfLoopEnd& end) const {
    return m_tree.poseOf(m_tree.linkNamed(end.link)) * end.origin;
}
