#include "exchange/VrexUrdfParser.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include <tinyxml2.h>

#include "exchange/VrexUrdfElement.h"
#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfFrames.h"
#include "exchange/VrexUrdfJointKinds.h"
#include "exchange/VrexXmlCharacters.h"
#include "tolvbase/TolvUtf8.h"

namespace {

using Vector = VrexVector3DT<double>;
using Kind = VrexUrdfJointKind;

constexpr VrexUrdfWords ROBOT{.often = "link joint loop coupling",
                              .other = "material transmission gazebo sensor",
                              .attributes = "name",
                              .otherAttributes = "version"};
constexpr VrexUrdfWords LINK{.often = "visual collision", .other = "inertial", .attributes = "name"};
constexpr VrexUrdfWords LOOKS{.once = "origin geometry", .other = "material verbose", .attributes = "name"};
constexpr VrexUrdfWords GEOMETRY{.often = "sphere cylinder box", .other = "mesh"};
constexpr VrexUrdfWords SPHERE{.attributes = "radius"};
constexpr VrexUrdfWords CYLINDER{.attributes = "radius", .otherAttributes = "length"};
constexpr VrexUrdfWords BOX{.attributes = "size"};
/// By what the type of the joint has use for.
constexpr VrexUrdfWords SCREW{.once = "parent child origin axis limit mimic screw_thread_pitch",
                              .other = "dynamics safety_controller calibration",
                              .attributes = "name type",
                              .otherAttributes = "independent"};
constexpr VrexUrdfWords JOINT{.once = "parent child origin axis limit mimic",
                              .other = "screw_thread_pitch dynamics safety_controller calibration",
                              .attributes = "name type",
                              .otherAttributes = "independent"};
constexpr VrexUrdfWords JOINT_WITHOUT_AXIS{
    .once = "parent child origin limit mimic",
    .other = "axis screw_thread_pitch dynamics safety_controller calibration",
    .attributes = "name type",
    .otherAttributes = "independent"};
constexpr VrexUrdfWords JOINT_WITHOUT_COUNTERPART{
    .once = "parent child origin",
    .other = "axis limit mimic screw_thread_pitch dynamics safety_controller calibration",
    .attributes = "name type",
    .otherAttributes = "independent"};
constexpr VrexUrdfWords ORIGIN{.attributes = "xyz rpy"};
constexpr VrexUrdfWords AXIS{.attributes = "xyz"};
constexpr VrexUrdfWords LINK_NAME{.attributes = "link"};
constexpr VrexUrdfWords LIMIT{.attributes = "lower upper", .otherAttributes = "effort velocity acceleration"};
constexpr VrexUrdfWords MIMIC{.attributes = "joint multiplier offset"};
constexpr VrexUrdfWords VALUE{.attributes = "value"};
constexpr VrexUrdfWords LOOP{.once = "predecessor successor axis", .attributes = "name type"};
constexpr VrexUrdfWords LOOP_WITHOUT_AXIS{
    .once = "predecessor successor", .other = "axis", .attributes = "name type"};
constexpr VrexUrdfWords LOOP_END{.once = "origin", .attributes = "link"};
constexpr VrexUrdfWords COUPLING{
    .once = "predecessor successor ratio", .attributes = "name", .otherAttributes = "type"};

VrexTransformation3DT<double> readOrigin(const VrexUrdfElement& owner) {
    const auto origin = owner.child("origin");
    if (!origin.has_value()) {
        return {};
    }
    origin->reportRest(ORIGIN);
    return {origin->vector("xyz", Vector::ZERO()),
            nsUrdfFrames::turnBy(origin->vector("rpy", Vector::ZERO()))};
}

/// Of unit length; `fallback` where there is none.
Vector readAxis(const VrexUrdfElement& owner, const std::string& name, const Vector& fallback) {
    const auto axis = owner.child("axis");
    if (!axis.has_value()) {
        return fallback;
    }
    axis->reportRest(AXIS);
    const Vector direction = axis->vector("xyz", fallback);
    if (direction.magnitude() < nsUrdfFrames::SHORTEST) {
        axis->refuse(name, owner.title() + ": the axis has no length.");
        return fallback;
    }
    return direction / direction.magnitude();
}

std::string readLinkName(const VrexUrdfElement& owner, std::string_view tag) {
    const auto element = owner.requiredChild(tag);
    if (!element.has_value()) {
        return {};
    }
    element->reportRest(LINK_NAME);
    return element->requiredText("link");
}

double readValue(const VrexUrdfElement& owner, std::string_view tag) {
    const auto element = owner.requiredChild(tag);
    if (!element.has_value()) {
        return 1.0;
    }
    element->reportRest(VALUE);
    element->requiredText("value");
    return element->number("value").value_or(1.0);
}

VrexUrdfShape readShape(const VrexUrdfElement& element) {
    VrexUrdfShape shape;
    if (element.tag() == "sphere") {
        element.reportRest(SPHERE);
        shape.kind = VrexUrdfShape::Kind::Sphere;
        shape.radius = element.requiredSize("radius");
    } else if (element.tag() == "cylinder") {
        element.reportRest(CYLINDER);
        shape.kind = VrexUrdfShape::Kind::Cylinder;
        shape.radius = element.requiredSize("radius");
    } else {
        element.reportRest(BOX);
        shape.kind = VrexUrdfShape::Kind::Box;
        element.requiredText("size");
        shape.size = element.vector("size", {1.0, 1.0, 1.0});
        if (!(shape.size.x() > 0.0 && shape.size.y() > 0.0 && shape.size.z() > 0.0)) {
            element.refuse("box", element.title() + ": the sizes of <box> must be above 0.");
        }
    }
    return shape;
}

bool isShape(const VrexUrdfElement& element) {
    return element.tag() == "sphere" || element.tag() == "cylinder" || element.tag() == "box";
}

/// The shapes of a <visual> or a <collision>.
void readLooks(const VrexUrdfElement& looks, VrexUrdfLink& link) {
    looks.reportRest(LOOKS);
    const auto pose = readOrigin(looks);
    const auto geometry = looks.requiredChild("geometry");
    if (!geometry.has_value()) {
        return;
    }
    geometry->reportRest(GEOMETRY);
    for (const VrexUrdfElement& element : geometry->children()) {
        if (isShape(element)) {
            VrexUrdfShape shape = readShape(element);
            shape.pose = pose;
            shape.label = looks.text("name").value_or(link.name);
            link.shapes.push_back(std::move(shape));
        }
    }
}

VrexUrdfLink readLink(const VrexUrdfElement& element) {
    VrexUrdfLink link{element.requiredText("name"), element.place(), {}};
    element.reportRest(LINK);
    for (const VrexUrdfElement& child : element.children()) {
        if (child.tag() == "visual" || child.tag() == "collision") {
            readLooks(child, link);
        }
    }
    return link;
}

/// An end that is left out: 0, as the format has it, where reading is strict; else open.
std::optional<double> readLimit(const VrexUrdfElement& limit, const std::string& joint,
                                const std::string& end) {
    if (limit.text(end).has_value()) {
        return limit.number(end);
    }
    limit.warn(joint, limit.title() + ": the " + end + " limit is missing. It is taken as " +
                          (limit.isStrict() ? "0." : "open."));
    return limit.isStrict() ? std::optional(0.0) : std::nullopt;
}

VrexDimensionLimits readLimits(const VrexUrdfElement& element, const VrexUrdfJoint& joint) {
    const auto limit = element.child("limit");
    const bool isLimited = joint.kind == Kind::Revolute || joint.kind == Kind::Prismatic;
    if (limit.has_value()) {
        limit->reportRest(LIMIT);
    }
    if (!isLimited) {
        if (limit.has_value() && (limit->text("lower").has_value() || limit->text("upper").has_value())) {
            limit->warn(joint.name,
                        element.title() + ": a joint of this type has no limits. They are left out.");
        }
        return {};
    }
    if (!limit.has_value()) {
        element.doubt(joint.name, element.title() + " has no limits.", "It is taken without.");
        return {};
    }
    const VrexDimensionLimits limits{readLimit(*limit, joint.name, "lower"),
                                     readLimit(*limit, joint.name, "upper")};
    if (limits.first > limits.second && limits.second.has_value()) {
        limit->refuse(joint.name, element.title() + ": the lower limit is above the upper one.");
    }
    return limits;
}

std::optional<VrexUrdfFollowing> readMimic(const VrexUrdfElement& element, const std::string& name) {
    const auto mimic = element.child("mimic");
    if (!mimic.has_value()) {
        return std::nullopt;
    }
    mimic->reportRest(MIMIC);
    return VrexUrdfFollowing{mimic->requiredText("joint"), mimic->number("multiplier").value_or(1.0),
                             mimic->number("offset").value_or(0.0), name, mimic->place()};
}

bool hasAxis(Kind kind) {
    return kind != Kind::Fixed && kind != Kind::Floating && kind != Kind::Point && kind != Kind::Other;
}

const VrexUrdfWords& wordsOf(Kind kind) {
    if (kind == Kind::Other) {
        return JOINT_WITHOUT_COUNTERPART;
    }
    return kind == Kind::Screw ? SCREW : hasAxis(kind) ? JOINT : JOINT_WITHOUT_AXIS;
}

VrexUrdfJoint readJoint(const VrexUrdfElement& element) {
    VrexUrdfJoint joint;
    joint.name = element.requiredText("name");
    joint.place = element.place();
    const std::string type = element.requiredText("type");
    joint.kind = nsUrdfJointKinds::ofJoint(type);
    joint.parent = readLinkName(element, "parent");
    joint.child = readLinkName(element, "child");
    joint.origin = readOrigin(element);
    element.reportRest(wordsOf(joint.kind));
    if (joint.kind == Kind::Other) {
        element.doubt(joint.name, element.title() + ": the type \"" + type + "\" has no counterpart.",
                      "Its child moves freely.");
        return joint;
    }
    if (hasAxis(joint.kind)) {
        joint.axis = readAxis(element, joint.name, joint.kind == Kind::Ball ? Vector::OZ() : Vector::OX());
    }
    joint.limits = readLimits(element, joint);
    joint.following = readMimic(element, joint.name);
    if (joint.kind == Kind::Screw) {
        joint.pitch = readValue(element, "screw_thread_pitch");
    }
    return joint;
}

VrexUrdfLoopEnd readLoopEnd(const VrexUrdfElement& loop, std::string_view tag) {
    const auto end = loop.requiredChild(tag);
    if (!end.has_value()) {
        return {};
    }
    end->reportRest(LOOP_END);
    return {end->requiredText("link"), readOrigin(*end)};
}

VrexUrdfLoop readLoop(const VrexUrdfElement& element) {
    VrexUrdfLoop loop;
    loop.name = element.requiredText("name");
    loop.place = element.place();
    const std::string type = element.requiredText("type");
    loop.kind = nsUrdfJointKinds::ofLoop(type);
    element.reportRest(hasAxis(loop.kind) ? LOOP : LOOP_WITHOUT_AXIS);
    if (loop.kind == Kind::Other) {
        element.doubt(loop.name, element.title() + ": the type \"" + type + "\" has no counterpart.",
                      "The loop stays open.");
    }
    loop.predecessor = readLoopEnd(element, "predecessor");
    loop.successor = readLoopEnd(element, "successor");
    if (hasAxis(loop.kind)) {
        loop.axis = readAxis(element, loop.name, Vector::OX());
    }
    return loop;
}

VrexUrdfCoupling readCoupling(const VrexUrdfElement& element) {
    element.reportRest(COUPLING);
    return {element.requiredText("name"), element.place(), readLinkName(element, "predecessor"),
            readLinkName(element, "successor"), readValue(element, "ratio")};
}

VrexUrdfRobot readRobot(const VrexUrdfElement& root) {
    VrexUrdfRobot robot;
    robot.name = root.requiredText("name");
    root.reportRest(ROBOT);
    for (const VrexUrdfElement& element : root.children()) {
        if (element.tag() == "link") {
            robot.links.push_back(readLink(element));
        } else if (element.tag() == "joint") {
            robot.joints.push_back(readJoint(element));
        } else if (element.tag() == "loop") {
            robot.loops.push_back(readLoop(element));
        } else if (element.tag() == "coupling") {
            robot.couplings.push_back(readCoupling(element));
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
