#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "data/base/VrexRefusal.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Interval = std::pair<std::optional<double>, std::optional<double>>;

long long printed(std::uint64_t number) { return static_cast<long long>(number); }

template <class Object>
long long printedId(const std::shared_ptr<Object>& object) {
    return object != nullptr ? printed(object->getID()) : 0;
}

/// 1 or 2, the place of the geometry among the constraint's first two; 0 for no place.
int findPlace(const VrexConstraint3D& constraint, const std::shared_ptr<VrexGeometry3D>& geometry) {
    const auto& list = constraint.getGeometries();
    const std::size_t count = std::min<std::size_t>(list.size(), 2);
    for (std::size_t i = 0; i < count && geometry != nullptr; ++i) {
        if (list[i] == geometry) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

/// 1 or 2, the help parameter of this index; 0 for no index of one.
int findHelpParameter(std::uint64_t index) {
    switch (index) {
    case VrexConstraint3D::HPARAMU1:
        return 1;
    case VrexConstraint3D::HPARAMU2:
        return 2;
    default:
        return 0;
    }
}

/// Kept: the lower end first, then the upper one, which so wins where they are the wrong way round.
void bringInto(const Interval& interval, double& value) {
    if (interval.first && value < *interval.first) {
        value = *interval.first;
    }
    if (interval.second && value > *interval.second) {
        value = *interval.second;
    }
}

/// Whether the curve goes round: a parameter beyond its range is as good as one within.
bool isRound(const VrexParametricCurve3D& curve) {
    const auto* spline = dynamic_cast<const VrexSpline3D*>(&curve);
    const bool closed = spline != nullptr ? spline->periodic() : curve.type() == VrexGeometry3DType::ELLIPSE;
    return closed && !(curve.start() && curve.end());
}

template <class Value>
bool read(const std::optional<Value>& source, Value& out) {
    if (source) {
        out = *source;
    }
    return source.has_value();
}

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

bool VrexConstraintManager3D::createHelpParameter(const Constraint& constraint, const Geometry& geometry,
                                                  const VrexVector2DT<double>& parameter,
                                                  std::uint64_t index) {
    if (!checkHelpParameterGeometry(geometry) || !checkConstraintSupportHelpParameter(constraint)) {
        return false;
    }
    VrexVector2DT<double> adjusted = parameter;
    const bool updated = adjustHelpParameterRange(*geometry, adjusted) &&
                         update(constraint->getID(), [&](VrexConstraint3D& stored) {
                             return addHelpParameter(stored, geometry, index, adjusted);
                         });
    if (!updated) {
        m_logRecorder.appendLogMessage(", createHelpParameter failed!");
    }
    return updated;
}

bool VrexConstraintManager3D::enquireHelpParameter(const Constraint& constraint, const Geometry& geometry,
                                                   std::uint64_t index, VrexVector2DT<double>& out) const {
    if (!checkHelpParameterGeometry(geometry) || !checkConstraintSupportHelpParameter(constraint)) {
        return false;
    }
    switch (selectHelpParameter(*constraint, geometry, index, "get the help parameter")) {
    case 1:
        return read(constraint->helpParam1(), out);
    case 2:
        return read(constraint->helpParam2(), out);
    default:
        return false;
    }
}

bool VrexConstraintManager3D::enquireHelpParameter(const Constraint& constraint, const Geometry& geometry,
                                                   VrexVector2DT<double>& out) const {
    return enquireHelpParameter(constraint, geometry, INVALID_PARAMETER_INDEX, out);
}

bool VrexConstraintManager3D::setHelpParameterFixedState(const Constraint& constraint,
                                                         const Geometry& geometry, std::uint64_t index,
                                                         const bool& state) {
    if (!checkHelpParameterGeometry(geometry) || !checkConstraintSupportHelpParameter(constraint)) {
        return false;
    }
    VrexConstraint3D& target = *constraint;
    const int number = selectHelpParameter(target, geometry, index, "set the fix state of help parameter");
    if (number == 0) {
        return false;
    }
    if (!(number == 1 ? target.helpParam1() : target.helpParam2())) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_PARAMETER_INVALID,
                    "Failed to set the fix state of help parameter%d, constraint not set helpParameter%d, "
                    "id : %lld.",
                    number, number, printed(target.getID()));
        return false;
    }
    const bool before = number == 1 ? target.fixHelpParameter1() : target.fixHelpParameter2();
    number == 1 ? target.fixHelpParameter1(state) : target.fixHelpParameter2(state);
    const bool after = number == 1 ? target.fixHelpParameter1() : target.fixHelpParameter2();
    if (after != before) {
        target.setDirty(true);
    }
    return after == state || refuseFixedState(target, number);
}

bool VrexConstraintManager3D::setHelpParameterFixedState(const Constraint& constraint,
                                                         const Geometry& geometry, const bool& state) {
    return setHelpParameterFixedState(constraint, geometry, INVALID_PARAMETER_INDEX, state);
}

bool VrexConstraintManager3D::getHelpParameterFixedState(const Constraint& constraint,
                                                         const Geometry& geometry, std::uint64_t index,
                                                         bool& out) const {
    if (!checkNotNull(constraint)) {
        return false;
    }
    const int number =
        selectHelpParameter(*constraint, geometry, index, "get the fix state of help parameter");
    if (number != 0) {
        out = number == 1 ? constraint->fixHelpParameter1() : constraint->fixHelpParameter2();
    }
    return number != 0;
}

