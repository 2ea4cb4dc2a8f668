#pragma once

#include <cstdint>

#include "support/StreamObjects.h"

/// Streams with an object of every kind, byte by byte as the format has them.
namespace nsStreamOfAllKinds {

using nsStreamObjects::block;
using nsStreamObjects::Bytes;
using nsStreamObjects::constraint;
using nsStreamObjects::descriptor;
using nsStreamObjects::dimensionTail;
using nsStreamObjects::f64;
using nsStreamObjects::flag;
using nsStreamObjects::geometry;
using nsStreamObjects::ids;
using nsStreamObjects::join;
using nsStreamObjects::mateTail;
using nsStreamObjects::none;
using nsStreamObjects::numbers;
using nsStreamObjects::some;
using nsStreamObjects::string;
using nsStreamObjects::u32;
using nsStreamObjects::u64;
using nsStreamObjects::vector;

// Identifiers of geometries; those of constraints are 1 plus the type, and from 50 on the equations.
constexpr std::uint64_t VARIABLE = 1, POINT = 2, OTHER_POINT = 3, LINE = 4, PLANE = 5, CIRCLE = 6,
                        ELLIPSE = 7, CYLINDER = 8, CONE = 9, SPHERE = 10, TORUS = 11, SET = 12, PLUG = 13,
                        OTHER_PLUG = 14, NURBS = 15, SPLINE = 16, SPIN = 17, SWEEP = 18, CURVE = 19,
                        PATTERN = 20, ARRAY = 21, ELEMENT = 22;

inline Bytes controlPoint(std::uint64_t id, double weight) { return join({u64(id), f64(weight)}); }

inline Bytes simpleGeometries() {
    const Bytes frame = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0)});
    const Bytes range = join({some(0.25), none()});
    return join({nsStreamObjects::variable(VARIABLE, 2.5), geometry(0, vector(1.0, 2.0, 3.0), POINT),
                 geometry(0, vector(-1.0, 0.5, 0.0), OTHER_POINT), geometry(1, frame, LINE),
                 geometry(2, frame, PLANE), geometry(7, join({frame, f64(1.5), range}), CIRCLE),
                 geometry(10, join({frame, vector(1.0, 0.0, 0.0), f64(3.0), f64(2.0), range}), ELLIPSE),
                 geometry(5, join({frame, f64(0.75)}), CYLINDER), geometry(9, join({frame, f64(0.5)}), CONE),
                 geometry(6, join({vector(1.0, 2.0, 3.0), f64(0.5)}), SPHERE),
                 geometry(11, join({frame, f64(3.0), f64(1.0)}), TORUS)});
}

/// Those that refer to others.
inline Bytes builtGeometries() {
    const Bytes motion = join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(0.5)});
    const Bytes row = block(join({controlPoint(POINT, 1.0), controlPoint(OTHER_POINT, 0.5)}));
    const Bytes texts = join({string("r*t"), string("y"), string("t+1")});
    const Bytes descriptors = block(join({descriptor(VARIABLE, 0, "r"), descriptor(POINT, 1, "y")}));
    return join(
        {geometry(3, join({motion, ids({POINT, LINE})}), SET), geometry(12, join({u64(SET), motion}), PLUG),
         geometry(12, join({u64(0), motion}), OTHER_PLUG),
         geometry(4, join({u32(1), u32(1), numbers({0.0, 1.0}), numbers({2.0}), block(join({row, row}))}),
                  NURBS),
         geometry(8,
                  join({u32(2), numbers({0.0, 1.0, 2.0}), flag(true), row, ids({POINT}), numbers({0.5}),
                        none(), some(1.5)}),
                  SPLINE),
         geometry(13, join({u64(LINE), u64(CIRCLE)}), SPIN),
         geometry(16, join({u64(SPLINE), u64(LINE), some(-1.0), none()}), SWEEP),
         geometry(15,
                  join({vector(1.0, 2.0, 3.0), f64(0.5), vector(1.0, 0.0, 0.0), texts, descriptors, none(),
                        some(2.0)}),
                  CURVE),
         geometry(17, join({u32(0), u64(LINE), f64(2.0)}), PATTERN), geometry(18, ids({PATTERN}), ARRAY),
         geometry(19, f64(1.5), ELEMENT)});
}

inline Bytes geometries() { return join({simpleGeometries(), builtGeometries()}); }

inline Bytes bound(std::int64_t type, nsStreamObjects::Ids arguments, const Bytes& fields = {},
                   const Bytes& tail = {}) {
    return constraint({type, ids(arguments)}, fields, static_cast<std::uint64_t>(type + 1), tail);
}

