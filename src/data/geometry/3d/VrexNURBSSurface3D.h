#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// A rational tensor-product B-spline surface: kind `NURBS_SURFACE`, name prefix "nurbs", three degrees of
/// freedom a control point.
///
/// The control points are entities of their own, which constraints can bind; the parameter vector, three
/// slots a control point, is never read. Rows of the net run along u, columns along v, and all rows should be
/// as long as the first.
///
/// Degrees, knots and net are not checked against each other here: in each direction there should be as many
/// knots as points plus degree plus one, in rising order. A calculator throws where they do not fit.
///
/// Snapshots share the point objects: to undo a moved control point, snapshot the points too.
class VREX_DATA_EXPORT VrexNURBSSurface3D final : public VrexParametricSurface3D {
public:
    using ControlPoint = VrexSpline3D::ControlPoint;
    struct VrexNURBSOptions {
        int uDegree;
        int vDegree;
        std::vector<double> uKnots;
        std::vector<double> vKnots;
        std::vector<std::vector<ControlPoint>> controlPoints;
    };
    /// A surface without identifier; never null. Throws `std::length_error` for a net with more parameters
    /// than an index can name.
    [[nodiscard]] static std::shared_ptr<VrexNURBSSurface3D> create(const VrexNURBSOptions& options);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The points of the net, row by row; nulls are left out.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when, against the latest snapshot, a degree or a count changed, a knot by more than `tolerance`,
    /// a weight by more than 2.220446049250313e-16, or when a control point is another object or one whose
    /// change status is `Changed`. Positions are not compared: that is the points' own test. False without a
    /// snapshot. `second` has no meaning for a surface.
    bool checkChanged(double tolerance, double second) const override;
    /// From the knot at `uDegree` to the one as far from the end, unless trimmed; (0, 0) without knots.
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override;
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override; ///< As `intervalU`.

    int& uDegree() { return m_uDegree; }
    int uDegree() const { return m_uDegree; }
    int& vDegree() { return m_vDegree; }
    int vDegree() const { return m_vDegree; }
    std::vector<double>& uKnots() { return m_uKnots; }
    const std::vector<double>& uKnots() const { return m_uKnots; }
    std::vector<double>& vKnots() { return m_vKnots; }
    const std::vector<double>& vKnots() const { return m_vKnots; }
    std::vector<std::vector<ControlPoint>>& controlPoints() { return m_controlPoints; }
    const std::vector<std::vector<ControlPoint>>& controlPoints() const { return m_controlPoints; }

private:
    friend class VrexObjectAccess;

    explicit VrexNURBSSurface3D(const VrexNURBSOptions& options);
    VrexNURBSSurface3D(const VrexNURBSSurface3D&) = default;
    VrexNURBSSurface3D& operator=(VrexNURBSSurface3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the own control points, weights included.
    void doUpdateFrom(const VrexBaseObject& other) override;

    int m_uDegree;
    int m_vDegree;
    std::vector<double> m_uKnots;
    std::vector<double> m_vKnots;
    std::vector<std::vector<ControlPoint>> m_controlPoints;
};
