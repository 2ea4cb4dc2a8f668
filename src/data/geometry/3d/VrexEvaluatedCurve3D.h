#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVar.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVariableDescriptorInterface.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/equation/VrexExpressionParser.h"
#include "data/geometry/3d/VrexEvaluatedShape3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"

/// A curve given by three expressions in its parameter t: kind `EVAL_CURVE`, name prefix "evac_3d", six
/// degrees of freedom.
///
/// The expressions may use parameters of other objects by the names of descriptors; the curve shares the
/// ownership of those objects. What they give is turned and moved by the curve's own frame: slots X, Y, Z
/// hold its origin, SCALAR, I, J, K its orientation, a unit quaternion. The range of t has no natural ends.
///
/// Evaluating assigns the expressions' variables: one thread at a time, also where only constants are at
/// hand.
class VREX_DATA_EXPORT VrexEvaluatedCurve3D final : public VrexParametricCurve3D,
                                                    public VrexVariableDescriptorInterface {
public:
    static constexpr int X = 0, Y = 1, Z = 2;
    static constexpr int SCALAR = 3, I = 4, J = 5, K = 6;
    static constexpr int PARAMETERS_AMOUNT = 7;
    /// A curve without identifier and expressions; never null. A `rotation` that `setRotation` refuses leaves
    /// the curve not turned.
    [[nodiscard]] static std::shared_ptr<VrexEvaluatedCurve3D>
    create(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation);
    /// The same with descriptors and expressions, of which any may turn out wrong: the log tells.
    [[nodiscard]] static std::shared_ptr<VrexEvaluatedCurve3D>
    create(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation,
           std::vector<VrexVariableDescriptor> descriptors, const std::string& x, const std::string& y,
           const std::string& z);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The entities that descriptors name, each once, in the order of first use.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// The free scalars that descriptors name, each once, in the order of first use.
    std::vector<std::shared_ptr<VrexGeometryVariable>> getVariables() const override;
    /// True when the origin or the direction left the latest snapshot's by `linear` or more in a component,
    /// or the angle of the rotation did by `angular` or more, so always for an `angular` of 0, or the axis
    /// did by `linear` or more where the angle is at least `angular`, or `checkShapeChanged(linear)` holds.
    /// False without a snapshot.
    bool checkChanged(double linear, double angular) const override;
    /// The trim as it stands: either end may be empty.
    std::pair<std::optional<double>, std::optional<double>> interval() const override;
    const std::vector<VrexVariableDescriptor>& descriptors() const override;
    /// Parses the expressions anew, so that they know the new names. Names of functions and constants of the
    /// language are taken; a descriptor of such a name is never found.
    void setDescriptors(std::vector<VrexVariableDescriptor> descriptors) override;

    /// Replaces descriptors and all three expressions, in this order. False at the first that is refused; the
    /// rest stays as it was, and the curve may not be evaluated.
    bool set(const std::string& x, const std::string& y, const std::string& z,
             std::vector<VrexVariableDescriptor> descriptors);
    /// False for a text that cannot be parsed or that names what is neither t nor a descriptor; the log says
    /// why.
    bool setX(const std::string& text);
    bool setY(const std::string& text);
    bool setZ(const std::string& text);
    const std::string& getX() const { return m_shape.getText(VrexEvaluatedShape3D::X); }
    const std::string& getY() const { return m_shape.getText(VrexEvaluatedShape3D::Y); }
    const std::string& getZ() const { return m_shape.getText(VrexEvaluatedShape3D::Z); }
    VrexExpressionParser& getXParser() const { return m_shape.getParser(VrexEvaluatedShape3D::X); }
    VrexExpressionParser& getYParser() const { return m_shape.getParser(VrexEvaluatedShape3D::Y); }
    VrexExpressionParser& getZParser() const { return m_shape.getParser(VrexEvaluatedShape3D::Z); }
    /// The variable t of the expressions; null before the first expression or list of descriptors. Each new
    /// list of descriptors brings another one: ask again.
    std::shared_ptr<VrexVar> getT() const;
    /// Whether a parameter named by a descriptor differs from its snapshot by more than `tolerance`.
    bool checkShapeChanged(double tolerance) const { return m_shape.isChanged(tolerance); }

    VrexVector3DT<double> getOrigin() const { return getVectorParameter(X); }
    void setOrigin(const VrexVector3DT<double>& origin);
    VrexQuaternionT<double> getRotation() const { return getRotationParameter(SCALAR); }
    /// False, and nothing stored, unless the norm of `rotation` is 1 within 1e-06.
    bool setRotation(const VrexQuaternionT<double>& rotation);
    /// False, and nothing stored, for an angle about an axis of 1e-06 or less.
    bool setRotation(double angle, const VrexVector3DT<double>& axis);
    double getAngle() const;                           ///< Of the rotation, in [0, 2 pi].
    VrexVector3DT<double> getDirection() const;        ///< The canonical direction, turned.
    static VrexVector3DT<double> canonicalDirection(); ///< The Z axis.

private:
    friend class VrexObjectAccess;

    VrexEvaluatedCurve3D(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation);
    VrexEvaluatedCurve3D(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation,
                         std::vector<VrexVariableDescriptor> descriptors, const std::string& x,
                         const std::string& y, const std::string& z);
    VrexEvaluatedCurve3D(const VrexEvaluatedCurve3D&) = default;
    VrexEvaluatedCurve3D& operator=(VrexEvaluatedCurve3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the descriptors: the expressions of `other` are bound to them.
    void doUpdateFrom(const VrexBaseObject& other) override;

    VrexEvaluatedShape3D m_shape;
};
