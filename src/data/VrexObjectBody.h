#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "data/VrexObjectAccess.h"
#include "data/VrexVisitor3D.h"

/// Hidden: the visit of a class, by its row in `VrexObjects.def`. A class without a row has no definition
/// here, and the compiler's error names it.
template <class Object>
struct VrexObjectRow;

#define VREX_OBJECT_ROOT(CLASS, VISIT) VREX_OBJECT(CLASS, VISIT, , )
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)                                                          \
    template <>                                                                                              \
    struct VrexObjectRow<CLASS> {                                                                            \
        static void visit(VrexVisitor3D& visitor, CLASS& object) { visitor.VISIT(object); }                  \
    };
#include "data/VrexObjects.def"

/// Defines `accept` of an abstract level of the object tree: the visit of its own row.
#define VREX_OBJECT_ACCEPT(CLASS)                                                                            \
    void CLASS::accept(VrexVisitor3D& visitor) { VrexObjectRow<CLASS>::visit(visitor, *this); }

/// Defines what every concrete object class has: `makeCopy`, `accept`, and `restoreFromCopy`, which copies
/// the source before it assigns, since the source may hang on this object's own backup. A source of another
/// class throws `std::bad_cast` with nothing changed.
#define VREX_OBJECT_BODY(CLASS)                                                                              \
    VREX_OBJECT_ACCEPT(CLASS)                                                                                \
    std::shared_ptr<VrexBaseObject> CLASS::makeCopy() {                                                      \
        return VrexObjectAccess::make<CLASS>(std::as_const(*this));                                          \
    }                                                                                                        \
    void CLASS::restoreFromCopy(const VrexBaseObject& copy) {                                                \
        static_assert(std::is_final_v<CLASS>, "a cast to a class that others derive from cuts them short");  \
        static_assert(noexcept(*this = std::move(*this)), "a half assigned object would be lost");           \
        CLASS temporary(dynamic_cast<const CLASS&>(copy));                                                   \
        *this = std::move(temporary);                                                                        \
    }
