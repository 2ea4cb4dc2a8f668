#pragma once

#include <tuple>
#include <type_traits>

#include <gtest/gtest.h>

#include "data/VrexVisitor3D.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "support/Samples.h"

/// The name of an object class, and its visit by name.
template <class Object>
struct ObjectClass;

#define VREX_OBJECT_ROOT(CLASS, VISIT) VREX_OBJECT(CLASS, VISIT, , )
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)                                                          \
    template <>                                                                                              \
    struct ObjectClass<CLASS> {                                                                              \
        static constexpr const char* NAME = #CLASS;                                                          \
        static constexpr const char* VISIT_NAME = #VISIT;                                                    \
    };
#include "data/VrexObjects.def"

namespace nsObjectClasses {

template <class Object>
using IfConcrete =
    std::conditional_t<std::is_abstract_v<Object>, std::tuple<>, std::tuple<std::type_identity<Object>>>;

template <class Tuple>
struct ToTypes;
template <class... Objects>
struct ToTypes<std::tuple<std::type_identity<Objects>...>> {
    using Type = testing::Types<Objects...>;
};

#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT) IfConcrete<CLASS>(),
using Concrete = decltype(std::tuple_cat(
#include "data/VrexObjects.def"
    std::tuple<>()));

} // namespace nsObjectClasses

/// Every concrete class that has a row, and `Further` ones, for typed tests.
template <class... Further>
using ConcreteObjectClasses = typename nsObjectClasses::ToTypes<decltype(std::tuple_cat(
    nsObjectClasses::Concrete(), std::tuple<std::type_identity<Further>...>()))>::Type;
