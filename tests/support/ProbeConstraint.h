#pragma once

#include <memory>
#include <utility>

#include "data/constraint/VrexConstraint.h"

/// A concrete constraint without a row of its own, with everything protected laid open.
class ProbeConstraint : public VrexConstraint {
public:
    explicit ProbeConstraint(std::uint32_t parameterCount) : VrexConstraint(parameterCount) {}
    ProbeConstraint() = default;
    ProbeConstraint(const ProbeConstraint&) = default;
    ProbeConstraint& operator=(ProbeConstraint&&) = default;

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeConstraint>(*this); }
    int doc() const override { return 1; }

    using VrexConstraint::addGeometry;
    using VrexConstraint::eraseGeometry;
    using VrexConstraint::geometries;
    using VrexConstraint::getParameterSize;
    using VrexConstraint::initGeometry;

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        ProbeConstraint temporary(dynamic_cast<const ProbeConstraint&>(copy));
        *this = std::move(temporary);
    }
};
