#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexSurfaceSample.h"

/// The base of the surfaces in space, which map two parameters u, v to a point.
///
/// The entity is data; a calculator evaluates it. Its parameter ranges may be trimmed at each end.
class VREX_DATA_EXPORT VrexParametricSurface3D : public VrexGeometry3D {
public:
    void accept(VrexVisitor3D& visitor) override;
    bool isParametricSurface() const final;
    /// The range of u: the trimmed ends where they are set, else the natural ones of the class. An end is
    /// empty where the class has none.
    virtual std::pair<std::optional<double>, std::optional<double>> intervalU() const = 0;
    /// The range of v, in the same way.
    virtual std::pair<std::optional<double>, std::optional<double>> intervalV() const = 0;

    std::optional<double>& startU() { return m_startU; }
    const std::optional<double>& startU() const { return m_startU; }
    std::optional<double>& endU() { return m_endU; }
    const std::optional<double>& endU() const { return m_endU; }
    std::optional<double>& startV() { return m_startV; }
    const std::optional<double>& startV() const { return m_startV; }
    std::optional<double>& endV() { return m_endV; }
    const std::optional<double>& endV() const { return m_endV; }

    /// The point at (u, v) and its partial derivatives up to `order`, at most 2, in each parameter; all zero
    /// for a negative order. Makes a calculator and drops it: to sample a surface, hold a calculator or a
    /// cache.
    [[nodiscard]] VrexSurfaceSample<VrexVector3DT<double>> evaluate(double u, double v, int order) const;
    /// The same over differentiable numbers. The shape is read from `parameters`, the entity's slots in
    /// order. `u` and `v` are copies, so that a class which reduces its parameter leaves the caller's alone.
    [[nodiscard]] VrexSurfaceSample<VrexVector3DT<VrexVariable>>
    evaluate(const std::vector<VrexVariable>& parameters, VrexVariable u, VrexVariable v, int order) const;

protected:
    using VrexGeometry3D::VrexGeometry3D;

private:
    std::optional<double> m_startU;
    std::optional<double> m_endU;
    std::optional<double> m_startV;
    std::optional<double> m_endV;
};
