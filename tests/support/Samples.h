#pragma once

#include <memory>

#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
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

template <>
inline std::shared_ptr<VrexRigidSet3D> makeSample() {
    auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>(), makeSample<VrexLine3D>()});
    set->setTransformation({{1.0, -1.0, 2.0}, 0.5, {1.0, 2.0, 2.0}});
    return set;
}

template <>
inline std::shared_ptr<VrexConnector3D> makeSample() {
    auto connector = VrexConnector3D::create(makeSample<VrexRigidSet3D>());
    connector->setTransformation({{3.0, 2.0, -1.0}, 1.25, {0.0, 3.0, 4.0}});
    return connector;
}

template <>
inline std::shared_ptr<VrexPattern3D> makeSample() {
    return VrexPattern3D::create(VrexPattern3DType::Circular3D, makeSample<VrexLine3D>(), 0.25);
}

template <>
inline std::shared_ptr<VrexArrayPattern3D> makeSample() {
    return VrexArrayPattern3D::create(
        {VrexPattern3D::create(VrexPattern3DType::Linear3D, makeSample<VrexLine3D>(), 3.0),
         makeSample<VrexPattern3D>()});
}

template <>
inline std::shared_ptr<VrexEqualDimensionElement3D> makeSample() {
    return VrexEqualDimensionElement3D::create(1.5);
}
