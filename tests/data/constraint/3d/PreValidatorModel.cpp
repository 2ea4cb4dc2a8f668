#include "data/constraint/3d/PreValidatorModel.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <utility>

using nsPreValidatorModel::ListSize;
using nsPreValidatorModel::Types;
using nsPreValidatorModel::Verdict;

namespace {

using Component = VrexGeometryComponentType;
using Type = VrexGeometry3DType;
using Combinations = std::vector<Types>;

struct Kind {
    const char* shortName;
    const char* enumerator;
};

/// In the order of their values, from 0.
constexpr Kind KINDS[] = {
    {"pt", "POINT"},
    {"ln", "LINE"},
    {"pl", "PLANE"},
    {"rs", "RIGID_SET"},
    {"ns", "NURBS_SURFACE"},
    {"cy", "CYLINDER"},
    {"s", "SPHERE"},
    {"ci", "CIRCLE"},
    {"sp", "SPLINE"},
    {"co", "CONE"},
    {"el", "ELLIPSE"},
    {"to", "TORUS"},
    {"cnt", "CONNECTOR"},
    {"spin", "SPIN_SURFACE"},
    {"eval_surf_3d", "EVAL_SURFACE"},
    {"evac_3d", "EVAL_CURVE"},
    {"sweep", "SWEEP_SURFACE"},
    {"pat", "PATTERN"},
    {"a_pat", "ARRAY_PATTERN"},
    {"eq_d_ele", "EQUAL_DIMENSION_ELEMENT"},
};

constexpr const char* COMPONENT_NAMES[] = {"UNKNOWN", "CENTER", "AXIS",  "PLANE",   "SPINE",
                                           "APEX",    "MAJOR",  "MINOR", "EXTERIOR"};

struct List {
    const char* kinds; ///< One or more.
    std::size_t size;
    const char* combinations; ///< "a with b c" stands for the pairs a b and a c.
};

constexpr List LISTS[] = {
    {"Distance3D", 105,
     "pt with pt ln ci el pl cy s co sp evac_3d spin sweep ns to; "
     "ln with ln ci el sp evac_3d pl cy s co spin sweep ns to; "
     "ci with ci el sp evac_3d pl cy s co spin sweep ns to; "
     "pl with pl cy s co spin sweep ns to el sp evac_3d; cy with cy s co spin sweep ns to el sp evac_3d; "
     "s with s co spin sweep ns to el sp evac_3d; co with co spin sweep ns to el sp evac_3d; "
     "el with el ns to spin sweep sp evac_3d; sp with sp ns to spin sweep evac_3d; "
     "evac_3d with evac_3d ns to spin sweep; to with to spin sweep ns; spin with spin ns sweep; "
     "ns with ns sweep; sweep with sweep"},
    {"DirectionDistance3D", 1, "pt with pt"},
    {"ParallelDistance3D", 9,
     "pt pt ln; pt pt cy; pt pt co; pt pt spin; pt pt pl; pt pt ci; pt pt el; pt pt to; pt pt sweep"},
    {"Incidence3D", 35,
     "pt with pt ln ci pl s cy co ns sp evac_3d el spin sweep to; ln with ln pl cy co sweep; "
     "ci with ci pl s cy co to spin; pl with pl el; cy with cy; co with co; to with to; ns with ns; "
     "sp with sp; s with s; el with el"},
    {"Fixation3D", 15, "pt; ln; ci; el; sp; evac_3d; pl; cy; s; co; to; spin; sweep; ns; rs"},
    {"Angle3D Parallelism3D Perpendicularity3D", 45,
     "ln with ln ci el pl cy co to spin sweep; ci with ci el pl cy co to spin sweep; "
     "el with el pl cy co to spin sweep; pl with pl cy co to spin sweep; cy with cy co to spin sweep; "
     "co with co to spin sweep; to with to spin sweep; spin with spin sweep; sweep with sweep"},
    {"Concentricity3D", 45,
     "pt with pt; ci with pt ci s; el with el pt ci s; s with s pt; to with to pt ci el s; "
     "ln with ln to pt ci el s; co with co ln to pt ci el s; cy with cy co ln to pt ci el s; "
     "spin with spin cy co ln to pt ci el s"},
    {"Tangency3D", 88,
     "ln with s cy co to ns spin sweep ci el sp evac_3d; pl with s cy co to ns spin sweep ci el sp evac_3d; "
     "s with s cy co to ns spin sweep ci el sp evac_3d; cy with cy co to ns spin sweep; "
     "co with co to ns spin sweep; to with to ns spin sweep; ns with ns spin sweep; spin with spin sweep; "
     "sweep with sweep; ci with ci el sp evac_3d cy co to ns spin sweep; "
     "el with el sp evac_3d cy co to ns spin sweep; sp with sp evac_3d cy co to ns spin sweep; "
     "evac_3d with cy co to ns spin sweep evac_3d"},
    {"Symmetry3D", 12,
     "pt pt pl; ln ln pl; pl pl pl; cy cy pl; s s pl; ci ci pl; co co pl; spin spin pl; el el pl; to to pl; "
     "sweep sweep pl; spin spin pl"},
    {"MidPoint3D", 2, "pt pt pt; pl pl pt"},
    {"Radius3D", 3, "ci; s; cy"},
    {"MajorRadius3D", 2, "el; to"},
    {"MinorRadius3D", 2, "el; to"},
    {"EqualRadius3D", 15,
     "ci with ci s cy el to; s with s cy el to; cy with cy el to; el with el to; to with to"},
    {"SliderMate3D FastenedMate3D CylinderMate3D RevoluteMate3D PlanarMate3D PinSlotMate3D ParallelMate3D "
     "BallMate3D",
     1, "cnt with cnt"},
    {"HalfAngle3D", 1, "co"},
    {"SurfaceNormal3D", 39,
     "ln with cy co eval_surf_3d ns to sweep spin; ci with cy co eval_surf_3d ns to sweep spin; "
     "co with cy co eval_surf_3d ns to sweep spin; cy with cy eval_surf_3d ns to sweep spin; "
     "el with cy co eval_surf_3d ns to sweep spin; to with eval_surf_3d ns to sweep spin"},
    {"Instance3D", 14,
     "pt with pt; ln with ln; pl with pl; cy with cy; s with s; ci with ci; sp with sp; co with co; "
     "el with el; to with to; evac_3d with evac_3d; ns with ns; spin with spin; sweep with sweep"},
    {"PatternValue3D", 1, "pat"},
    {"CurveLength3D", 3, "pt pt sp; pt pt el; pt pt evac_3d"},
    {"EqualDirection3D", 24,
     "el with ln ci pl co cy to sp evac_3d el; sp with ln ci pl co cy to evac_3d sp; "
     "evac_3d with ln ci pl co cy to evac_3d"},
    {"EqualFirstDerivative3D EqualSecondDerivative3D", 6,
     "el with sp evac_3d el; sp with evac_3d sp; evac_3d with evac_3d"},
    {"EqualCurvature3D EqualCurvatureDerivative3D", 11,
     "ci with el sp evac_3d; el with sp evac_3d el; sp with ln evac_3d sp; evac_3d with ln evac_3d"},
    {"EqualDimensionValue3D", 1, "eq_d_ele"},
};

constexpr const char* PLANAR_ANGLE = "ln pl cy ci co el to spin sweep";

/// Of each component, from 0; it ends before EXTERIOR.
constexpr const char* COMPONENT_OWNERS[] = {
    "pt ln pl ci co cy el s spin to sp ns sweep evac_3d eval_surf_3d",
    "s ci el to",
    "ci co cy el spin to",
    "to el ci",
    "to",
    "co",
    "to el",
    "to el",
};

constexpr const char* FIXATIONS[] = {
    "pt ln pl rs ns cy s ci sp co el to spin eval_surf_3d evac_3d sweep pat eq_d_ele",
    "ln pl rs cy ci co el to evac_3d",
    "rs s ci el to evac_3d",
    "cy s ci",
    "el to",
    "el to",
    nullptr,
    "el",
};

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, at);) {
        part.erase(0, part.find_first_not_of(' '));
        parts.push_back(part);
    }
    return parts;
}

