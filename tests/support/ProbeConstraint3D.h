#pragma once

#include <memory>
#include <utility>

#include "data/constraint/3d/VrexConstraint3D.h"

/// A concrete constraint in space without a row of its own, with everything protected laid open.
class ProbeConstraint3D : public VrexConstraint3D {
public:
    explicit ProbeConstraint3D(VrexConstraint3DType type = VrexConstraint3DType::Distance3D,
                               VrexGeometryComponentType component1 = VrexGeometryComponentType::UNKNOWN,
                               VrexGeometryComponentType component2 = VrexGeometryComponentType::UNKNOWN)
        : VrexConstraint3D(type, component1, component2) {}
    ProbeConstraint3D(const ProbeConstraint3D&) = default;
    ProbeConstraint3D& operator=(ProbeConstraint3D&&) = default;

    /// A constraint of these geometries.
    template <class... Geometry>
    static std::shared_ptr<ProbeConstraint3D> of(const std::shared_ptr<Geometry>&... geometries) {
        auto constraint = std::make_shared<ProbeConstraint3D>();
        constraint->addArguments(geometries...);
        return constraint;
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeConstraint3D>(*this); }
    int doc() const override { return 1; }

    using VrexConstraint3D::addArguments;
    using VrexConstraint3D::addGeometry;
    using VrexConstraint3D::eraseGeometry;
    using VrexConstraint3D::supportedGeomTypeForComponentType;

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        ProbeConstraint3D temporary(dynamic_cast<const ProbeConstraint3D&>(copy));
        *this = std::move(temporary);
    }
};
