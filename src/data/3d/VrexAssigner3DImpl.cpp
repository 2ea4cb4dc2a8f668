#include "data/3d/VrexAssigner3DImpl.h"

#include <cstddef>
#include <stdexcept>
#include <vector>

#include "data/3d/VrexUnitRotation.h"
#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Row = std::vector<VrexSpline3D::ControlPoint>;
using Net = std::vector<Row>;

void requireAsMany(std::size_t sourceCount, std::size_t targetCount) {
    if (sourceCount < targetCount) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::VECTOR_SUBSCRIPT);
    }
}

void requireAsMany(const Net& source, const Net& target) {
    requireAsMany(source.size(), target.size());
    for (std::size_t i = 0; i < target.size(); ++i) {
        requireAsMany(source[i].size(), target[i].size());
    }
}

/// By place; a missing point gives and takes nothing.
void assignRow(const Row& source, Row& target) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (source[i].point != nullptr && target[i].point != nullptr) {
            const auto position = source[i].point->getPosition();
            target[i].point->assign(position.x(), position.y(), position.z());
        }
        target[i].weight = source[i].weight;
    }
}

} // namespace

void VrexAssigner3DImpl::fail() { VREX_RAISE(std::runtime_error, "VrexAssigner3DImpl : Not implemented"); }

template <class Object>
Object& VrexAssigner3DImpl::targetAs() const {
    auto* const target = dynamic_cast<Object*>(m_target);
    if (target == nullptr) { // of the kind, but of another class
        fail();
    }
    return *target;
}

template <class Object, class Copy>
void VrexAssigner3DImpl::assign(const Object& source, Copy copy) {
    auto& target = targetAs<Object>();
    copy(target);
    target.status() = source.status();
}

template <class Object>
void VrexAssigner3DImpl::assignStatus(const Object& source) {
    assign(source, [](Object&) {});
}

template <class Mate>
void VrexAssigner3DImpl::assignDimensions(const Mate& source) {
    auto& target = targetAs<Mate>();
    for (int i = 0; i < Mate::DIMENSIONS_AMOUNT; ++i) {
        target.getDimension(i) = source.getDimension(i);
    }
}

void VrexAssigner3DImpl::visitBaseObject(VrexBaseObject&) { fail(); }

void VrexAssigner3DImpl::visitGeometryVariable(VrexGeometryVariable& source) {
    assign(source, [&source](VrexGeometryVariable& target) { target.setValue(source.getValue()); });
}

void VrexAssigner3DImpl::visitPoint3D(VrexPoint3D& source) {
    assign(source, [position = source.getPosition()](VrexPoint3D& target) {
        target.assign(position.x(), position.y(), position.z());
    });
}

void VrexAssigner3DImpl::visitLine3D(VrexLine3D& source) {
    assign(source, [&source](VrexLine3D& target) {
        target.setOrigin(source.getOrigin());
        target.setDirection(source.getDirection());
    });
}

void VrexAssigner3DImpl::visitPlane3D(VrexPlane3D& source) {
    assign(source, [&source](VrexPlane3D& target) {
        target.setOrigin(source.getOrigin());
        target.setNormal(source.getNormal());
    });
}

void VrexAssigner3DImpl::visitCircle3D(VrexCircle3D& source) {
    assign(source, [&source](VrexCircle3D& target) {
        target.setCenter(source.getCenter());
        target.setNormal(source.getNormal());
        target.setRadius(source.getRadius());
    });
}

void VrexAssigner3DImpl::visitSphere3D(VrexSphere3D& source) {
    assign(source, [&source](VrexSphere3D& target) {
        target.setCenter(source.getCenter());
        target.setRadius(source.getRadius());
    });
}

void VrexAssigner3DImpl::visitCylinder3D(VrexCylinder3D& source) {
    assign(source, [&source](VrexCylinder3D& target) {
        target.setOrigin(source.getOrigin());
        target.setDirection(source.getDirection());
        target.setRadius(source.getRadius());
    });
}

void VrexAssigner3DImpl::visitCone3D(VrexCone3D& source) {
    assign(source, [&source](VrexCone3D& target) {
        target.setOrigin(source.getOrigin());
        target.setDirection(source.getDirection());
        target.setAperture(source.getAperture());
    });
}

void VrexAssigner3DImpl::visitTorus3D(VrexTorus3D& source) {
    assign(source, [&source](VrexTorus3D& target) {
        target.setCenter(source.getCenter());
        target.setNormal(source.getNormal());
        target.setMajorRadius(source.getMajorRadius());
        target.setMinorRadius(source.getMinorRadius());
    });
}

