#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"

class VrexBaseObject;
class VrexParametricCurve3D;

/// Evaluates one curve; each class of curves has its own calculator.
///
/// A calculator refers to its curve and must not outlive it; one that `create` made shares the ownership of a
/// curve that shared pointers hold. One thread at a time.
class VREX_DATA_EXPORT VrexParametricCurveCalculator3D {
public:
    /// The calculator of the curve's class, never null. Throws `std::runtime_error` for a class that has
    /// none.
    [[nodiscard]] static std::shared_ptr<VrexParametricCurveCalculator3D>
    create(const VrexParametricCurve3D& curve);

    /// The point at `t`, then its derivatives by t of orders 1 to `order`; nothing for a negative order.
    ///
    /// The shape is read from `parameters`, the slots of the curve in order, whatever the curve itself holds;
    /// what is no parameter still comes from the curve. Throws `std::invalid_argument` for too few
    /// parameters, and for an order above 100000.
    virtual std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                               const VrexVariable& t, int order) = 0;
    /// The same over plain numbers, with the shape that the curve has now.
    virtual std::vector<VrexVector3DT<double>> calculate(double t, int order) = 0;
    virtual ~VrexParametricCurveCalculator3D();

    /// Whether every parameter appears in every differentiable result, with a zero derivative where the
    /// formula does not touch it, so that the pattern of derivatives is stable; true at first. Only the
    /// classes whose formula can miss a parameter look at it.
    void setAddZeroDerivatives(bool add) { m_addZeroDerivatives = add; }

protected:
    VrexParametricCurveCalculator3D() = default;
    VrexParametricCurveCalculator3D(const VrexParametricCurveCalculator3D&) = default;
    VrexParametricCurveCalculator3D(VrexParametricCurveCalculator3D&&) = default;
    VrexParametricCurveCalculator3D& operator=(const VrexParametricCurveCalculator3D&) = default;
    VrexParametricCurveCalculator3D& operator=(VrexParametricCurveCalculator3D&&) = default;

    bool isAddZeroDerivatives() const { return m_addZeroDerivatives; }
    /// Adds a zero that depends on all `parameters` to each component.
    static void addZeroDerivatives(const std::vector<VrexVariable>& parameters,
                                   std::vector<VrexVector3DT<VrexVariable>>& result);

private:
    bool m_addZeroDerivatives = true;
    std::shared_ptr<const VrexBaseObject> m_owner; ///< Keeps the curve alive; null for a curve on the stack.
};
