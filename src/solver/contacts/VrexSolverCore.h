#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>

#include "data/VrexVariable.h"
#include "data/geometry/VrexGeometryComponentType.h"
#include "solver/system/VrexSolverShape.h"

class VrexGeometry3D;
class VrexSolverBuilder;

/// What a constraint binds of an entity: the entity itself or a component of it, as a simpler one and how far
/// the surface lies from that. A sphere lies about a point, a cylinder about a line, a torus about a circle.
class VrexSolverCore {
public:
    enum class Kind { POINT, LINE, CIRCLE, ELLIPSE, CONE, PLANE, CURVE, SURFACE };

    /// Empty for an entity that nothing can be bound to and for a component that it lacks.
    static std::optional<VrexSolverCore> of(const VrexSolverBuilder& builder,
                                            const std::shared_ptr<VrexGeometry3D>& entity,
                                            VrexGeometryComponentType component);

    Kind kind() const { return m_kind; }
    /// None of a curve or surface without a shape of its own.
    bool hasShape() const { return m_shape != nullptr; }
    const VrexSolverShape& shape() const { return *m_shape; }
    const std::shared_ptr<VrexGeometry3D>& entity() const { return m_entity; }
    bool hasOffset() const { return m_offset.has_value(); }
    /// Zero without one.
    VrexVariable offset() const { return hasOffset() ? size(*m_offset) : VrexVariable(); }
    /// A radius below zero means the same circle or surface: sizes are those of the one above. They keep the
    /// sign that they had at first only with `keepSigns`.
    VrexVariable size(std::size_t index) const { return m_shape->size(index) * m_senses[index]; }
    /// Adds what holds back radii that would pass zero.
    void keepSigns(VrexSolverBuilder& builder) const;
    /// Whether it is of one dimension: a line, a circle, an ellipse, a spline.
    bool isCurve() const {
        return !hasOffset() && (m_kind == Kind::LINE || m_kind == Kind::CIRCLE || m_kind == Kind::ELLIPSE ||
                                m_kind == Kind::CURVE);
    }
    /// The core alone, without the surface about it.
    VrexSolverCore withoutOffset() const { return {m_kind, *m_shape}; }

private:
    /// Of a spin surface, which has no other component.
    static std::optional<VrexSolverCore> axisOf(const VrexSolverBuilder& builder,
                                                const std::shared_ptr<VrexGeometry3D>& entity,
                                                VrexGeometryComponentType component);

    VrexSolverCore(Kind kind, std::shared_ptr<VrexGeometry3D> entity);
    VrexSolverCore(Kind kind, const VrexSolverShape& shape, std::optional<std::size_t> offset = {});

    Kind m_kind;
    const VrexSolverShape* m_shape = nullptr;
    std::shared_ptr<VrexGeometry3D> m_entity; ///< Where there is no shape.
    std::optional<std::size_t> m_offset;      ///< The size that the surface is away.
    std::array<double, 2> m_senses{1.0, 1.0};
};
