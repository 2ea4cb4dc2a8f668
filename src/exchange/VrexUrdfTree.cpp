#include "exchange/VrexUrdfTree.h"

#include <unordered_set>

#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfNames.h"

namespace {

using nsUrdfNames::quoted;

std::size_t placeIn(const std::unordered_map<std::string_view, std::size_t>& names, std::string_view name) {
    const auto found = names.find(name);
    return found != names.end() ? found->second : VrexUrdfTree::NONE;
}

} // namespace

VrexUrdfTree::VrexUrdfTree(VrexUrdfRobot& robot, VrexUrdfFindings& findings) : m_robot(robot) {
    declareLinks(findings);
    nameLinks(findings);
    nameJoints(findings);
    findCarriers(findings);
    checkRoots(findings);
    checkLoops(findings);
    findPoses(findings);
}

std::size_t VrexUrdfTree::linkNamed(std::string_view name) const { return placeIn(m_links, name); }

std::size_t VrexUrdfTree::jointNamed(std::string_view name) const { return placeIn(m_joints, name); }

std::size_t VrexUrdfTree::parentOf(std::size_t link) const {
    return isRoot(link) ? NONE : linkNamed(m_robot.joints[m_carriers[link]].parent);
}

void VrexUrdfTree::declareLinks(VrexUrdfFindings& findings) {
    std::unordered_set<std::string> known;
    for (const VrexUrdfLink& link : m_robot.links) {
        known.insert(link.name);
    }
    const auto declare = [&](const std::string& name, const VrexUrdfPlace& place, const std::string& user) {
        if (!name.empty() && known.insert(name).second) {
            findings.doubt(place, name, user + ": the link " + quoted(name) + " is not declared.",
                           "It is taken as a link without shapes.");
            m_robot.links.push_back({name, place, {}});
        }
    };
    for (const VrexUrdfJoint& joint : m_robot.joints) {
        declare(joint.parent, joint.place, "joint " + quoted(joint.name));
        declare(joint.child, joint.place, "joint " + quoted(joint.name));
    }
}

void VrexUrdfTree::nameLinks(VrexUrdfFindings& findings) {
    for (std::size_t i = 0; i < m_robot.links.size(); ++i) {
        const VrexUrdfLink& link = m_robot.links[i];
        if (!m_links.try_emplace(link.name, i).second) {
            findings.refuse(link.place, link.name, "There is another link " + quoted(link.name) + ".");
        }
    }
    if (m_robot.links.empty() && !findings.hasErrors()) {
        findings.refuse({}, "robot", "There is no link.");
    }
}

void VrexUrdfTree::nameJoints(VrexUrdfFindings& findings) {
    for (std::size_t i = 0; i < m_robot.joints.size(); ++i) {
        const VrexUrdfJoint& joint = m_robot.joints[i];
        if (!m_joints.try_emplace(joint.name, i).second) {
            findings.refuse(joint.place, joint.name, "There is another joint " + quoted(joint.name) + ".");
        }
    }
}

void VrexUrdfTree::findCarriers(VrexUrdfFindings& findings) {
    m_carriers.assign(m_robot.links.size(), NONE);
    for (std::size_t i = 0; i < m_robot.joints.size(); ++i) {
        const VrexUrdfJoint& joint = m_robot.joints[i];
        const std::size_t child = linkNamed(joint.child);
        if (child == NONE) {
            continue; // The name is missing, which is refused by now.
        }
        if (m_carriers[child] != NONE) {
            findings.refuse(joint.place, joint.name,
                            "joint " + quoted(joint.name) + ": its child " + quoted(joint.child) +
                                " hangs on joint " + quoted(m_robot.joints[m_carriers[child]].name) + ".");
        } else {
            m_carriers[child] = i;
        }
    }
}

void VrexUrdfTree::checkRoots(VrexUrdfFindings& findings) const {
    std::size_t first = NONE;
    for (std::size_t i = 0; i < m_robot.links.size(); ++i) {
        if (!isRoot(i)) {
            continue;
        }
        if (first == NONE) {
            first = i;
            continue;
        }
        const VrexUrdfLink& link = m_robot.links[i];
        findings.doubt(link.place, link.name,
                       "link " + quoted(link.name) + " hangs on no joint, and so does link " +
                           quoted(m_robot.links[first].name) + ".",
                       "Both are fixed where they are.");
    }
}

void VrexUrdfTree::checkLoops(VrexUrdfFindings& findings) const {
    for (const VrexUrdfLoop& loop : m_robot.loops) {
        checkEnd(loop, loop.predecessor, findings);
        checkEnd(loop, loop.successor, findings);
        if (loop.predecessor.link == loop.successor.link) {
            findings.refuse(loop.place, loop.name,
                            "loop " + quoted(loop.name) + " joins a link with itself.");
        }
    }
}

void VrexUrdfTree::checkEnd(const VrexUrdfLoop& loop, const VrexUrdfLoopEnd& end,
                            VrexUrdfFindings& findings) const {
    if (linkNamed(end.link) == NONE) {
        findings.refuse(loop.place, loop.name,
                        "loop " + quoted(loop.name) + ": there is no link " + quoted(end.link) + ".");
    }
}

void VrexUrdfTree::findPoses(VrexUrdfFindings& findings) {
    m_poses.assign(m_robot.links.size(), {});
    std::vector<bool> isKnown(m_robot.links.size());
    for (std::size_t start = 0; start < m_robot.links.size(); ++start) {
        const auto path = nsUrdfChain::backFrom(start, m_robot.links.size(), isKnown,
                                                [this](std::size_t link) { return parentOf(link); });
        if (!path.has_value()) {
            const VrexUrdfLink& link = m_robot.links[start];
            findings.refuse(link.place, link.name,
                            "link " + quoted(link.name) + " hangs on a ring of joints.");
            return;
        }
        for (const std::size_t link : *path) {
            findPose(link);
            isKnown[link] = true;
        }
    }
}

void VrexUrdfTree::findPose(std::size_t link) {
    const std::size_t parent = parentOf(link);
    if (parent != NONE) {
        m_poses[link] = m_poses[parent] * m_robot.joints[m_carriers[link]].origin;
    }
}
