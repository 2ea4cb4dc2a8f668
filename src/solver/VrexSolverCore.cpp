#include "solver/VrexSolverCore.h"

#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/VrexSolverBuilder.h"

std::optional<VrexSolverCore> VrexSolverCore::of(const VrexSolverBuilder& builder,
                                                 const std::shared_ptr<VrexGeometry3D>& entity,
                                                 VrexGeometryComponentType component) {
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
