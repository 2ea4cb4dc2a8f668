#pragma once

#include <memory>

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// Hidden: defines what every constraint of two whole geometries has that adds no field: the body of an
/// object, `create` and the constructor.
#define VREX_PAIR_BODY(CLASS, KIND)                                                                          \
    VREX_OBJECT_BODY(CLASS)                                                                                  \
    std::shared_ptr<CLASS> CLASS::create(const std::shared_ptr<VrexGeometry3D>& geometry1,                   \
                                         const std::shared_ptr<VrexGeometry3D>& geometry2) {                 \
        return VrexObjectAccess::make<CLASS>(geometry1, geometry2);                                          \
    }                                                                                                        \
    CLASS::CLASS(const std::shared_ptr<VrexGeometry3D>& geometry1,                                           \
                 const std::shared_ptr<VrexGeometry3D>& geometry2)                                           \
        : VrexConstraint3D(KIND) {                                                                           \
        addArguments(geometry1, geometry2);                                                                  \
    }
