#include "data/constraint/equation/VrexExpressionParser.h"

#include <stdexcept>
#include <utility>

#include "data/VrexExprParser.h"
#include "data/VrexExprSteps.h"
#include "data/VrexLog.h"

namespace {

using Expr = std::shared_ptr<VrexExpr>;

/// Erases derivatives and log, which there seldom are.
inline void assignTo(VrexVariable& variable, double value) {
    if (variable.derivatives().empty() && !variable.hasLog()) [[likely]] {
        variable.setValue(value);
    } else {
        variable = VrexVariable(value);
    }
}

inline void assignTo(VrexVariable& variable, const VrexVariable& value) { variable = value; }

/// The derivative of an order, as far as it is not 0 before.
Expr derivative(Expr tree, const std::shared_ptr<VrexVar>& variable, std::uint64_t order) {
    for (; order > 0 && !tree->isZeroConst(); --order) {
        tree = tree->deriv(variable);
    }
    return tree;
}

Expr derivative(Expr tree, const std::vector<std::shared_ptr<VrexVar>>& variables,
                const std::vector<int>& orders) {
    for (std::size_t i = 0; i < variables.size() && i < orders.size(); ++i) {
        if (orders[i] > 0) {
            tree = derivative(std::move(tree), variables[i], static_cast<std::uint64_t>(orders[i]));
        }
    }
    return tree;
}

} // namespace

VrexExpressionParser::VrexExpressionParser() = default;

VrexExpressionParser::VrexExpressionParser(const VrexExpressionParser& other)
    : m_expression(other.m_expression), m_root(other.m_root), m_variables(other.m_variables) {}

VrexExpressionParser::VrexExpressionParser(VrexExpressionParser&&) noexcept = default;

VrexExpressionParser& VrexExpressionParser::operator=(const VrexExpressionParser& other) {
    if (this != &other) {
        *this = VrexExpressionParser(other);
    }
    return *this;
}

VrexExpressionParser& VrexExpressionParser::operator=(VrexExpressionParser&&) noexcept = default;

VrexExpressionParser::~VrexExpressionParser() = default;

bool VrexExpressionParser::setExpression(const std::vector<std::shared_ptr<VrexVar>>& vars,
                                         const std::string& text, bool update) {
    // Either may be a part of this object.
    std::vector<std::shared_ptr<VrexVar>> variables = vars;
    std::string expression = text;
    freeExpression();
    m_expression = std::move(expression);
    m_variables = std::move(variables);
    return !update || updateExpression();
}

bool VrexExpressionParser::updateExpression() {
    if (m_root != nullptr) {
        return true;
    }
    VrexExprParser parser(m_expression, m_variables);
    m_root = parser.parse();
    if (m_root == nullptr) {
        VREX_LOG(nsLog::REFUSAL, "Expression parse error: %s", parser.getError().c_str());
        return false;
    }
    // Kept: the tree stays, and the next call finds it.
    if (!parser.getNewParameters().empty()) {
        VREX_LOG(nsLog::REFUSAL, "Expression parse error: undefined parameter \"%s\"",
                 parser.getNewParameters().begin()->first.c_str());
        return false;
    }
    return true;
}

void VrexExpressionParser::freeExpression() {
    m_steps.reset();
    m_isEvaluated = false;
    m_root.reset();
    m_variables.clear();
}

bool VrexExpressionParser::isEquation() const { return m_root != nullptr && m_root->isEquation(); }

bool VrexExpressionParser::isExpressionContainVars() const {
    return m_root != nullptr && m_root->containVars();
}

void VrexExpressionParser::requireTree() {
    if (m_root == nullptr) {
        updateExpression();
    }
    if (m_root == nullptr) {
        VREX_RAISE(std::runtime_error, "The expression is not parsed.");
    }
}

template <typename T>
void VrexExpressionParser::assign(const std::vector<T>& values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (m_variables[i] != nullptr) {
            assignTo(*m_variables[i], values[i]);
        }
    }
}

template <typename T>
void VrexExpressionParser::assignSome(const std::vector<T>& values) {
    requireTree();
    if (values.size() > m_variables.size()) {
        VREX_RAISE(std::out_of_range, "There are more values than variables.");
    }
    assign(values, values.size());
}

template <typename T>
void VrexExpressionParser::assignAll(const std::vector<T>& values) {
    requireTree();
    if (values.size() < m_variables.size()) {
        VREX_RAISE(std::out_of_range, "There are fewer values than variables.");
    }
    assign(values, m_variables.size());
}

VrexExprSteps& VrexExpressionParser::steps() {
    if (m_steps == nullptr) {
        m_steps = std::make_unique<VrexExprSteps>(*m_root);
    }
    return *m_steps;
}

double VrexExpressionParser::evaluate(const std::vector<double>& values) {
    assignSome(values);
    if (m_steps != nullptr) [[likely]] {
        return m_steps->eval();
    }
    // Steps pay from the second evaluation on.
    return std::exchange(m_isEvaluated, true) ? steps().eval() : m_root->eval();
}

VrexVariable VrexExpressionParser::evaluateVar(const std::vector<VrexVariable>& values) {
    assignSome(values);
    return steps().evalVar();
}

double VrexExpressionParser::evaluateDeriv(const std::vector<double>& values,
                                           const std::shared_ptr<VrexVar>& var, std::uint64_t order) {
    assignAll(values);
    return derivative(m_root, var, order)->eval();
}

VrexVariable VrexExpressionParser::evaluateDerivVar(const std::vector<VrexVariable>& values,
                                                    const std::shared_ptr<VrexVar>& var,
                                                    std::uint64_t order) {
    assignAll(values);
    return derivative(m_root, var, order)->evalVar();
}

double VrexExpressionParser::evaluateDerivBySeveralVars(const std::vector<double>& values,
                                                        const std::vector<std::shared_ptr<VrexVar>>& vars,
                                                        const std::vector<int>& orders) {
    assignAll(values);
    return derivative(m_root, vars, orders)->eval();
}

VrexVariable
VrexExpressionParser::evaluateDerivVarBySeveralVars(const std::vector<VrexVariable>& values,
                                                    const std::vector<std::shared_ptr<VrexVar>>& vars,
                                                    const std::vector<int>& orders) {
    assignAll(values);
    return derivative(m_root, vars, orders)->evalVar();
}

void VrexExpressionParser::traverse(const std::function<void(std::shared_ptr<VrexExpr>)>& visitor) const {
    VrexExpr::traverse(m_root, visitor);
}
