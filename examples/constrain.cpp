// A distance between two points, from the question whether it may be to a value that a variable drives within
// limits.

#include <cmath>
#include <cstdio>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexIDGenerator.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraint3DPreValidator.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// How far the points are from what the distance asks for.
double residual(const VrexDistance3D& distance, const VrexPoint3D& from, const VrexPoint3D& to) {
    return from.getPosition().distanceTo(to.getPosition()) - distance.value();
}

bool isWithin(double value, const VrexDimensionLimits& limits) {
    return value >= limits.first.value_or(-HUGE_VAL) && value <= limits.second.value_or(HUGE_VAL);
}

/// Asks for a tangency of a line and a plane, which no rule admits, and prints the refusal.
bool isRefused(const VrexConstraint3DPreValidator& validator, VrexIDGenerator& ids,
               const VrexLogRecorder& recorder) {
    const auto edge = VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    const auto face = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    edge->setID(ids.next());
    face->setID(ids.next());
    if (validator.preCheckConstraint3DType({edge, face}, VrexConstraint3DType::Tangency3D, WHOLE, WHOLE)) {
        return false;
    }
    std::printf("%-20s 0x%08X\n%-20s %s\n", "refused, code", static_cast<unsigned>(recorder.getErrorCode()),
                "refused, message", recorder.getErrorMessage());
    return !VrexTangency3D::canCreate(edge->type(), face->type()); // the class itself says so, too
}

} // namespace

int main() {
    const VrexDefaultToleranceGetter tolerances;
    VrexLogRecorder recorder(1);
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    VrexIDGenerator ids;

    const auto hinge = VrexPoint3D::create(0.0, 0.0, 0.0);
    const auto tip = VrexPoint3D::create(3.0, 4.0, 12.0);
    hinge->setID(ids.next()); // the validator tells geometries apart by identifier
    tip->setID(ids.next());
    if (!validator.preCheckConstraint3DType({hinge, tip}, VrexConstraint3DType::Distance3D, WHOLE, WHOLE)) {
        std::printf("%s\n", recorder.getErrorMessage());
        return 1;
    }

    const auto distance = VrexDistance3D::create(hinge, tip, 10.0, WHOLE, WHOLE);
    distance->setID(ids.next());
    std::printf("%-20s %g, off by %g\n", "distance", distance->value(), residual(*distance, *hinge, *tip));

    const auto length = VrexGeometryVariable::create(12.0); // one number for all dimensions bound to it
    length->setID(ids.next());
    distance->bindVariable(length);
    distance->setLimits({5.0, 15.0});
    length->setValue(13.0);
    const bool satisfied = residual(*distance, *hinge, *tip) == 0.0;
    const bool within = isWithin(distance->value(), distance->getLimits());
    std::printf("%-20s %g, off by %g, %s the limits\n", "bound distance", distance->value(),
                residual(*distance, *hinge, *tip), within ? "within" : "outside");

    return satisfied && within && isRefused(validator, ids, recorder) ? 0 : 1;
}
