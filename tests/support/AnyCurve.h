#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "data/geometry/3d/VrexParametricCurve3D.h"

/// A parametric curve of whatever kind it is told, without a row of its own and without parameters.
class AnyCurve : public VrexParametricCurve3D {
public:
    explicit AnyCurve(VrexGeometry3DType type) : VrexParametricCurve3D(type, 0) {}
    AnyCurve(const AnyCurve&) = default;
    AnyCurve& operator=(AnyCurve&&) = default;

    static std::shared_ptr<AnyCurve> create(VrexGeometry3DType type) {
        return std::make_shared<AnyCurve>(type);
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<AnyCurve>(*this); }
    const char* getNamePrefix() const override { return "any"; }
    int dof() const override { return 0; }
    std::pair<std::optional<double>, std::optional<double>> interval() const override { return {}; }

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        AnyCurve temporary(dynamic_cast<const AnyCurve&>(copy));
        *this = std::move(temporary);
    }
};
