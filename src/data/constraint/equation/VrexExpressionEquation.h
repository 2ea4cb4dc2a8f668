#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexExpr.h"
#include "data/VrexVar.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/constraint/equation/VrexExpressionParser.h"

/// An equation whose function is a text over the names of its descriptors, such as "d1 - 2 * d2".
///
/// Evaluating writes variables of its own: equations may be evaluated in parallel, also a copy beside its
/// source, but one equation by one thread at a time. Text that is refused is told by the log at level 2.
class VREX_DATA_EXPORT VrexExpressionEquation final : public VrexBaseEquation {
public:
    /// Without descriptors and text; never null.
    [[nodiscard]] static std::shared_ptr<VrexExpressionEquation> create(VrexEquationConditionType type);
    /// Null when `setExpression` refuses the text; the empty one, too.
    [[nodiscard]] static std::shared_ptr<VrexExpressionEquation>
    create(std::vector<VrexVariableDescriptor> descriptors, VrexEquationConditionType type,
           const std::string& text);

    /// Parses the text anew; a copy of a text with unknown names logs them once more.
    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    /// Reads the parameters' present values, and parses the text anew over the new names. Text that no longer
    /// fits is told by the log alone.
    void setDescriptors(std::vector<VrexVariableDescriptor> descriptors) override;

    /// The last text that was set, a refused one included.
    const std::string& expression() const { return m_parser.getExpression(); }
    /// False for text that is no expression, names what no descriptor does, or names no variable at all.
    /// Kept: it is stored all the same, and evaluates as far as it is an expression; unknown names are 0.
    bool setExpression(const std::string& text);
    /// `VrexExpr::traverse` from the root; nothing without a tree.
    void traverse(const std::function<void(std::shared_ptr<VrexExpr>)>& visitor) const;

private:
    friend class VrexObjectAccess;

    explicit VrexExpressionEquation(VrexEquationConditionType type);
    /// With variables and tree of its own.
    VrexExpressionEquation(const VrexExpressionEquation& other);
    VrexExpressionEquation& operator=(VrexExpressionEquation&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Throws `std::runtime_error` without a tree, `std::out_of_range` for more arguments than descriptors;
    /// with fewer, the other variables keep what they have.
    VrexVariable evaluateInternal(const std::vector<VrexVariable>& args) override;
    void updateVariables();

    std::vector<std::shared_ptr<VrexVar>> m_variables; ///< One a descriptor.
    VrexExpressionParser m_parser;
};