inline Bytes dimensions() {
    const Bytes tail = dimensionTail(1.5);
    const Bytes boundTail = join({f64(1.5), flag(false), ids({VARIABLE}), some(-1.0), some(4.0)});
    return join({bound(0, {POINT, OTHER_POINT}, {}, boundTail),
                 bound(1, {POINT, OTHER_POINT}, vector(0.0, 0.0, 1.0), tail),
                 bound(2, {POINT, OTHER_POINT, LINE}, {}, tail), bound(5, {LINE, PLANE}, {}, tail),
                 bound(6, {LINE, LINE, PLANE}, {}, tail), bound(15, {CIRCLE}, {}, tail),
                 bound(16, {ELLIPSE}, {}, tail), bound(17, {TORUS}, {}, tail), bound(29, {CONE}, {}, tail),
                 bound(32, {PATTERN}, {}, tail), bound(33, {POINT, OTHER_POINT, CIRCLE}, {}, tail),
                 bound(40, {ELEMENT}, {}, tail)});
}

inline Bytes mates() {
    Bytes all;
    const std::pair<std::int64_t, Bytes> rows[] = {{21, mateTail({0.5})},
                                                   {22, mateTail({})},
                                                   {23, mateTail({0.5, 1.0})},
                                                   {24, mateTail({0.5})},
                                                   {25, mateTail({0.5, 1.0, 1.5})},
                                                   {26, mateTail({0.5, 1.0})},
                                                   {27, mateTail({0.5, 1.0, 1.5, 2.0})},
                                                   {28, mateTail({0.5})}};
    for (const auto& [type, tail] : rows) {
        nsStreamProbe::append(all, bound(type, {PLUG, OTHER_PLUG}, {}, tail));
    }
    return all;
}

inline Bytes relations() {
    const Bytes helpData = join({block(vector(1.0, 2.0, 3.0)), none(), none(),
                                 block(join({f64(0.25), f64(0.5)})), flag(true), flag(true)});
    Bytes all =
        join({bound(3, {POINT, LINE}, u32(-1)), bound(4, {POINT}, u32(0)),
              constraint({11, ids({CIRCLE, ELLIPSE}), 3, 8}, {}, 12, {}, helpData), bound(12, {VARIABLE}),
              bound(13, {POINT, OTHER_POINT, PLANE}), bound(14, {LINE, LINE, POINT}),
              bound(18, {CIRCLE, TORUS}, join({u32(0), u32(1)})), bound(30, {CYLINDER, LINE}),
              bound(20, {VARIABLE}), bound(31, {POINT, OTHER_POINT, ARRAY}, block(u32(-2))),
              bound(39, {ELEMENT}, ids({1, 1})),
              bound(19, {CIRCLE}, join({ids({1, 34}), u32(8), u32(9), u32(6), u32(7)})),
              bound(41, {}, join({ids({22, 24}), u64(0), u64(1), f64(-2.0)}))});
    for (const std::int64_t type : {7, 8, 9, 10, 34, 35, 36, 37, 38}) {
        nsStreamProbe::append(all, bound(type, {LINE, CIRCLE}));
    }
    return all;
}

inline Bytes equations() {
    return join({nsStreamObjects::callbackEquation(0, block(descriptor(VARIABLE, 0, "v")), 0, 50),
                 nsStreamObjects::expressionEquation(1, block(descriptor(POINT, 2, "z")), "2*z-1", 51)});
}

/// All kinds but the callback equation, which a host may refuse.
inline Bytes harmlessConstraints() {
    return join({dimensions(), mates(), relations(),
                 nsStreamObjects::expressionEquation(1, block(descriptor(POINT, 2, "z")), "2*z-1", 51)});
}

inline Bytes constraints() { return join({dimensions(), mates(), relations(), equations()}); }

/// How many objects `geometries` and `constraints` have.
constexpr std::size_t GEOMETRY_COUNT = 22;
constexpr std::size_t CONSTRAINT_COUNT = 44;

inline Bytes flat(const Bytes& geometryList, const Bytes& constraintList) {
    return block(join({block(geometryList), block(constraintList)}));
}

/// A component with two over-constrained subsets.
inline Bytes component(std::uint64_t id, const Bytes& geometryList, const Bytes& constraintList) {
    return join({u64(id), block(geometryList), block(constraintList), block(join({ids({3, 1, 2}), none()}))});
}

inline Bytes transform(std::uint64_t id, double x) {
    Bytes entry = u64(id);
    for (int i = 0; i < 16; ++i) {
        nsStreamProbe::append(entry, f64(i == 3 ? x : i % 5 == 0 ? 1.0 : 0.0));
    }
    return block(entry);
}

inline Bytes dragParameter(std::uint64_t id, double value, std::int64_t type) {
    return block(join({u64(id), f64(value), u32(type)}));
}

inline Bytes drag(const Bytes& geometryList, const Bytes& transforms, const Bytes& parameters) {
    return block(join({block(geometryList), block(transforms), block(parameters)}));
}

} // namespace nsStreamOfAllKinds
