#include <string>
#include <string_view>
#include <vector>

#include "data/VrexExpr.h"
#include "data/VrexExprOpTable.h"
#include "tolvbase/TolvFormat.h"

namespace {

using nsExprOps::Brackets;
using nsExprOps::Form;
using nsExprOps::Row;

/// Writes nodes and pieces of text in reading order, so that nothing is copied twice.
class Printer {
public:
    std::string print(const VrexExpr& root, Brackets brackets) {
        write(root, brackets);
        while (!m_pending.empty()) {
            const Item item = m_pending.back();
            m_pending.pop_back();
            m_text += item.text;
            if (item.node != nullptr) {
                write(*item.node, item.brackets);
            }
        }
        return std::move(m_text);
    }

private:
    /// A text, or an operand.
    struct Item {
        const VrexExpr* node;
        Brackets brackets;
        std::string_view text;
    };

    static bool needsBrackets(const VrexExpr& node, Brackets brackets) {
        return (brackets == Brackets::IfAdditive && node.isAdditive()) ||
               (brackets == Brackets::UnlessUnary && !node.isUnary());
    }
    /// Writes how the node begins, and schedules its rest, last piece first.
    void write(const VrexExpr& node, Brackets brackets) {
        const bool isBracketed = needsBrackets(node, brackets);
        if (isBracketed) {
            m_text += '(';
            schedule(")");
        }
        const Row& row = nsExprOps::row(node.op);
        switch (row.form) {
        case Form::Nothing:
            break;
        case Form::Leaf:
            writeLeaf(node);
            break;
        case Form::Prefix:
            writePrefix(node, row);
            break;
        case Form::Infix:
            writeInfix(node, row);
            break;
        case Form::Function:
            writeFunction(node, row);
            break;
        }
    }
    void writeLeaf(const VrexExpr& node) {
        if (node.op == VrexExpr::Op::Var) {
            m_text += node.var != nullptr ? node.var->name : std::string();
        } else if (node.value == nsExprOps::PI.value) {
            m_text += nsExprOps::PI.text;
        } else if (node.value == nsExprOps::E.value) {
            m_text += nsExprOps::E.text;
        } else {
            m_text += VrexExpr::doubleToString(node.value);
        }
    }
    void writePrefix(const VrexExpr& node, const Row& row) {
        m_text += row.text;
        schedule(node.left, row.left);
    }
    void writeInfix(const VrexExpr& node, const Row& row) {
        schedule(node.right, row.right);
        schedule(row.text);
        schedule(node.left, row.left);
    }
    void writeFunction(const VrexExpr& node, const Row& row) {
        m_text += row.text;
        m_text += '(';
        schedule(")");
        if (row.operands > 2) {
            schedule(node.third, Brackets::Never);
            schedule(", ");
        }
        if (row.operands > 1) {
            schedule(node.right, Brackets::Never);
            schedule(", ");
        }
        schedule(node.left, Brackets::Never);
    }
    void schedule(std::string_view text) { m_pending.push_back({nullptr, Brackets::Never, text}); }
    void schedule(const std::shared_ptr<VrexExpr>& operand, Brackets brackets) {
        if (operand != nullptr) {
            m_pending.push_back({operand.get(), brackets, {}});
        }
    }

    std::string m_text;
    std::vector<Item> m_pending;
};

} // namespace

std::string VrexExpr::toString() const { return Printer().print(*this, Brackets::Never); }

std::string VrexExpr::quoted() const { return Printer().print(*this, Brackets::UnlessUnary); }

std::string VrexExpr::quotedAdd() const { return Printer().print(*this, Brackets::IfAdditive); }

std::string VrexExpr::doubleToString(double value) { return Tolv::formatString("%.16g", value); }
