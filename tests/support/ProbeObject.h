#pragma once

#include <exception>
#include <memory>
#include <utility>

#include "data/VrexBaseObject.h"

/// A concrete object without a row of its own, with everything protected laid open.
class ProbeObject : public VrexBaseObject {
public:
    explicit ProbeObject(std::uint32_t parameterCount = 0)
        : VrexBaseObject(VrexObjectType::Geometry, parameterCount) {}
    ProbeObject(const ProbeObject&) = default;
    ProbeObject(ProbeObject&&) = default;

    static std::shared_ptr<ProbeObject> create(std::uint32_t parameterCount) {
        return std::make_shared<ProbeObject>(parameterCount);
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeObject>(*this); }
    const char* getNamePrefix() const override { return "probe"; }

    using VrexBaseObject::doRestore;
    using VrexBaseObject::getBackup;
    using VrexBaseObject::getParameter;
    using VrexBaseObject::getParameterSize;
    using VrexBaseObject::makeVariableDescriptor;
    using VrexBaseObject::setParameter;

    /// Makes the next assignment from a copy throw it.
    std::exception_ptr failure;

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        if (failure) {
            std::rethrow_exception(failure);
        }
        ProbeObject temporary(dynamic_cast<const ProbeObject&>(copy));
        VrexBaseObject::operator=(std::move(temporary));
    }
};
