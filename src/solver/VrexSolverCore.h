#pragma once

#include <memory>
#include <optional>

#include "data/VrexVariable.h"
#include "data/geometry/VrexGeometryComponentType.h"
#include "solver/VrexSolverShape.h"

class VrexGeometry3D;
class VrexSolverBuilder;

/// What a constraint binds of an entity: the entity itself or a component of it, as a simpler one and how far
/// the surface lies from that. A sphere lies about a point, a cylinder about a line, a torus about a circle.
class VrexSolverCore {
public:
    enum class Kind { POINT, LINE, CIRCLE, ELLIPSE, CONE, PLANE };

    /// Empty for an entity that has no shape of its own and for a component that it lacks.
    static std::optional<VrexSolverCore> of(const VrexSolverBuilder& builder,
                                            const std::shared_ptr<VrexGeometry3D>& entity,
                                            VrexGeometryComponentType component);

    Kind kind() const { return m_kind; }
    const VrexSolverShape& shape() const { return *m_shape; }
    bool hasOffset() const { return m_offset.has_value(); }
    /// Zero without one.
    VrexVariable offset() const { return hasOffset() ? m_shape->size(*m_offset) : VrexVariable(); }
    /// Whether it is of one dimension: a line, a circle, an ellipse.
    bool isCurve() const {
        return !hasOffset() && (m_kind == Kind::LINE || m_kind == Kind::CIRCLE || m_kind == Kind::ELLIPSE);
    }
    /// The core alone, without the surface about it.
    VrexSolverCore withoutOffset() const { return {m_kind, *m_shape}; }

private:
    VrexSolverCore(Kind kind, const VrexSolverShape& shape) : m_kind(kind), m_shape(&shape) {}
    VrexSolverCore(Kind kind, const VrexSolverShape& shape, std::size_t offset)
        : m_kind(kind), m_shape(&shape), m_offset(offset) {}

    Kind m_kind;
    const VrexSolverShape* m_shape;
    std::optional<std::size_t> m_offset; ///< The size that the surface is away.
};