void VrexAssigner3DImpl::visitEllipse3D(VrexEllipse3D& source) {
    assign(source, [&source](VrexEllipse3D& target) {
        target.setCenter(source.getCenter());
        // Kept: the center stays taken over where the rotation fails.
        if (!target.setRotation(source.getDirection(), source.getNormal())) {
            VREX_RAISE(std::runtime_error,
                       "VrexAssigner3DImpl : Ellipse normal and direction are not perpendicular");
        }
        target.setMajorRadius(source.getMajorRadius());
        target.setMinorRadius(source.getMinorRadius());
    });
}

void VrexAssigner3DImpl::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& source) {
    assign(source, [&source](VrexEvaluatedCurve3D& target) {
        target.setOrigin(source.getOrigin());
        nsUnitRotation::store(target, source.getRotation());
        // A text may name what only the new descriptors know: they parse it again.
        target.setX(source.getX());
        target.setY(source.getY());
        target.setZ(source.getZ());
        target.setDescriptors(source.descriptors());
    });
}

void VrexAssigner3DImpl::visitNURBSSurface3D(VrexNURBSSurface3D& source) {
    assign(source, [&net = source.controlPoints()](VrexNURBSSurface3D& target) {
        Net& targetNet = target.controlPoints();
        requireAsMany(net, targetNet);
        for (std::size_t i = 0; i < targetNet.size(); ++i) {
            assignRow(net[i], targetNet[i]);
        }
    });
}

void VrexAssigner3DImpl::visitSpline3D(VrexSpline3D& source) {
    assign(source, [&row = source.controlPoints()](VrexSpline3D& target) {
        requireAsMany(row.size(), target.controlPoints().size());
        assignRow(row, target.controlPoints());
    });
}

void VrexAssigner3DImpl::visitRigidSet3D(VrexRigidSet3D& source) {
    assign(source, [&source](VrexRigidSet3D& target) {
        target.setOrigin(source.getOrigin());
        nsUnitRotation::store(target, source.getRotation());
    });
}

void VrexAssigner3DImpl::visitConnector3D(VrexConnector3D& source) {
    assign(source,
           [&source](VrexConnector3D& target) { target.setTransformation(source.getTransformation()); });
}

void VrexAssigner3DImpl::visitPattern3D(VrexPattern3D& source) {
    assign(source, [&source](VrexPattern3D& target) { target.setValue(source.getValue()); });
}

void VrexAssigner3DImpl::visitArrayPattern3D(VrexArrayPattern3D& source) { assignStatus(source); }

void VrexAssigner3DImpl::visitSpinSurface3D(VrexSpinSurface3D& source) { assignStatus(source); }

void VrexAssigner3DImpl::visitSweepSurface3D(VrexSweepSurface3D& source) { assignStatus(source); }

void VrexAssigner3DImpl::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& source) {
    assignStatus(source);
}

void VrexAssigner3DImpl::visitFastenedMate3D(VrexFastenedMate3D& source) { assignStatus(source); }

void VrexAssigner3DImpl::visitConstraint3D(VrexConstraint3D& source) {
    assign(source, [&source](VrexConstraint3D& target) {
        target.m_geomComponents = source.m_geomComponents;
        target.helpPoint1() = source.helpPoint1();
        target.helpPoint2() = source.helpPoint2();
        target.helpParam1() = source.helpParam1();
        target.helpParam2() = source.helpParam2();
        // An equal flag needs no setter, which would log where there is no second geometry.
        if (target.fixHelpParameter1() != source.fixHelpParameter1()) {
            target.fixHelpParameter1(source.fixHelpParameter1());
        }
        if (target.fixHelpParameter2() != source.fixHelpParameter2()) {
            target.fixHelpParameter2(source.fixHelpParameter2());
        }
        target.satisfiedStatus() = source.satisfiedStatus();
    });
}

void VrexAssigner3DImpl::visitSliderMate3D(VrexSliderMate3D& source) { assignDimensions(source); }

void VrexAssigner3DImpl::visitRevoluteMate3D(VrexRevoluteMate3D& source) { assignDimensions(source); }

void VrexAssigner3DImpl::visitBallMate3D(VrexBallMate3D& source) { assignDimensions(source); }

void VrexAssigner3DImpl::visitCylinderMate3D(VrexCylinderMate3D& source) { assignDimensions(source); }

void VrexAssigner3DImpl::visitPlanarMate3D(VrexPlanarMate3D& source) { assignDimensions(source); }

void VrexAssigner3DImpl::visitParallelMate3D(VrexParallelMate3D& source) { assignDimensions(source); }
