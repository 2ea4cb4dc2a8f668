#include "exchange/VrexUrdfParser.h"

#include <algorithm>
#include <cctype>

#include <tinyxml2.h>

#include "exchange/VrexUrdfElement.h"
#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfJoints.h"
#include "exchange/VrexUrdfLinks.h"
#include "exchange/VrexUrdfPlace.h"
#include "exchange/VrexXmlCharacters.h"
#include "tolvbase/TolvUtf8.h"

namespace {

constexpr VrexUrdfWords ROBOT{.often = "link joint loop coupling",
                              .other = "material transmission gazebo sensor",
                              .attributes = "name",
                              .otherAttributes = "version"};

VrexUrdfRobot readRobot(const VrexUrdfElement& root) {
    VrexUrdfRobot robot;
    robot.name = root.requiredText("name");
    root.reportRest(ROBOT);
    for (const VrexUrdfElement& element : root.children()) {
        if (element.tag() == "link") {
            robot.links.push_back(nsUrdfLinks::read(element));
        } else if (element.tag() == "joint") {
            robot.joints.push_back(nsUrdfJoints::read(element));
        } else if (element.tag() == "loop") {
            robot.loops.push_back(nsUrdfJoints::readLoop(element));
        } else if (element.tag() == "coupling") {
            robot.couplings.push_back(nsUrdfJoints::readCoupling(element));
        }
    }
    return robot;
}

/// The name of an error of the XML reader as words.
std::string wordsOf(std::string_view error) {
    constexpr std::string_view PREFIX = "XML_ERROR_";
    error.remove_prefix(error.starts_with(PREFIX) ? PREFIX.size() : 0);
    std::string words(error);
    std::ranges::transform(words, words.begin(), [](char letter) {
        return letter == '_' ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    });
    return words;
}

/// What the XML reader lets stand beside the outermost element; null where there is nothing.
const tinyxml2::XMLNode* strayOf(const tinyxml2::XMLDocument& document) {
    const tinyxml2::XMLNode* node = document.FirstChild();
    while (node != nullptr && node->ToText() == nullptr &&
           (node->ToElement() == nullptr || node == document.RootElement())) {
        node = node->NextSibling();
    }
    return node;
}

} // namespace

VrexUrdfRobot nsUrdfParser::parse(std::string_view text, const std::string& file,
                                  VrexUrdfFindings& findings) {
    const auto refuseAt = [&](std::size_t offset, const char* name, const char* message) {
        findings.refuse({file, nsUrdfPlace::lineAt(text, offset)}, name, message);
        return VrexUrdfRobot();
    };
    const std::size_t invalid = nsTolvUtf8::findInvalid(text);
    if (invalid != std::string_view::npos) {
        return refuseAt(invalid, "UTF-8", "The text is not valid UTF-8.");
    }
    const std::size_t forbidden = nsXmlCharacters::findForbidden(text);
    if (forbidden != std::string_view::npos) {
        return refuseAt(forbidden, "XML", "The text is no XML: forbidden character.");
    }
    tinyxml2::XMLDocument document;
    if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS) {
        findings.refuse(
            {file, document.ErrorLineNum()}, "XML",
            std::string("The text is no XML: ").append(wordsOf(document.ErrorName())).append("."));
        return {};
    }
    if (const tinyxml2::XMLNode* const stray = strayOf(document)) {
        findings.refuse({file, stray->GetLineNum()}, "XML",
                        "The text is no XML: it does not consist of one element.");
        return {};
    }
    const tinyxml2::XMLElement* const root = document.RootElement();
    if (root == nullptr || std::string_view(root->Name()) != "robot") {
        findings.refuse({file, root != nullptr ? root->GetLineNum() : 0}, "robot",
                        "The outermost element is not <robot>.");
        return {};
    }
    return readRobot(VrexUrdfElement(*root, file, findings));
}
