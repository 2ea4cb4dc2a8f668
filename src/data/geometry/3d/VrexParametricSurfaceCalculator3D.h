#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexSurfaceSample.h"

class VrexBaseObject;
class VrexParametricSurface3D;

/// Evaluates one surface; each class of surfaces has its own calculator.
///
/// A calculator refers to its surface and must not outlive it; one that `create` made shares the ownership of
/// a surface that shared pointers hold. One thread at a time.
class VREX_DATA_EXPORT VrexParametricSurfaceCalculator3D {
public:
    /// The calculator of the surface's class, never null. Throws `std::runtime_error` for a class that has
    /// none.
    [[nodiscard]] static std::shared_ptr<VrexParametricSurfaceCalculator3D>
    create(const VrexParametricSurface3D& surface);

    /// The point at (u, v) and its partial derivatives up to `order`, at most 2, in each parameter; nothing
    /// is filled for a negative order.
    ///
    /// The shape is read from `parameters`, the slots of the surface in order, whatever the surface itself
    /// holds; what is no parameter still comes from the surface. Throws `std::invalid_argument` for too few
    /// parameters.
    virtual VrexSurfaceSample<VrexVector3DT<VrexVariable>>
    calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u, const VrexVariable& v,
              int order) = 0;
    /// The same over plain numbers, with the shape that the surface has now.
    virtual VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) = 0;
    /// dS/du x dS/dv, not normalised, unless the class says otherwise.
    virtual VrexVector3DT<VrexVariable> calculateNormal(const std::vector<VrexVariable>& parameters,
                                                        const VrexVariable& u, const VrexVariable& v);
    virtual VrexVector3DT<double> calculateNormal(double u, double v);
    virtual ~VrexParametricSurfaceCalculator3D();

    /// Whether every parameter appears in every differentiable result, with a zero derivative where the
    /// formula does not touch it, so that the pattern of derivatives is stable; true at first. Only the
    /// classes whose formula can miss a parameter look at it.
    void setAddZeroDerivatives(bool add) { m_addZeroDerivatives = add; }

protected:
    VrexParametricSurfaceCalculator3D() = default;
    VrexParametricSurfaceCalculator3D(const VrexParametricSurfaceCalculator3D&) = default;
    VrexParametricSurfaceCalculator3D(VrexParametricSurfaceCalculator3D&&) = default;
    VrexParametricSurfaceCalculator3D& operator=(const VrexParametricSurfaceCalculator3D&) = default;
    VrexParametricSurfaceCalculator3D& operator=(VrexParametricSurfaceCalculator3D&&) = default;

    bool isAddZeroDerivatives() const { return m_addZeroDerivatives; }
    /// Adds a zero that depends on all `parameters` to each component of all nine elements.
    static void addZeroDerivatives(const std::vector<VrexVariable>& parameters,
                                   VrexSurfaceSample<VrexVector3DT<VrexVariable>>& result);

private:
    bool m_addZeroDerivatives = true;
    std::shared_ptr<const VrexBaseObject> m_owner; ///< Keeps the surface alive; null for one on the stack.
};
