#include "exchange/VrexUrdfLinks.h"

#include <utility>

#include "exchange/VrexUrdfElement.h"

namespace {

constexpr VrexUrdfWords LINK{.often = "visual collision", .other = "inertial", .attributes = "name"};
constexpr VrexUrdfWords LOOKS{.once = "origin geometry", .other = "material verbose", .attributes = "name"};
constexpr VrexUrdfWords GEOMETRY{.often = "sphere cylinder box", .other = "mesh"};
constexpr VrexUrdfWords SPHERE{.attributes = "radius"};
constexpr VrexUrdfWords CYLINDER{.attributes = "radius", .otherAttributes = "length"};
constexpr VrexUrdfWords BOX{.attributes = "size"};

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
    const auto pose = looks.origin();
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

} // namespace

VrexUrdfLink nsUrdfLinks::read(const VrexUrdfElement& element) {
    VrexUrdfLink link{element.requiredText("name"), element.place(), {}};
    element.reportRest(LINK);
    for (const VrexUrdfElement& child : element.children()) {
        if (child.tag() == "visual" || child.tag() == "collision") {
            readLooks(child, link);
        }
    }
    return link;
}
