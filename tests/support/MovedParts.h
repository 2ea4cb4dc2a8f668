#pragma once

#include <memory>
#include <set>

#include "data/VrexVisitor3D.h"
#include "support/Samples.h"

/// The entities that move when one is moved with all it is built on, by the plain recursion. No rings.
class MovedParts : public VrexVisitor3D {
public:
    explicit MovedParts(VrexGeometry3D& geometry) { geometry.accept(*this); }

    bool contains(const std::shared_ptr<VrexGeometry3D>& geometry) const {
        return m_all.contains(geometry.get());
    }

    void visitGeometry3D(VrexGeometry3D& geometry) override { m_all.insert(&geometry); }
    void visitPattern3D(VrexPattern3D&) override {}
    void visitArrayPattern3D(VrexArrayPattern3D&) override {}
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D&) override {}
    void visitConnector3D(VrexConnector3D& connector) override {
        if (connector.getRigidSet() == nullptr) {
            visitGeometry3D(connector);
        }
    }
    void visitRigidSet3D(VrexRigidSet3D& set) override {
        visitGeometry3D(set);
        for (const auto& member : set.geometries()) {
            acceptIfThere(member);
        }
    }
    void visitSpline3D(VrexSpline3D& spline) override {
        acceptRow(spline.controlPoints());
        for (const auto& point : spline.getInterpolatedPoints()) {
            acceptIfThere(point);
        }
    }
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override {
        for (const auto& row : surface.controlPoints()) {
            acceptRow(row);
        }
    }
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override {
        acceptIfThere(surface.getProfileCurve());
        acceptIfThere(surface.getAxisLine());
    }
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override {
        acceptIfThere(surface.getProfileCurve());
        acceptIfThere(surface.getTrajectoryLine());
    }

private:
    template <class Geometry>
    void acceptIfThere(const std::shared_ptr<Geometry>& geometry) {
        if (geometry != nullptr) {
            geometry->accept(*this);
        }
    }
    void acceptRow(const std::vector<VrexSpline3D::ControlPoint>& row) {
        for (const auto& controlPoint : row) {
            acceptIfThere(controlPoint.point);
        }
    }

    std::set<const VrexGeometry3D*> m_all;
};
