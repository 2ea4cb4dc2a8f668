#include "data/base/VrexRefusal.h"
#include "data/constraint/3d/VrexConstraintManager3D.h"
#include "data/constraint/3d/VrexHelpValues.h"

namespace {

using nsHelpValues::findPlace;
using nsHelpValues::printed;
using nsHelpValues::printedId;
using nsHelpValues::read;

} // namespace

bool VrexConstraintManager3D::createHelpPoint(const Constraint& constraint, const Geometry& geometry,
                                              const VrexVector3DT<double>& point, std::uint64_t index) {
    if (!checkHelpPointGeometry(geometry) || !checkConstraintSupportHelpPoint(constraint)) {
        return false;
    }
    const bool updated = update(constraint->getID(), [&](VrexConstraint3D& stored) {
        return index == INVALID_HELP_POINT_INDEX ? addHelpPoint(stored, geometry, point)
                                                 : addHelpPoint(stored, index, point);
    });
    if (!updated) {
        m_logRecorder.appendLogMessage(", Failed to create help point. failed!");
    }
    return updated;
}

bool VrexConstraintManager3D::enquireHelpPoint(const Constraint& constraint, const Geometry& geometry,
                                               std::uint64_t index, VrexVector3DT<double>& out) {
    if (!checkHelpPointGeometry(geometry) || !checkConstraintSupportHelpPoint(constraint)) {
        return false;
    }
    return index == INVALID_HELP_POINT_INDEX ? getHelpPoint(*constraint, geometry, out)
                                             : getHelpPoint(*constraint, index, out);
}

bool VrexConstraintManager3D::enquireHelpPoint(const Constraint& constraint, const Geometry& geometry,
                                               VrexVector3DT<double>& out) {
    return enquireHelpPoint(constraint, geometry, INVALID_HELP_POINT_INDEX, out);
}

bool VrexConstraintManager3D::checkConstraintSupportHelpPoint(const Constraint& constraint) const {
    if (!checkNotNull(constraint)) {
        return false;
    }
    const VrexConstraint& base = *constraint;
    if (!base.isHelpPointSupported()) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED,
                    "Constraint don't support help point, id : %lld.", printedId(constraint));
        return false;
    }
    return true;
}

bool VrexConstraintManager3D::checkHelpPointGeometry(const Geometry& geometry) const {
    if (geometry == nullptr) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::GEOMETRY_ID_INVALID,
                    "Failed to check help point  geometry, the geometry is invalid");
        return false;
    }
    if (!geometry->isParametricCurve() && !geometry->isParametricSurface() &&
        geometry->type() != VrexGeometry3DType::SPHERE) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED,
                    "Checking geometry failure, geometry do not support help point, id : %lld.",
                    printedId(geometry));
        return false;
    }
    return true;
}

bool VrexConstraintManager3D::addHelpPoint(VrexConstraint3D& constraint, const Geometry& geometry,
                                           const VrexVector3DT<double>& point) const {
    const int number = findPlace(constraint, geometry);
    if (number == 0) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to add help point on constraint, the geometry is independent of the constraint, "
                    "geometry id : %lld, constraint id : %lld.",
                    printedId(geometry), printed(constraint.getID()));
        return false;
    }
    number == 1 ? constraint.setHelpPoint1(point) : constraint.setHelpPoint2(point);
    return true;
}

bool VrexConstraintManager3D::addHelpPoint(VrexConstraint3D& constraint, std::uint64_t index,
                                           const VrexVector3DT<double>& point) const {
    if (index != 1 && index != 2) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
                    "Failed to set help point on constraint, the help point index is out of range, "
                    "cosntraint id : %lld.",
                    printed(constraint.getID()));
        return false;
    }
    index == 1 ? constraint.setHelpPoint1(point) : constraint.setHelpPoint2(point);
    return true;
}

bool VrexConstraintManager3D::getHelpPoint(const VrexConstraint3D& constraint, const Geometry& geometry,
                                           VrexVector3DT<double>& out) const {
    const int number = findPlace(constraint, geometry);
    if (number == 0) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to get help point on constraint, the geometry is independent of the constraint, "
                    "geometry id : %lld, constraint id : %lld.",
                    printedId(geometry), printed(constraint.getID()));
        return false;
    }
    return read(number == 1 ? constraint.helpPoint1() : constraint.helpPoint2(), out);
}

bool VrexConstraintManager3D::getHelpPoint(const VrexConstraint3D& constraint, std::uint64_t index,
                                           VrexVector3DT<double>& out) const {
    if (index != 1 && index != 2) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
                    "Failed to get help point on constraint, the help point index is out of range, "
                    "cosntraint id : %lld.",
                    printed(constraint.getID()));
        return false;
    }
    return read(index == 1 ? constraint.helpPoint1() : constraint.helpPoint2(), out);
}
