#pragma once

#include "data/VrexBaseObject.h"
#include "data/VrexVisitor3D.h"

namespace nsCalculator {

/// Hidden: lets a visitor that only reads choose by the class of a constant object, which is not changed.
inline void visit(const VrexBaseObject& object, VrexVisitor3D& visitor) {
    const_cast<VrexBaseObject&>(object).accept(visitor);
}

} // namespace nsCalculator
