#pragma once

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexTransformation3DT.h"
#include "data/VrexVisitor3D.h"

class VrexBaseObject;
class VrexGeometry3D;

/// Applies a rigid motion to the entities that it visits, in place and with what they are built on: members
/// of sets, control and interpolated points, profiles and lines.
///
/// Each entity is moved once, however many ways lead to it. It is remembered by its address, so a visitor
/// serves one motion of a system and goes before any of its entities does. Radii, angles and ranges stay as
/// they are, and so do patterns and shared values. Dirty flags and statuses are left alone.
///
/// A class that is none of these throws `std::runtime_error` "VrexGeometryTransformation3DVisitor : Not
/// implemented"; of a set, the members before it have moved by then.
class VREX_DATA_EXPORT VrexGeometryTransformation3DVisitor : public VrexVisitor3D {
public:
    /// With `skipRigidSetChildren` a set moves without its members.
    VrexGeometryTransformation3DVisitor(const VrexTransformation3DT<double>& transformation,
                                        bool skipRigidSetChildren);
    VrexGeometryTransformation3DVisitor(const VrexGeometryTransformation3DVisitor&) = default;
    VrexGeometryTransformation3DVisitor(VrexGeometryTransformation3DVisitor&&) = default;
    VrexGeometryTransformation3DVisitor& operator=(const VrexGeometryTransformation3DVisitor&) = default;
    VrexGeometryTransformation3DVisitor& operator=(VrexGeometryTransformation3DVisitor&&) = default;
    ~VrexGeometryTransformation3DVisitor() override;

    void visitBaseObject(VrexBaseObject& object) override;
    void visitCylinder3D(VrexCylinder3D& cylinder) override;
    void visitSphere3D(VrexSphere3D& sphere) override;
    void visitPoint3D(VrexPoint3D& point) override;
    void visitLine3D(VrexLine3D& line) override;
    void visitPlane3D(VrexPlane3D& plane) override;
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override;
    void visitCircle3D(VrexCircle3D& circle) override;
    void visitEllipse3D(VrexEllipse3D& ellipse) override;
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override;
    void visitPattern3D(VrexPattern3D& pattern) override;
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override;
    void visitRigidSet3D(VrexRigidSet3D& set) override;
    /// A connector with an owner moves with the owner and is left alone.
    void visitConnector3D(VrexConnector3D& connector) override;
    void visitSpline3D(VrexSpline3D& spline) override;
    void visitCone3D(VrexCone3D& cone) override;
    void visitTorus3D(VrexTorus3D& torus) override;
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override;
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override;
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override;
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override;

    /// Leaves these where they are when they are visited later; nulls are passed over.
    void markGeometriesVisited(const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries);

    VrexVector3DT<double> rotateVector(const VrexVector3DT<double>& v) const;
    VrexVector3DT<double> translateVector(const VrexVector3DT<double>& v) const;

private:
    /// A set whose members from `next` on are still to be visited.
    struct OpenSet {
        VrexRigidSet3D* set;
        std::size_t next;
    };

    bool isVisited(const VrexBaseObject& object);
    VrexVector3DT<double> movePosition(const VrexVector3DT<double>& position) const;
    template <class Geometry>
    void moveOriginAndDirection(Geometry& geometry);
    template <class Geometry>
    void moveCenterAndNormal(Geometry& geometry);
    /// False where the turned rotation cannot be stored: a position never moves without its rotation.
    template <class Geometry>
    bool turn(Geometry& geometry) const;
    template <class Geometry>
    void moveOriginAndRotation(Geometry& geometry) const;
    void visitOpenSets();
    void visitNextMember();

    VrexTransformation3DT<double> m_transformation;
    std::unordered_set<const VrexBaseObject*> m_visited;
    bool m_skipRigidSetChildren;
    std::vector<OpenSet> m_openSets;
};
