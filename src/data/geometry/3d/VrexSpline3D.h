#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"

class VrexPoint3D;

/// A rational B-spline curve: kind `SPLINE`, name prefix "s", three degrees of freedom a control point.
///
/// The control points are entities of their own, which constraints can bind; the parameter vector, two slots
/// a control point, is never read. A spline made by interpolation also keeps the points that it was fitted
/// through and their parameters.
///
/// Degree, knots and control points are not checked against each other here: there should be as many knots as
/// control points (`degree` more when the spline is periodic) plus degree plus one, in rising order. A
/// calculator throws where they do not fit.
///
/// Snapshots share the point objects: to undo a moved control point, snapshot the points too.
class VREX_DATA_EXPORT VrexSpline3D final : public VrexParametricCurve3D {
public:
    struct ControlPoint {
        std::shared_ptr<VrexPoint3D> point;
        double weight;
    };
    struct VrexSplineOptions {
        int degree;
        bool periodic;
        std::vector<double> knots;
        std::vector<ControlPoint> controlPoints;
    };
    /// A spline without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexSpline3D> create(const VrexSplineOptions& options);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The points of the control points, then the interpolated points; nulls are left out.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when, against the latest snapshot, the degree, the periodicity or a count changed, a knot by more
    /// than `tolerance`, a weight by more than 2.220446049250313e-13, or when a control point is another
    /// object or one whose change status is `Changed`. Positions are not compared: that is the points' own
    /// test. False without a snapshot. `second` has no meaning for a spline.
    bool checkChanged(double tolerance, double second) const override;
    /// From the knot at `degree` to the one as far from the end, unless trimmed; (0, 0) without knots.
    std::pair<std::optional<double>, std::optional<double>> interval() const override;

    int& degree() { return m_degree; }
    int degree() const { return m_degree; }
    bool& periodic() { return m_periodic; }
    bool periodic() const { return m_periodic; }
    std::vector<double>& knots() { return m_knots; }
    const std::vector<double>& knots() const { return m_knots; }
    std::vector<ControlPoint>& controlPoints() { return m_controlPoints; }
    const std::vector<ControlPoint>& controlPoints() const { return m_controlPoints; }

    /// The points that the curve was fitted through; none at first.
    const std::vector<std::shared_ptr<VrexPoint3D>>& getInterpolatedPoints() const {
        return m_interpolatedPoints;
    }
    void setInterpolatedPoints(std::vector<std::shared_ptr<VrexPoint3D>> points);
    /// The parameters of those points; none at first.
    const std::vector<double>& getInterpolatedParameters() const { return m_interpolatedParameters; }
    void setInterpolatedParameters(std::vector<double> parameters);

private:
    friend class VrexObjectAccess;

    explicit VrexSpline3D(const VrexSplineOptions& options);
    VrexSpline3D(const VrexSpline3D&) = default;
    VrexSpline3D& operator=(VrexSpline3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the own control points, weights included, and the own interpolated points.
    void doUpdateFrom(const VrexBaseObject& other) override;

    int m_degree;
    bool m_periodic;
    std::vector<double> m_knots;
    std::vector<ControlPoint> m_controlPoints;
    std::vector<std::shared_ptr<VrexPoint3D>> m_interpolatedPoints;
    std::vector<double> m_interpolatedParameters;
};
