#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// The base of the curves in space, which map one parameter t to a point.
///
/// The entity is data; a calculator evaluates it. Its parameter range may be trimmed at either end.
class VREX_DATA_EXPORT VrexParametricCurve3D : public VrexGeometry3D {
public:
    void accept(VrexVisitor3D& visitor) override;
    bool isParametricCurve() const final;
    /// The range of t: the trimmed ends where they are set, else the natural ones of the class. An end is
    /// empty only where the class has none.
    virtual std::pair<std::optional<double>, std::optional<double>> interval() const = 0;

    std::optional<double>& start() { return m_start; }
    const std::optional<double>& start() const { return m_start; }
    std::optional<double>& end() { return m_end; }
    const std::optional<double>& end() const { return m_end; }

    /// The point at `t` and its derivatives by t up to `order`; nothing for a negative order. Makes a
    /// calculator and drops it: to sample a curve, hold a calculator or a cache.
    [[nodiscard]] std::vector<VrexVector3DT<double>> evaluate(double t, int order) const;
    /// The same over differentiable numbers. The shape is read from `parameters`, the entity's slots in
    /// order.
    [[nodiscard]] std::vector<VrexVector3DT<VrexVariable>>
    evaluate(const std::vector<VrexVariable>& parameters, const VrexVariable& t, int order) const;

protected:
    using VrexGeometry3D::VrexGeometry3D;

private:
    std::optional<double> m_start;
    std::optional<double> m_end;
};
