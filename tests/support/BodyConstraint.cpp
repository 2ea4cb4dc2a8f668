#include "support/BodyConstraint.h"

#include "data/VrexObjectBody.h"

template <>
struct VrexObjectRow<BodyConstraint> {
    static void visit(VrexVisitor3D& visitor, BodyConstraint& object) { visitor.visitConstraint(object); }
};

VREX_OBJECT_BODY(BodyConstraint)

std::shared_ptr<BodyConstraint> BodyConstraint::create(std::uint32_t parameterCount) {
    return VrexObjectAccess::make<BodyConstraint>(parameterCount);
}