bool VrexConstraintManager3D::getHelpParameterFixedState(const Constraint& constraint,
                                                         const Geometry& geometry, bool& out) const {
    return getHelpParameterFixedState(constraint, geometry, INVALID_PARAMETER_INDEX, out);
}

void VrexConstraintManager3D::removeFromReleatedDimension(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    // The caller's pointer may be the one in a dimension's list, which unbinding erases.
    const std::shared_ptr<VrexBaseGeometry> variable = geometry;
    std::vector<std::uint64_t> unbound;
    for (const auto& constraint : findRelatedConstraints(variable)) {
        const auto dimension = std::dynamic_pointer_cast<VrexDimension3D>(constraint);
        if (dimension != nullptr && dimension->getVariable() == variable) {
            dimension->bindVariable(nullptr);
            dimension->setDirty(true);
            unbound.push_back(dimension->getID());
        }
    }
    if (!unbound.empty()) {
        removeRelatedMap(variable, unbound);
    }
}

bool VrexConstraintManager3D::adjustHelpParameterRange(const VrexGeometry3D& geometry,
                                                       VrexVector2DT<double>& parameter) const {
    if (const auto* curve = dynamic_cast<const VrexParametricCurve3D*>(&geometry)) {
        if (!isRound(*curve)) {
            bringInto(curve->interval(), parameter.x());
        }
        return true;
    }
    if (const auto* surface = dynamic_cast<const VrexParametricSurface3D*>(&geometry)) {
        bringInto(surface->intervalU(), parameter.x());
        bringInto(surface->intervalV(), parameter.y());
        return true;
    }
    VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                "Constraint is not support help parameter.");
    return false;
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

bool VrexConstraintManager3D::checkConstraintSupportHelpParameter(const Constraint& constraint) const {
    if (!checkNotNull(constraint)) {
        return false;
    }
    const VrexConstraint& base = *constraint;
    if (!base.isHelpParameterSupported()) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                    "Constraint is not support help parameter.");
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

bool VrexConstraintManager3D::checkHelpParameterGeometry(const Geometry& geometry) const {
    if (geometry == nullptr) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::GEOMETRY_ID_INVALID,
                    "Failed to check helpParameter geometry, the geometry is invalid");
        return false;
    }
    if (VrexConstraint3D::notSupportFixHelpParameterType(geometry->type()) ||
        !(geometry->isParametricCurve() || geometry->isParametricSurface())) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_PARAMETER_NOT_SUPPORTED,
                    "Checking geometry failure, geometry not support help parameter, id : %lld.",
                    printedId(geometry));
        return false;
    }
    return true;
}

bool VrexConstraintManager3D::update(std::uint64_t id, const std::function<bool(VrexConstraint3D&)>& change) {
    const auto stored = std::dynamic_pointer_cast<VrexConstraint3D>(findData(id));
    if (stored == nullptr) {
        return refuseConstraintId(id);
    }
    const bool changed = change(*stored);
    if (changed) {
        stored->setDirty(true);
    }
    return changed;
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

bool VrexConstraintManager3D::addHelpParameter(VrexConstraint3D& constraint, const Geometry& geometry,
                                               std::uint64_t index,
                                               const VrexVector2DT<double>& parameter) const {
    const bool byGeometry = index == INVALID_PARAMETER_INDEX;
    const int number = byGeometry ? findPlace(constraint, geometry) : findHelpParameter(index);
    if (number == 0 && byGeometry) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to set help parameter,geometry is invalid,geometry id: %lld,constraint id : "
                    "%lld.",
                    printedId(geometry), printed(constraint.getID()));
        return false;
    }
    if (number == 0) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to set help parameter,index is invalid,index id: %lld,constraint id : %lld.",
                    printed(index), printed(constraint.getID()));
        return false;
    }
    number == 1 ? constraint.setHelpParam1(parameter) : constraint.setHelpParam2(parameter);
    return true;
}

int VrexConstraintManager3D::selectHelpParameter(const VrexConstraint3D& constraint, const Geometry& geometry,
                                                 std::uint64_t index, const char* purpose) const {
    const bool byGeometry = index == INVALID_PARAMETER_INDEX;
    const int number = byGeometry ? findPlace(constraint, geometry) : findHelpParameter(index);
    if (number == 0 && byGeometry) {
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to %s, constraint doesn't contained geometry, geometry id : %lld, constraint id "
                    ": %lld.",
                    purpose, printedId(geometry), printed(constraint.getID()));
    } else if (number == 0) {
        // Kept: the same text, whatever failed.
        VREX_REFUSE(m_logRecorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                    "Failed to get the fix state of help parameter, helpParameterIndex is wrong");
    }
    return number;
}

bool VrexConstraintManager3D::refuseFixedState(const VrexConstraint3D& constraint, int number) const {
    const auto& list = constraint.getGeometries();
    const auto place = static_cast<std::size_t>(number) - 1;
    VREX_REFUSE(m_logRecorder, VrexErrorCode::HELP_PARAMETER_FIXED_NOT_SUPPORTED,
                "Failed to set the fix state of help parameter, geometry not support, geometry id : %lld, "
                "constraint id : %lld.",
                place < list.size() ? printedId(list[place]) : 0, printed(constraint.getID()));
    return false;
}
