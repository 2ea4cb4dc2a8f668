#include "exchange/VrexUrdfJointKinds.h"

#include <algorithm>
#include <span>

namespace {

using Kind = VrexUrdfJointKind;

struct Row {
    std::string_view type;
    Kind kind;
};

constexpr Row JOINTS[] = {
    {"fixed", Kind::Fixed},         {"revolute", Kind::Revolute}, {"continuous", Kind::Continuous},
    {"prismatic", Kind::Prismatic}, {"planar", Kind::Planar},     {"floating", Kind::Floating},
    {"ball", Kind::Ball},           {"screw", Kind::Screw},       {"universal", Kind::Universal},
};

constexpr Row LOOPS[] = {
    {"revolute", Kind::Revolute}, {"continuous", Kind::Continuous},
    {"fixed", Kind::Fixed},       {"prismatic", Kind::Prismatic},
    {"planar", Kind::Planar},     {"ball", Kind::Ball},
    {"6d", Kind::Fixed},          {"3d", Kind::Point},
};

Kind kindIn(std::span<const Row> rows, std::string_view type) {
    const auto* const end = rows.data() + rows.size();
    const auto* const row = std::find_if(rows.data(), end, [type](const Row& r) { return r.type == type; });
    return row != end ? row->kind : Kind::Other;
}

} // namespace

VrexUrdfJointKind nsUrdfJointKinds::ofJoint(std::string_view type) { return kindIn(JOINTS, type); }

VrexUrdfJointKind nsUrdfJointKinds::ofLoop(std::string_view type) { return kindIn(LOOPS, type); }

bool nsUrdfJointKinds::hasValue(VrexUrdfJointKind kind) {
    return kind == Kind::Revolute || kind == Kind::Continuous || kind == Kind::Prismatic ||
           kind == Kind::Screw;
}
