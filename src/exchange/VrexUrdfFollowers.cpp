#include "exchange/VrexUrdfFollowers.h"

#include <string>
#include <vector>

#include "exchange/VrexUrdfChain.h"
#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfFrames.h"
#include "exchange/VrexUrdfJointKinds.h"
#include "exchange/VrexUrdfNames.h"
#include "exchange/VrexUrdfRobot.h"
#include "exchange/VrexUrdfTree.h"

namespace {

constexpr std::size_t NONE = VrexUrdfTree::NONE;

using nsUrdfNames::quoted;

/// The joint that carries a link of a coupling; `NONE`, and refused, where none does.
std::size_t carrierOf(const std::string& link, const VrexUrdfCoupling& coupling, const VrexUrdfTree& tree,
                      VrexUrdfFindings& findings) {
    const std::size_t place = tree.linkNamed(link);
    const std::size_t joint = place != NONE ? tree.jointOf(place) : NONE;
    if (joint == NONE && !link.empty()) {
        findings.refuse(coupling.place, coupling.name,
                        "coupling " + quoted(coupling.name) + ": no joint moves a link " + quoted(link) +
                            ".");
    }
    return joint;
}

void add(VrexUrdfRobot& robot, const VrexUrdfCoupling& coupling, const VrexUrdfTree& tree,
         VrexUrdfFindings& findings) {
    const std::size_t leader = carrierOf(coupling.predecessor, coupling, tree, findings);
    const std::size_t place = carrierOf(coupling.successor, coupling, tree, findings);
    if (leader == NONE || place == NONE) {
        return;
    }
    VrexUrdfJoint& follower = robot.joints[place];
    const std::string title = "coupling " + quoted(coupling.name);
    if (follower.following.has_value()) {
        findings.doubt(coupling.place, coupling.name,
                       title + ": joint " + quoted(follower.name) + " follows another one by now.",
                       "The coupling is left out.");
        return;
    }
    if (robot.joints[leader].parent != follower.parent) {
        findings.doubt(coupling.place, coupling.name, title + ": its links hang on different links.",
                       "Their joints are coupled.");
    }
    follower.following = {robot.joints[leader].name, coupling.ratio, 0.0, coupling.name, coupling.place};
}

/// Whether the joint can do what it is to follow; if not, that is told.
bool canFollow(const VrexUrdfJoint& joint, const VrexUrdfRobot& robot, const VrexUrdfTree& tree,
               VrexUrdfFindings& findings) {
    const VrexUrdfFollowing& following = *joint.following;
    const std::size_t leader = tree.jointNamed(following.leader);
    const std::string title = "joint " + quoted(joint.name);
    if (leader == NONE) {
        if (!following.leader.empty()) {
            findings.refuse(following.place, following.label,
                            title + " follows a joint " + quoted(following.leader) +
                                ", which is not declared.");
        }
        return false;
    }
    for (const VrexUrdfJoint* part : {&joint, &robot.joints[leader]}) {
        if (!nsUrdfJointKinds::hasValue(part->kind)) {
            findings.doubt(following.place, following.label,
                           title + " follows joint " + quoted(following.leader) + ": joint " +
                               quoted(part->name) + " has no single value.",
                           "Both move on their own.");
            return false;
        }
    }
    return true;
}

/// Sets the shifts of the joints, each after that of the one it follows.
class Shifts {
public:
    Shifts(VrexUrdfRobot& robot, const VrexUrdfTree& tree) : m_robot(robot), m_tree(tree) {}

    void find(VrexUrdfFindings& findings) {
        m_isKnown.assign(m_robot.joints.size(), false);
        for (std::size_t start = 0; start < m_robot.joints.size(); ++start) {
            const auto path = nsUrdfChain::backFrom(start, m_robot.joints.size(), m_isKnown,
                                                    [this](std::size_t joint) { return leaderOf(joint); });
            if (!path.has_value()) {
                const VrexUrdfJoint& joint = m_robot.joints[start];
                findings.refuse(joint.following->place, joint.following->label,
                                "joint " + quoted(joint.name) + " follows itself.");
                return;
            }
            for (const std::size_t joint : *path) {
                set(joint, findings);
            }
        }
    }

private:
    std::size_t leaderOf(std::size_t joint) const {
        const auto& following = m_robot.joints[joint].following;
        return following.has_value() ? m_tree.jointNamed(following->leader) : NONE;
    }
    void set(std::size_t place, VrexUrdfFindings& findings) {
        VrexUrdfJoint& joint = m_robot.joints[place];
        if (joint.following.has_value()) {
            const double ofLeader = m_robot.joints[leaderOf(place)].shift;
            joint.shift = joint.following->ratio * ofLeader + joint.following->offset;
            expectModest(joint, findings);
        }
        m_isKnown[place] = true;
    }
    static void expectModest(const VrexUrdfJoint& joint, VrexUrdfFindings& findings) {
        if (!nsUrdfFrames::isModest(joint.shift)) {
            findings.refuse(joint.following->place, joint.following->label,
                            "joint " + quoted(joint.name) + " follows by too large an offset.");
        }
    }

    VrexUrdfRobot& m_robot;
    const VrexUrdfTree& m_tree;
    std::vector<bool> m_isKnown;
};

} // namespace

void nsUrdfFollowers::settle(VrexUrdfRobot& robot, const VrexUrdfTree& tree, VrexUrdfFindings& findings) {
    for (const VrexUrdfCoupling& coupling : robot.couplings) {
        add(robot, coupling, tree, findings);
    }
    for (VrexUrdfJoint& joint : robot.joints) {
        if (joint.following.has_value() && !canFollow(joint, robot, tree, findings)) {
            joint.following.reset();
        }
    }
    Shifts(robot, tree).find(findings);
}
