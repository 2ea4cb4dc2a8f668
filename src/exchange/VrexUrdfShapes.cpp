#include "exchange/VrexUrdfShapes.h"

#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexSphere3D.h"

namespace {

using Vector = VrexVector3DT<double>;
using Members = std::vector<std::shared_ptr<VrexGeometry3D>>;
using Kind = VrexUrdfShape::Kind;

Vector turned(const VrexTransformation3DT<double>& pose, const Vector& direction) {
    return VrexQuaternionT<double>::rotate(direction, pose.getRotation(), false);
}

void addFaces(const VrexUrdfShape& box, const VrexTransformation3DT<double>& pose, Members& members) {
    const Vector axes[] = {Vector::OX(), Vector::OY(), Vector::OZ()};
    for (int i = 0; i < 3; ++i) {
        const Vector outwards = turned(pose, axes[i]);
        const Vector way = outwards * (0.5 * box.size[i]);
        members.push_back(VrexPlane3D::create(pose.getTranslation() + way, outwards));
        members.push_back(VrexPlane3D::create(pose.getTranslation() - way, -outwards));
    }
}

void add(const VrexUrdfShape& shape, const VrexTransformation3DT<double>& pose, Members& members) {
    const Vector& place = pose.getTranslation();
    switch (shape.kind) {
    case Kind::Sphere:
        members.push_back(VrexSphere3D::create(place, shape.radius));
        break;
    case Kind::Cylinder:
        members.push_back(VrexCylinder3D::create(place, turned(pose, Vector::OZ()), shape.radius));
        break;
    case Kind::Box:
        addFaces(shape, pose, members);
        break;
    }
}

} // namespace

Members nsUrdfShapes::membersOf(const VrexUrdfLink& link, const VrexTransformation3DT<double>& pose) {
    Members members;
    for (const VrexUrdfShape& shape : link.shapes) {
        const std::size_t first = members.size();
        add(shape, pose * shape.pose, members);
        for (std::size_t i = first; i < members.size(); ++i) {
            members[i]->label() = shape.label;
        }
    }
    return members;
}
