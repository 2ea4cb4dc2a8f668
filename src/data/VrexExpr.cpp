#include "data/VrexExpr.h"

#include <cassert>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/VrexDeferredRelease.h"
#include "data/VrexExprOpTable.h"

namespace {

/// What `make_shared` constructs, for which the constructors are out of reach.
class Node final : public VrexExpr {
public:
    template <typename... Arguments>
    explicit Node(Arguments&&... arguments) : VrexExpr(std::forward<Arguments>(arguments)...) {}
};

/// A node that no destructor at the end of the process takes from trees that live longer.
std::shared_ptr<VrexExpr>* makeLasting(double value) {
    return new std::shared_ptr<VrexExpr>(std::make_shared<Node>(value));
}

bool isLeaf(const VrexExpr& node) {
    return node.left == nullptr && node.right == nullptr && node.third == nullptr;
}

/// Gives up an operand, unless it is a leaf, which takes no further node with it.
void release(std::shared_ptr<VrexExpr>& operand) noexcept {
    if (operand != nullptr && !isLeaf(*operand)) {
        nsRelease::drop(std::move(operand));
    }
}

/// Walks over the nodes of a tree, each once.
class NodeWalk {
public:
    explicit NodeWalk(const VrexExpr& root) : m_pending{&root} {}

    /// The next node, null behind the last one.
    const VrexExpr* next() {
        if (m_pending.empty()) {
            return nullptr;
        }
        const VrexExpr* node = m_pending.back();
        m_pending.pop_back();
        push(node->left);
        push(node->right);
        push(node->third);
        return node;
    }

private:
    void push(const std::shared_ptr<VrexExpr>& operand) {
        if (operand != nullptr && (operand.use_count() == 1 || m_seen.insert(operand.get()).second)) {
            m_pending.push_back(operand.get());
        }
    }

    std::vector<const VrexExpr*> m_pending;
    std::unordered_set<const VrexExpr*> m_seen; ///< Of those that may be met again.
};

template <typename Predicate>
bool anyNode(const VrexExpr& root, const Predicate& isWanted) {
    NodeWalk walk(root);
    while (const VrexExpr* node = walk.next()) {
        if (isWanted(*node)) {
            return true;
        }
    }
    return false;
}

} // namespace

VrexExpr::VrexExpr(double constant) : op(Op::Const), value(constant) {}

VrexExpr::VrexExpr(std::shared_ptr<VrexVar> variable) : op(Op::Var), var(std::move(variable)) {}

VrexExpr::VrexExpr(Op operation, std::shared_ptr<VrexExpr> a, std::shared_ptr<VrexExpr> b,
                   std::shared_ptr<VrexExpr> c)
    : op(operation), left(std::move(a)), right(std::move(b)), third(std::move(c)) {}

VrexExpr::~VrexExpr() {
    release(left);
    release(right);
    release(third);
}

std::shared_ptr<VrexExpr> VrexExpr::create(double value) {
    if (value == 0.0) {
        return zero();
    }
    if (value == 1.0) {
        return one();
    }
    if (value == -1.0) {
        return mOne();
    }
    return value == 2.0 ? two() : std::make_shared<Node>(value);
}

std::shared_ptr<VrexExpr> VrexExpr::create(std::shared_ptr<VrexVar> variable) {
    return std::make_shared<Node>(std::move(variable));
}

std::shared_ptr<VrexExpr> VrexExpr::create(Op op, std::shared_ptr<VrexExpr> a, std::shared_ptr<VrexExpr> b,
                                           std::shared_ptr<VrexExpr> c) {
    [[maybe_unused]] const int operands = getArgumentsNumber(op);
    assert((operands < 1 || a != nullptr) && (operands < 2 || b != nullptr) &&
           (operands < 3 || c != nullptr));
    return std::make_shared<Node>(op, std::move(a), std::move(b), std::move(c));
}

const std::shared_ptr<VrexExpr>& VrexExpr::zero() {
    static const std::shared_ptr<VrexExpr>& node = *makeLasting(0.0);
    return node;
}

const std::shared_ptr<VrexExpr>& VrexExpr::one() {
    static const std::shared_ptr<VrexExpr>& node = *makeLasting(1.0);
    return node;
}

const std::shared_ptr<VrexExpr>& VrexExpr::two() {
    static const std::shared_ptr<VrexExpr>& node = *makeLasting(2.0);
    return node;
}

const std::shared_ptr<VrexExpr>& VrexExpr::mOne() {
    static const std::shared_ptr<VrexExpr>& node = *makeLasting(-1.0);
    return node;
}

int VrexExpr::getArgumentsNumber(Op op) { return nsExprOps::row(op).operands; }

int VrexExpr::orderOf(Op op) { return nsExprOps::row(op).order; }

bool VrexExpr::isEquation(Op op) { return nsExprOps::row(op).isEquation; }

bool VrexExpr::isAdditive() const { return nsExprOps::row(op).isAdditive; }

bool VrexExpr::isSubstitionForm() const {
    return op == Op::Sub && hasTwoOperands() && left->op == Op::Var && right->op == Op::Var;
}

bool VrexExpr::containVars() const {
    return anyNode(*this, [](const VrexExpr& node) { return node.op == Op::Var; });
}

bool VrexExpr::isDependOn(const std::shared_ptr<VrexVar>& variable) const {
    return variable != nullptr && anyNode(*this, [&variable](const VrexExpr& node) {
               return node.op == Op::Var && node.var == variable;
           });
}

void VrexExpr::traverse(const std::shared_ptr<VrexExpr>& node,
                        const std::function<void(std::shared_ptr<VrexExpr>)>& visitor) {
    std::vector<std::shared_ptr<VrexExpr>> pending{node};
    while (!pending.empty()) {
        const std::shared_ptr<VrexExpr> next = std::move(pending.back());
        pending.pop_back();
        if (next != nullptr) {
            visitor(next);
            pending.insert(pending.end(), {next->third, next->right, next->left});
        }
    }
}

std::shared_ptr<VrexExpr> VrexExpr::deriv(const std::shared_ptr<VrexVar>& variable) const {
    return d(variable);
}
