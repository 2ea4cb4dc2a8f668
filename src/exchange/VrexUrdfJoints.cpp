#include "exchange/VrexUrdfJoints.h"

#include <optional>
#include <string>
#include <string_view>

#include "exchange/VrexUrdfElement.h"
#include "exchange/VrexUrdfFrames.h"
#include "exchange/VrexUrdfJointKinds.h"

namespace {

using Vector = VrexVector3DT<double>;
using Kind = VrexUrdfJointKind;

constexpr VrexUrdfWords JOINT{.once = "parent child origin axis limit mimic screw_thread_pitch",
                              .other = "dynamics safety_controller calibration",
                              .attributes = "name type",
                              .otherAttributes = "independent"};
constexpr VrexUrdfWords AXIS{.attributes = "xyz"};
constexpr VrexUrdfWords LINK_NAME{.attributes = "link"};
constexpr VrexUrdfWords LIMIT{.attributes = "lower upper", .otherAttributes = "effort velocity acceleration"};
constexpr VrexUrdfWords MIMIC{.attributes = "joint multiplier offset"};
constexpr VrexUrdfWords VALUE{.attributes = "value"};
constexpr VrexUrdfWords LOOP{.once = "predecessor successor axis", .attributes = "name type"};
constexpr VrexUrdfWords LOOP_END{.once = "origin", .attributes = "link"};
constexpr VrexUrdfWords COUPLING{
    .once = "predecessor successor ratio", .attributes = "name", .otherAttributes = "type"};

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

/// Tags of a joint that its type has no use for.
std::string_view unusedBy(Kind kind) {
    if (kind == Kind::Other) {
        return "axis limit mimic screw_thread_pitch";
    }
    if (kind == Kind::Screw) {
        return {};
    }
    return hasAxis(kind) ? "screw_thread_pitch" : "axis screw_thread_pitch";
}

VrexUrdfLoopEnd readLoopEnd(const VrexUrdfElement& loop, std::string_view tag) {
    const auto end = loop.requiredChild(tag);
    if (!end.has_value()) {
        return {};
    }
    end->reportRest(LOOP_END);
    return {end->requiredText("link"), end->origin()};
}

} // namespace

VrexUrdfJoint nsUrdfJoints::read(const VrexUrdfElement& element) {
    VrexUrdfJoint joint;
    joint.name = element.requiredText("name");
    joint.place = element.place();
    const std::string type = element.requiredText("type");
    joint.kind = nsUrdfJointKinds::ofJoint(type);
    joint.parent = readLinkName(element, "parent");
    joint.child = readLinkName(element, "child");
    joint.origin = element.origin();
    element.reportRest(JOINT);
    element.reportUnused(unusedBy(joint.kind));
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

VrexUrdfLoop nsUrdfJoints::readLoop(const VrexUrdfElement& element) {
    VrexUrdfLoop loop;
    loop.name = element.requiredText("name");
    loop.place = element.place();
    const std::string type = element.requiredText("type");
    loop.kind = nsUrdfJointKinds::ofLoop(type);
    element.reportRest(LOOP);
    element.reportUnused(hasAxis(loop.kind) ? "" : "axis");
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

VrexUrdfCoupling nsUrdfJoints::readCoupling(const VrexUrdfElement& element) {
    element.reportRest(COUPLING);
    return {element.requiredText("name"), element.place(), readLinkName(element, "predecessor"),
            readLinkName(element, "successor"), readValue(element, "ratio")};
}
