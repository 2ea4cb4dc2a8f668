#pragma once

#include <memory>

#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/VrexGeometryVariable.h"

/// A valid object of each concrete class, with no field left at its default. A class without a maker fails to
/// link.
template <class Object>
std::shared_ptr<Object> makeSample();

template <>
inline std::shared_ptr<VrexGeometryVariable> makeSample() {
    return VrexGeometryVariable::create(2.5);
}

template <>
inline std::shared_ptr<VrexPoint3D> makeSample() {
    return VrexPoint3D::create(1.0, -2.0, 3.5);
}

template <>
inline std::shared_ptr<VrexLine3D> makeSample() {
    return VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 3.0, 4.0});
}

template <>
inline std::shared_ptr<VrexPlane3D> makeSample() {
    return VrexPlane3D::create({4.0, 5.0, 6.0}, {1.0, 2.0, -2.0});
}

template <>
inline std::shared_ptr<VrexSphere3D> makeSample() {
    auto sphere = VrexSphere3D::create({7.0, 8.0, 9.0}, 0.75);
    sphere->setAllowRadiusSignChange(true);
    return sphere;
}
