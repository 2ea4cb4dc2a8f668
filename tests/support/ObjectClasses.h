#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVisitor3D.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "support/SamplesRelations.h"

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

/// A concrete object class as a parameter of tests: what they need to know of it without being compiled for
/// each.
struct ObjectKind {
    const char* name;
    const char* visitName;
    const std::type_info* type;
    std::shared_ptr<VrexBaseObject> (*makeSample)();
};

/// Test output names the class.
inline std::ostream& operator<<(std::ostream& stream, const ObjectKind& kind) { return stream << kind.name; }
inline std::string nameOfKind(const testing::TestParamInfo<ObjectKind>& info) { return info.param.name; }

namespace nsObjectClasses {

template <class Base, class Object>
void addKind(std::vector<ObjectKind>& kinds) {
    if constexpr (!std::is_abstract_v<Object> && std::is_base_of_v<Base, Object>) {
        kinds.push_back({ObjectClass<Object>::NAME, ObjectClass<Object>::VISIT_NAME, &typeid(Object),
                         []() -> std::shared_ptr<VrexBaseObject> { return makeSample<Object>(); }});
    }
}

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

/// Every concrete class that has a row and derives from `Base`, and `Further` ones.
template <class Base = VrexBaseObject, class... Further>
std::vector<ObjectKind> concreteObjectKinds() {
    std::vector<ObjectKind> kinds;
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT) nsObjectClasses::addKind<Base, CLASS>(kinds);
#include "data/VrexObjects.def"
    (nsObjectClasses::addKind<Base, Further>(kinds), ...);
    return kinds;
}
