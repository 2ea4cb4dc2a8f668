#include "data/constraint/3d/VrexConstraint3D.h"

#include <algorithm>
#include <stdexcept>

#include "data/VrexCastList.h"
#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"
#include "data/VrexStandardTexts.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

struct ComponentRow {
    VrexGeometryComponentType component;
    VrexGeometry3DTypeSet kinds;
};

/// Which kinds have a component. The validator of constraint requests has a table of its own, which differs.
constexpr ComponentRow COMPONENTS[] = {
    {VrexGeometryComponentType::CENTER,
     {VrexGeometry3DType::SPHERE, VrexGeometry3DType::CIRCLE, VrexGeometry3DType::ELLIPSE,
      VrexGeometry3DType::TORUS}},
    {VrexGeometryComponentType::AXIS,
     {VrexGeometry3DType::CYLINDER, VrexGeometry3DType::CIRCLE, VrexGeometry3DType::CONE,
      VrexGeometry3DType::ELLIPSE, VrexGeometry3DType::TORUS}},
    {VrexGeometryComponentType::PLANE,
     {VrexGeometry3DType::CIRCLE, VrexGeometry3DType::ELLIPSE, VrexGeometry3DType::TORUS}},
    {VrexGeometryComponentType::SPINE, {VrexGeometry3DType::TORUS}},
    {VrexGeometryComponentType::APEX, {VrexGeometry3DType::CONE}},
};

constexpr VrexGeometry3DTypeSet WITH_FREE_PARAMETER{VrexGeometry3DType::CYLINDER, VrexGeometry3DType::CIRCLE,
                                                    VrexGeometry3DType::CONE, VrexGeometry3DType::TORUS};

} // namespace

VREX_OBJECT_ACCEPT(VrexConstraint3D)

VrexConstraint3D::~VrexConstraint3D() = default;

std::shared_ptr<VrexGeometry3D> VrexConstraint3D::getGeometryByParameterIndex(std::uint64_t index) const {
    switch (index) {
    case HP1X:
    case HP1Y:
    case HP1Z:
    case HPARAMU1:
    case HPARAMV1:
        return geometry(1);
    case HP2X:
    case HP2Y:
    case HP2Z:
    case HPARAMU2:
    case HPARAMV2:
        return geometry(2);
    default:
        return nullptr;
    }
}

std::shared_ptr<VrexGeometry3D> VrexConstraint3D::geometry(std::uint32_t number) const {
    const auto& list = getGeometries();
    if (number == 0) {
        VREX_LOG(nsLog::REFUSAL, "Begin with parameter 1, not 0!");
        return nullptr;
    }
    if (number > list.size()) {
        VREX_LOG(nsLog::REFUSAL, "Constraint(%llu) ONLY has %llu geometries, num(%u) invalid!",
                 static_cast<unsigned long long>(getID()), static_cast<unsigned long long>(list.size()),
                 number);
        return nullptr;
    }
    const auto& element = list[number - 1];
    if (element != nullptr && element->baseType() != VrexObjectType::Geometry) {
        VREX_LOG(nsLog::REFUSAL, "The geometry is a variable!");
        return nullptr;
    }
    return std::dynamic_pointer_cast<VrexGeometry3D>(element);
}

std::vector<std::shared_ptr<VrexGeometry3D>> VrexConstraint3D::getGeometries3D() const {
    return keepOnly<VrexGeometry3D>(getGeometries());
}

std::uint64_t VrexConstraint3D::getGeometries3DCount() const {
    const auto& list = getGeometries();
    return static_cast<std::uint64_t>(std::ranges::count_if(list, [](const auto& element) {
        return dynamic_cast<const VrexGeometry3D*>(element.get()) != nullptr;
    }));
}

std::shared_ptr<VrexGeometry3D> VrexConstraint3D::getGeometryByType(VrexGeometry3DType type) const {
    for (const auto& element : getGeometries()) {
        auto geometry = std::dynamic_pointer_cast<VrexGeometry3D>(element);
        if (geometry != nullptr && geometry->type() == type) {
            return geometry;
        }
    }
    return nullptr;
}

std::vector<std::shared_ptr<VrexGeometry3D>>
VrexConstraint3D::getGeometriesByType(VrexGeometry3DType type) const {
    auto geometries = getGeometries3D();
    std::erase_if(geometries, [type](const auto& geometry) { return geometry->type() != type; });
    return geometries;
}

VrexGeometryComponentType VrexConstraint3D::getGeomComponentType(std::uint32_t number) const {
    if (number == 0 || number > m_geomComponents.size()) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::ARRAY_SUBSCRIPT);
    }
    return m_geomComponents[number - 1];
}

void VrexConstraint3D::setGeomComponentType(std::uint32_t number, VrexGeometryComponentType component) {
    const auto target = geometry(number);
    if (target == nullptr) {
        return;
    }
    if (number > m_geomComponents.size()) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::ARRAY_SUBSCRIPT);
    }
    if (supportedGeomTypeForComponentType(target->type(), component)) {
        m_geomComponents[number - 1] = component;
    }
}

void VrexConstraint3D::fixHelpParameter1(bool fix) {
    if (canFixHelpParameter(1)) {
        m_fixHelpParameter1 = fix;
    }
}

void VrexConstraint3D::fixHelpParameter2(bool fix) {
    if (canFixHelpParameter(2)) {
        m_fixHelpParameter2 = fix;
    }
}

bool VrexConstraint3D::canFixHelpParameter(std::uint32_t number) const {
    const auto target = geometry(number);
    return target != nullptr && !notSupportFixHelpParameterType(target->type());
}

bool VrexConstraint3D::notSupportFixHelpParameterType(VrexGeometry3DType type) {
    return WITH_FREE_PARAMETER.contains(type);
}

bool VrexConstraint3D::supportedGeomTypeForComponentType(VrexGeometry3DType type,
                                                         VrexGeometryComponentType component) {
    const auto* const row = std::ranges::find(COMPONENTS, component, &ComponentRow::component);
    return row == std::end(COMPONENTS) || row->kinds.contains(type);
}
