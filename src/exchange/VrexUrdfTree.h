#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/VrexTransformation3DT.h"
#include "exchange/VrexUrdfChain.h"
#include "exchange/VrexUrdfRobot.h"

class VrexUrdfFindings;

/// How the links of a robot hang on each other.
///
/// Names that are used and not declared go to the findings, as do links and joints of equal names, links with
/// two parents, rings, further roots and loops that join nothing.
class VrexUrdfTree {
public:
    static constexpr std::size_t NONE = nsUrdfChain::NONE;

    /// Declares links that are used only. The robot outlives this object.
    VrexUrdfTree(VrexUrdfRobot& robot, VrexUrdfFindings& findings);

    const VrexUrdfRobot& robot() const { return m_robot; }
    /// By the place of the link; `NONE` for an unknown name.
    std::size_t linkNamed(std::string_view name) const;
    std::size_t jointNamed(std::string_view name) const;
    /// The joint that carries the link; `NONE` for a root.
    std::size_t jointOf(std::size_t link) const { return m_carriers[link]; }
    bool isRoot(std::size_t link) const { return m_carriers[link] == NONE; }
    /// In the zero configuration, the roots at the origin.
    const VrexTransformation3DT<double>& poseOf(std::size_t link) const { return m_poses[link]; }

private:
    using Names = std::unordered_map<std::string_view, std::size_t>;

    void nameLinks(VrexUrdfFindings& findings);
    void nameJoints(VrexUrdfFindings& findings);
    void declareLinks(VrexUrdfFindings& findings);
    void findCarriers(VrexUrdfFindings& findings);
    void checkRoots(VrexUrdfFindings& findings) const;
    void checkLoops(VrexUrdfFindings& findings) const;
    void checkEnd(const VrexUrdfLoop& loop, const VrexUrdfLoopEnd& end, VrexUrdfFindings& findings) const;
    void findPoses(VrexUrdfFindings& findings);
    void findPose(std::size_t link);
    std::size_t parentOf(std::size_t link) const;

    VrexUrdfRobot& m_robot;
    Names m_links;
    Names m_joints;
    std::vector<std::size_t> m_carriers;
    std::vector<VrexTransformation3DT<double>> m_poses;
};
