#include "solver/contacts/VrexSolverCore.h"

#include <functional>
#include <utility>

#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexParametricPath.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverDirections.h"

VrexSolverCore::VrexSolverCore(Kind kind, const VrexSolverShape& shape, std::optional<std::size_t> offset)
    : m_kind(kind), m_shape(&shape), m_offset(offset) {
    for (const std::size_t i : {0U, 1U}) {
        m_senses[i] = shape.sizeValue(i) < 0.0 ? -1.0 : 1.0;
    }
}

VrexSolverCore::VrexSolverCore(Kind kind, std::shared_ptr<VrexGeometry3D> entity)
    : m_kind(kind), m_entity(std::move(entity)) {}

void VrexSolverCore::keepSigns(VrexSolverBuilder& builder) const {
    if (m_kind != Kind::CIRCLE && m_kind != Kind::ELLIPSE && !hasOffset()) {
        return; // no radius
    }
    for (const std::size_t i : {0U, 1U}) {
        const VrexSolverBody& body = m_shape->body();
        if (body.mobility().sizes[i] && body.isLength(i)) {
            builder.addLimits({0.0, {}}, std::bind_front(&VrexSolverCore::size, *this, i), builder.length());
        }
    }
}

std::optional<VrexSolverCore> VrexSolverCore::axisOf(const VrexSolverBuilder& builder,
                                                     const std::shared_ptr<VrexGeometry3D>& entity,
                                                     VrexGeometryComponentType component) {
    const VrexSolverShape* const axis = nsSolverDirections::directed(builder, entity);
    return component == VrexGeometryComponentType::AXIS && axis != nullptr
               ? std::optional(VrexSolverCore(Kind::LINE, *axis))
               : std::nullopt;
}

std::optional<VrexSolverCore> VrexSolverCore::of(const VrexSolverBuilder& builder,
                                                 const std::shared_ptr<VrexGeometry3D>& entity,
                                                 VrexGeometryComponentType component) {
    if (entity != nullptr && component == VrexGeometryComponentType::UNKNOWN &&
        nsParametricPath::isKnown(entity->type())) {
        if (!nsParametricPath::canRun(builder, entity)) {
            return std::nullopt;
        }
        return VrexSolverCore(nsParametricPath::isSurface(entity->type()) ? Kind::SURFACE : Kind::CURVE,
                              entity);
    }
    if (entity != nullptr && entity->type() == VrexGeometry3DType::SPIN_SURFACE) {
        return axisOf(builder, entity, component);
    }
    const VrexSolverShape* const shape = builder.shape(entity);
    if (shape == nullptr) {
        return std::nullopt;
    }
    switch (component) {
    case VrexGeometryComponentType::CENTER:
    case VrexGeometryComponentType::APEX:
        return VrexSolverCore(Kind::POINT, *shape);
    case VrexGeometryComponentType::AXIS:
        return VrexSolverCore(Kind::LINE, *shape);
    case VrexGeometryComponentType::PLANE:
        return VrexSolverCore(Kind::PLANE, *shape);
    case VrexGeometryComponentType::SPINE:
        return VrexSolverCore(Kind::CIRCLE, *shape);
    case VrexGeometryComponentType::UNKNOWN:
        break;
    default:
        return std::nullopt;
    }
    switch (entity->type()) {
    case VrexGeometry3DType::POINT:
        return VrexSolverCore(Kind::POINT, *shape);
    case VrexGeometry3DType::SPHERE:
        return VrexSolverCore(Kind::POINT, *shape, 0);
    case VrexGeometry3DType::LINE:
        return VrexSolverCore(Kind::LINE, *shape);
    case VrexGeometry3DType::CYLINDER:
        return VrexSolverCore(Kind::LINE, *shape, 0);
    case VrexGeometry3DType::CIRCLE:
        return VrexSolverCore(Kind::CIRCLE, *shape);
    case VrexGeometry3DType::TORUS:
        return VrexSolverCore(Kind::CIRCLE, *shape, 1);
    case VrexGeometry3DType::ELLIPSE:
        return VrexSolverCore(Kind::ELLIPSE, *shape);
    case VrexGeometry3DType::CONE:
        return VrexSolverCore(Kind::CONE, *shape);
    case VrexGeometry3DType::PLANE:
        return VrexSolverCore(Kind::PLANE, *shape);
    default:
        return std::nullopt;
    }
}
