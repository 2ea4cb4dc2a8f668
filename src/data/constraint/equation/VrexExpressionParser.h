#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexExpr.h"
#include "data/VrexVar.h"
#include "data/VrexVariable.h"

class VrexExprSteps;

/// An expression with its ordered list of variables, ready to be evaluated for given values.
///
/// Evaluating assigns the values to the variables, which it shares with copies and with the caller: one
/// thread at a time may use all that share one. The text is parsed once; derivatives are worked out anew at
/// each call. Text that cannot be parsed is told by the log at level 2, and by the result of `setExpression`.
///
/// Evaluations throw, after a line of level 1 and before any variable is assigned: `std::runtime_error`
/// when there is no tree, `std::out_of_range` when the count of values does not fit.
class VREX_DATA_EXPORT VrexExpressionParser {
public:
    /// Empty text, no tree, no variables.
    VrexExpressionParser();
    /// A copy shares tree and variables, until its own `setExpression`.
    VrexExpressionParser(const VrexExpressionParser& other);
    VrexExpressionParser(VrexExpressionParser&&) noexcept;
    VrexExpressionParser& operator=(const VrexExpressionParser& other);
    VrexExpressionParser& operator=(VrexExpressionParser&&) noexcept;
    ~VrexExpressionParser();

    /// Drops tree and variables and takes new ones. With `update` the text is parsed at once, and the result
    /// tells whether it is good and names no other variables; otherwise it is true, and parsing waits for the
    /// first evaluation. Kept: text with other variables leaves a tree in which those are 0; only the first
    /// parsing tells. Null variables keep their place in the list and are never assigned.
    bool setExpression(const std::vector<std::shared_ptr<VrexVar>>& vars, const std::string& text,
                       bool update);
    [[nodiscard]] const std::string& getExpression() const { return m_expression; }
    [[nodiscard]] const std::vector<std::shared_ptr<VrexVar>>& getVariables() const { return m_variables; }
    /// False without a tree.
    [[nodiscard]] bool isEquation() const;
    /// False without a tree.
    [[nodiscard]] bool isExpressionContainVars() const;

    /// `values[i]` becomes variable i, its derivatives and log erased. With fewer values than variables the
    /// others keep what they have; more do not fit.
    [[nodiscard]] double evaluate(const std::vector<double>& values);
    /// As `evaluate`, derivatives and log included.
    [[nodiscard]] VrexVariable evaluateVar(const std::vector<VrexVariable>& values);

    // Derivatives take at least as many values as there are variables. A variable that is null or not in the
    // tree (one of the same name is another) has the derivative 0.

    [[nodiscard]] double evaluateDeriv(const std::vector<double>& values, const std::shared_ptr<VrexVar>& var,
                                       std::uint64_t order);
    [[nodiscard]] VrexVariable evaluateDerivVar(const std::vector<VrexVariable>& values,
                                                const std::shared_ptr<VrexVar>& var, std::uint64_t order);
    /// By each variable in turn, `orders[i]` times by variable i; a missing or negative order counts as 0.
    [[nodiscard]] double evaluateDerivBySeveralVars(const std::vector<double>& values,
                                                    const std::vector<std::shared_ptr<VrexVar>>& vars,
                                                    const std::vector<int>& orders);
    [[nodiscard]] VrexVariable
    evaluateDerivVarBySeveralVars(const std::vector<VrexVariable>& values,
                                  const std::vector<std::shared_ptr<VrexVar>>& vars,
                                  const std::vector<int>& orders);
    /// `VrexExpr::traverse` from the root; nothing without a tree.
    void traverse(const std::function<void(std::shared_ptr<VrexExpr>)>& visitor) const;

private:
    bool updateExpression();
    void freeExpression();
    /// Parses if need be; throws without a tree.
    void requireTree();
    template <typename T>
    void assign(const std::vector<T>& values, std::size_t count);
    /// To the first variables; throws without changing one.
    template <typename T>
    void assignSome(const std::vector<T>& values);
    /// To all variables; throws without changing one.
    template <typename T>
    void assignAll(const std::vector<T>& values);
    VrexExprSteps& steps();

    std::string m_expression;
    std::shared_ptr<VrexExpr> m_root; ///< Null until parsed.
    std::vector<std::shared_ptr<VrexVar>> m_variables;
    bool m_isEvaluated = false;             ///< Once, without steps.
    std::unique_ptr<VrexExprSteps> m_steps; ///< The root made flat; null until needed, never shared.
};
