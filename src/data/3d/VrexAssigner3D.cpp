#include "data/3d/VrexAssigner3D.h"

#include "data/3d/VrexAssigner3DImpl.h"
#include "data/VrexLog.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexCalculatorVisit.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

template <class Object>
void assignSameKind(const Object& source, Object& target) {
    if (source.baseType() != target.baseType() || source.type() != target.type()) {
        VREX_LOG(nsLog::FAILURE, "VrexAssigner3D : types should be the same!");
        return;
    }
    VrexAssigner3DImpl visitor(target);
    nsCalculator::visit(source, visitor);
}

} // namespace

void VrexAssigner3D::operator()(const VrexConstraint3D& source, VrexConstraint3D& target) const {
    assignSameKind(source, target);
}

void VrexAssigner3D::operator()(const VrexGeometry3D& source, VrexGeometry3D& target) const {
    assignSameKind(source, target);
}

void VrexAssigner3D::operator()(const VrexGeometryVariable& source, VrexGeometryVariable& target) const {
    VrexAssigner3DImpl visitor(target);
    nsCalculator::visit(source, visitor);
}
