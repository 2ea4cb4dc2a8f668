#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "exchange/VrexUrdfPlace.h"

/// What joints and the ends of loops allow.
enum class VrexUrdfJointKind {
    Fixed,
    Revolute,
    Continuous,
    Prismatic,
    Planar,
    Floating,
    Ball,
    Screw,
    Universal,
    Point, ///< Of loops alone: two points stay together.
    Other  ///< Has no counterpart.
};

/// A primitive shape of the looks of a link, or of what collides.
struct VrexUrdfShape {
    enum class Kind { Sphere, Cylinder, Box };
    Kind kind = Kind::Sphere;
    double radius = 0.0;
    VrexVector3DT<double> size;         ///< Of a box, from face to face.
    VrexTransformation3DT<double> pose; ///< On the link.
    std::string label;
};

struct VrexUrdfLink {
    std::string name;
    VrexUrdfPlace place;
    std::vector<VrexUrdfShape> shapes;
};

/// A joint's value is `ratio` times that of another, plus `offset`.
struct VrexUrdfFollowing {
    std::string leader; ///< A joint.
    double ratio = 1.0;
    double offset = 0.0;
    std::string label;
    VrexUrdfPlace place;
};

struct VrexUrdfJoint {
    std::string name;
    VrexUrdfPlace place;
    VrexUrdfJointKind kind = VrexUrdfJointKind::Fixed;
    std::string parent;
    std::string child;
    VrexTransformation3DT<double> origin; ///< Of the child on the parent, the value being 0.
    VrexVector3DT<double> axis;           ///< On the child; of unit length.
    VrexDimensionLimits limits;
    double pitch = 0.0; ///< Of a screw: the way of one turn.
    std::optional<VrexUrdfFollowing> following;
    /// The value is that of the mate plus this: a relation of mates knows no offset.
    double shift = 0.0;
};

/// Where a loop meets a link.
struct VrexUrdfLoopEnd {
    std::string link;
    VrexTransformation3DT<double> origin; ///< On the link.
};

struct VrexUrdfLoop {
    std::string name;
    VrexUrdfPlace place;
    VrexUrdfJointKind kind = VrexUrdfJointKind::Fixed;
    VrexUrdfLoopEnd predecessor;
    VrexUrdfLoopEnd successor;
    VrexVector3DT<double> axis = VrexVector3DT<double>::OZ(); ///< At either end; of unit length.
};

/// The joint of the successor turns `ratio` times as far as that of the predecessor.
struct VrexUrdfCoupling {
    std::string name;
    VrexUrdfPlace place;
    std::string predecessor;
    std::string successor;
    double ratio = 1.0;
};

/// A robot description as it stands in its files.
struct VrexUrdfRobot {
    std::string name;
    std::vector<VrexUrdfLink> links;
    std::vector<VrexUrdfJoint> joints;
    std::vector<VrexUrdfLoop> loops;
    std::vector<VrexUrdfCoupling> couplings;
};
