#include "exchange/VrexUrdfLoopFile.h"

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <yaml-cpp/yaml.h>

#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfJointKinds.h"
#include "tolvbase/TolvUtf8.h"

namespace {

constexpr auto PAIRS = "closed_loop";
constexpr auto TYPES = "type";

class LoopFile {
public:
    LoopFile(const std::string& file, VrexUrdfRobot& robot, VrexUrdfFindings& findings)
        : m_file(file), m_robot(robot), m_findings(findings) {
        for (const VrexUrdfJoint& joint : robot.joints) {
            m_links.try_emplace(joint.name, joint.child);
        }
        for (const VrexUrdfLink& link : robot.links) {
            m_links.insert_or_assign(link.name, link.name);
        }
    }

    void read(const std::vector<YAML::Node>& documents) {
        const YAML::Node root = documents.empty() ? YAML::Node() : documents.front();
        if (documents.size() > 1) {
            refuse(documents[1].Mark(), PAIRS, "The loop file holds more than one document.");
        } else if (!root.IsMap()) {
            refuse(root.Mark(), PAIRS, "The loop file is no list of keys and values.");
        } else {
            readMap(root);
        }
    }

    void refuse(const YAML::Mark& mark, const std::string& name, const std::string& message) {
        m_findings.refuse(placeOf(mark), name, message);
    }

private:
    VrexUrdfPlace placeOf(const YAML::Mark& mark) const { return {m_file, mark.line + 1}; }

    void readMap(const YAML::Node& root) {
        std::unordered_set<std::string> known;
        for (const auto& entry : root) {
            const auto key = entry.first.as<std::string>();
            if (!known.insert(key).second) {
                refuse(entry.first.Mark(), key, key + " stands here twice.");
            } else if (key != PAIRS && key != TYPES) {
                m_findings.note(placeOf(entry.first.Mark()), key, key + " has no counterpart.");
            }
        }
        readPairs(root, root[PAIRS], root[TYPES]);
    }

    void readPairs(const YAML::Node& root, const YAML::Node& pairs, const YAML::Node& types) {
        if (!pairs || !pairs.IsSequence()) {
            m_findings.doubt(placeOf(root.Mark()), PAIRS, "The loop file has no list closed_loop.",
                             "It closes no loop.");
            return;
        }
        if (!types || !types.IsSequence() || types.size() != pairs.size()) {
            refuse(pairs.Mark(), TYPES, "The loop file needs a type for each pair of closed_loop.");
            return;
        }
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            readPair(pairs[i], types[i]);
        }
    }

    void readPair(const YAML::Node& pair, const YAML::Node& type) {
        if (!pair.IsSequence() || pair.size() != 2) {
            refuse(pair.Mark(), PAIRS, "A loop of closed_loop is no pair of frames.");
            return;
        }
        VrexUrdfLoop loop;
        loop.place = placeOf(pair.Mark());
        const auto first = pair[0].as<std::string>();
        const auto second = pair[1].as<std::string>();
        loop.name = first + " " + second;
        const auto kind = type.as<std::string>();
        loop.kind = nsUrdfJointKinds::ofLoop(kind);
        if (loop.kind == VrexUrdfJointKind::Other) {
            m_findings.doubt(loop.place, loop.name,
                             "loop \"" + loop.name + "\": the type \"" + kind + "\" has no counterpart.",
                             "The loop stays open.");
        }
        loop.predecessor.link = linkOf(first);
        loop.successor.link = linkOf(second);
        m_robot.loops.push_back(loop);
    }

    /// A link has the frame of its own name; a joint carries that of its child.
    std::string linkOf(const std::string& frame) const {
        const auto found = m_links.find(frame);
        return found != m_links.end() ? found->second : frame;
    }

    const std::string& m_file;
    VrexUrdfRobot& m_robot;
    VrexUrdfFindings& m_findings;
    std::unordered_map<std::string, std::string> m_links; ///< By what a pair may call their frames.
};

} // namespace

void nsUrdfLoopFile::read(std::string_view text, const std::string& file, VrexUrdfRobot& robot,
                          VrexUrdfFindings& findings) {
    if (const std::size_t invalid = nsTolvUtf8::findInvalid(text); invalid != std::string_view::npos) {
        findings.refuse({file, nsUrdfPlace::lineAt(text, invalid)}, "UTF-8",
                        "The loop file is not valid UTF-8.");
        return;
    }
    LoopFile loops(file, robot, findings);
    try {
        loops.read(YAML::LoadAll(std::string(text)));
    } catch (const YAML::Exception& error) {
        loops.refuse(error.mark, "YAML", "The loop file cannot be read: " + error.msg + ".");
    }
}
