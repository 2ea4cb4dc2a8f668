#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "data/geometry/3d/VrexGeometry3D.h"

/// An entity of whatever kind it is told, without a row of its own, for code that asks for nothing but the
/// kind and the identifier. It is not dirty.
class AnyGeometry : public VrexGeometry3D {
public:
    explicit AnyGeometry(VrexGeometry3DType type) : VrexGeometry3D(type, 2) {
        setParameter(0, 0.5);
        setParameter(1, -1.5);
        setDirty(false);
    }
    AnyGeometry(const AnyGeometry&) = default;
    AnyGeometry& operator=(AnyGeometry&&) = default;

    static std::shared_ptr<AnyGeometry> create(VrexGeometry3DType type, std::uint64_t id) {
        auto geometry = std::make_shared<AnyGeometry>(type);
        geometry->setID(id);
        return geometry;
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<AnyGeometry>(*this); }
    const char* getNamePrefix() const override { return "any"; }
    int dof() const override { return 2; }

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        AnyGeometry temporary(dynamic_cast<const AnyGeometry&>(copy));
        *this = std::move(temporary);
    }
};