Type typeOf(const std::string& shortName) {
    const auto* const found = std::ranges::find(KINDS, shortName, &Kind::shortName);
    return static_cast<Type>(found - KINDS);
}

const char* enumerator(Type type) { return KINDS[static_cast<std::size_t>(type)].enumerator; }

Types parseTypes(const std::string& text) {
    Types types;
    for (const std::string& word : split(text, ' ')) {
        types.push_back(typeOf(word));
    }
    return types;
}

bool lists(const std::string& text, Type type) {
    return (" " + text + " ")
               .find(std::string(" ") + KINDS[static_cast<std::size_t>(type)].shortName + " ") !=
           std::string::npos;
}

Combinations parseCombinations(const char* text) {
    Combinations combinations;
    for (const std::string& part : split(text, ';')) {
        const std::size_t with = part.find(" with ");
        if (with == std::string::npos) {
            combinations.push_back(parseTypes(part));
            continue;
        }
        for (const Type partner : parseTypes(part.substr(with + 6))) {
            combinations.push_back({typeOf(part.substr(0, with)), partner});
        }
    }
    return combinations;
}

bool isMatchedByPosition(const std::string& kind) {
    return kind == "ParallelDistance3D" || kind == "CurveLength3D";
}

/// Where the order plays no part, the types of each combination and of what is looked for rise.
Types comparable(const std::string& kind, Types types) {
    if (!isMatchedByPosition(kind)) {
        std::ranges::sort(types);
    }
    return types;
}

