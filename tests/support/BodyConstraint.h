#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexObjectAccess.h"
#include "data/constraint/VrexConstraint.h"

/// A constraint whose body is written as the library's own are, visited as `VrexConstraint`.
/// BodyConstraint.cpp belongs into the executable.
class BodyConstraint final : public VrexConstraint {
public:
    static std::shared_ptr<BodyConstraint> create(std::uint32_t parameterCount);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override { return 1; }
    /// Public here: the assignment of the whole object, identifier and label included.
    void restoreFromCopy(const VrexBaseObject& copy) override;

    using VrexConstraint::addGeometry;
    using VrexConstraint::getBackup;

private:
    friend class VrexObjectAccess;

    explicit BodyConstraint(std::uint32_t parameterCount) : VrexConstraint(parameterCount) {}
    BodyConstraint(const BodyConstraint&) = default;
    BodyConstraint& operator=(BodyConstraint&&) = default;
};