const std::map<std::string, std::set<Types>>& combinationsOfKinds() {
    static const auto all = [] {
        std::map<std::string, std::set<Types>> map;
        for (const List& list : LISTS) {
            for (const std::string& kind : split(list.kinds, ' ')) {
                for (const Types& combination : parseCombinations(list.combinations)) {
                    map[kind].insert(comparable(kind, combination));
                }
            }
        }
        return map;
    }();
    return all;
}

std::string nameOf(VrexConstraint3DType kind) {
    return kind >= VrexConstraint3DType::Unknown && kind <= VrexConstraint3DType::MateRelation3D
               ? nsEnum::toText(kind)
               : "none";
}

Verdict unfit(const Types& types) {
    std::string text = "Do not supported geometry types combination (";
    for (std::size_t i = 0; i < types.size(); ++i) {
        text += (i > 0 ? ", " : "") + std::string(enumerator(types[i]));
    }
    return {VrexErrorCode::GEOMETRY_TYPE_ERROR, text + ")"};
}

/// `matched` stand for `types`, which the message names.
Verdict listed(const std::string& kind, const Types& types, const Types& matched) {
    const auto& combinations = combinationsOfKinds().at(kind);
    if (types.size() != combinations.begin()->size()) {
        return {VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Geometry size error."};
    }
    return combinations.contains(comparable(kind, matched)) ? Verdict{} : unfit(types);
}

bool isRadius(Component component) { return component == Component::MAJOR || component == Component::MINOR; }

const Verdict WRONG_COMPONENT{VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                              "Failed to create constraint, constraint component type error."};

Verdict byComponents(const std::string& kind, const Types& types, Component component1,
                     Component component2) {
    if (kind != "EqualRadius3D" && (isRadius(component1) || isRadius(component2))) {
        return WRONG_COMPONENT;
    }
    if (types.size() != 2) {
        return {VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Geometry size error."};
    }
    const auto undecided = [&](Type type, Component component) {
        return kind == "EqualRadius3D" && lists("el to", type) && !isRadius(component);
    };
    if (undecided(types[0], component1) || undecided(types[1], component2)) {
        return WRONG_COMPONENT;
    }
    for (const Verdict& owned : {nsPreValidatorModel::component(types[0], component1),
                                 nsPreValidatorModel::component(types[1], component2)}) {
        if (!owned.accepted()) {
            return owned;
        }
    }
    return listed(kind, types,
                  {nsPreValidatorModel::converted(types[0], component1),
                   nsPreValidatorModel::converted(types[1], component2)});
}

Verdict planarAngle(const Types& types) {
    if (types.size() != 3) {
        return {VrexErrorCode::CONSTRAINT_PARAM_ERROR, "Geometry number is incorrect.", 1};
    }
    for (const Type type : types) {
        if (!lists(PLANAR_ANGLE, type)) {
            return {VrexErrorCode::GEOMETRY_TYPE_ERROR,
                    std::string("Do not supported geometry types:") + enumerator(type), 1};
        }
    }
    return {};
}

} // namespace

Verdict nsPreValidatorModel::constraint(VrexConstraint3DType kind, const Types& types, Component component1,
                                        Component component2) {
    const std::string name = nameOf(kind);
    if (name == "PlanarAngle3D") {
        return planarAngle(types);
    }
    if (!combinationsOfKinds().contains(name)) {
        return {VrexErrorCode::CONSTRAINT_TYPE_ERROR, "Constraint type isn't suppoted."};
    }
    static const std::set<std::string> withComponents{"Distance3D", "Incidence3D", "Tangency3D",
                                                      "EqualRadius3D"};
    return withComponents.contains(name) ? byComponents(name, types, component1, component2)
                                         : listed(name, types, types);
}

Verdict nsPreValidatorModel::fixation(VrexFixation3DType kind, Type type) {
    const auto index = static_cast<std::int64_t>(kind);
    if (index < 0 || index >= static_cast<std::int64_t>(std::size(FIXATIONS)) ||
        FIXATIONS[index] == nullptr) {
        return {VrexErrorCode::CONSTRAINT_TYPE_ERROR, "The type of Fixation constraint is invalid."};
    }
    if (!lists(FIXATIONS[index], type)) {
        return {VrexErrorCode::CONSTRAINT_TYPE_ERROR, "Fixation constraint isn't supported geometry type."};
    }
    return {};
}

Verdict nsPreValidatorModel::component(Type type, Component component) {
    const auto index = static_cast<std::size_t>(component);
    if (lists(COMPONENT_OWNERS[index], type)) {
        return {};
    }
    return {VrexErrorCode::GEOMETRY_TYPE_ERROR,
            std::string("Unsupported constraint component type: ") + COMPONENT_NAMES[index]};
}

Type nsPreValidatorModel::converted(Type type, Component component) {
    static const std::map<Component, const char*> kinds{{Component::CENTER, "pt"},
                                                        {Component::APEX, "pt"},
                                                        {Component::AXIS, "ln"},
                                                        {Component::PLANE, "pl"},
                                                        {Component::SPINE, "ci"}};
    const auto found = kinds.find(component);
    return found != kinds.end() ? typeOf(found->second) : type;
}

std::string nsPreValidatorModel::recorded(const Verdict& verdict) {
    if (verdict.accepted()) {
        return "No Error!";
    }
    static const std::map<VrexErrorCode, std::pair<const char*, const char*>> numbers{
        {VrexErrorCode::CONSTRAINT_PARAM_ERROR, {"0x20060003", "CONSTRAINT_PARAM_ERROR"}},
        {VrexErrorCode::CONSTRAINT_ID_ERROR, {"0x20020002", "CONSTRAINT_ID_ERROR"}},
        {VrexErrorCode::CONSTRAINT_TYPE_ERROR, {"0x20020005", "CONSTRAINT_TYPE_ERROR"}},
        {VrexErrorCode::GEOMETRY_TYPE_ERROR, {"0x10000005", "GEOMETRY_TYPE_ERROR"}}};
    const auto& [number, name] = numbers.at(verdict.code);
    return std::string("sid:: 7, tid: , [") + number + "]: " + verdict.text + ", ErrorCode: " + name + ".";
}

std::vector<ListSize> nsPreValidatorModel::listSizes() {
    std::vector<ListSize> sizes;
    for (const List& list : LISTS) {
        sizes.push_back({list.kinds, parseCombinations(list.combinations).size(), list.size});
    }
    return sizes;
}
