#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExprParser.h"
#include "support/Expressions.h"
#include "support/NaiveExpression.h"
#include "support/RandomTurns.h"

using namespace nsExpressions;

// The parser against a second one, on texts that chance writes.

namespace {

constexpr int TEXTS = randomTurns(50000); ///< Of each kind.

class RandomText {
public:
    explicit RandomText(unsigned seed) : m_random(seed) {}

    /// What the grammar allows, blanks included, and now and then a slip.
    std::string ofGrammar() {
        m_budget = 1 + static_cast<int>(below(24));
        return expression();
    }
    /// Pieces of the language and bytes of any kind in any order.
    std::string ofPieces() {
        static const std::vector<std::string> pieces{
            "a",  "b", "t",  "u", "sin", "if",   "atan2", "pow", "ln", "(", ")", ",",
            "+",  "-", "*",  "/", "<",   ">",    "=",     "<=",  "~",  " ", "1", "2.5",
            "1e", "e", "pi", ".", "e+3", "sin(", "_",     "0",   "\t", "$", "?", "1e+"};
        std::string text;
        for (std::size_t i = 0, count = below(14); i < count; ++i) {
            if (below(12) == 0) {
                text += static_cast<char>(below(256));
            } else {
                text += pieces[below(pieces.size())];
            }
        }
        return text;
    }

private:
    std::size_t below(std::size_t count) { return m_random() % count; }
    std::string pick(const std::vector<std::string>& list) { return list[below(list.size())]; }
    std::string blanks() { return below(4) == 0 ? pick({" ", "  ", "\t", "\n"}) : ""; }

    std::string expression() {
        std::string text = operand();
        while (m_budget > 0 && below(5) < 3) {
            --m_budget;
            text += blanks() +
                    pick({"+", "-", "*", "/", "<", ">", "=", "~", "+", "*", below(20) == 0 ? "<=" : "-"});
            text += operand();
        }
        return text + blanks();
    }
    std::string operand() {
        const std::string sign = below(5) == 0 ? pick({"-", "+"}) : "";
        const std::string front = blanks() + sign;
        if (--m_budget > 0 && below(3) == 0) {
            return front + "(" + expression() + (below(60) == 0 ? "" : ")");
        }
        if (m_budget > 0 && below(3) == 0) {
            return front + function();
        }
        return front + (below(5) == 0 ? blanks() : "") + atom();
    }
    std::string function() {
        static const std::vector<std::string> one{"sin",  "cos", "sqr", "square", "sqrt", "abs",  "sign",
                                                  "norm", "exp", "ln",  "log",    "tan",  "ceil", "log1p"};
        const std::size_t arguments = below(50) == 0 ? below(5) + 1 : 0;
        std::string name = pick(one);
        std::size_t count = 1;
        if (below(4) == 0) {
            name = pick({"atan2", "pow", "hypot", "mod"});
            count = 2;
        } else if (below(6) == 0) {
            name = "if";
            count = 3;
        }
        std::string text = name + blanks() + "(";
        for (std::size_t i = 0, all = arguments != 0 ? arguments : count; i < all; ++i) {
            text.append(i > 0 ? "," : "").append(expression());
        }
        return text + ")";
    }
    std::string atom() {
        return pick(
            {"a", "b", "t", "x1", "_y", "pi", "e", "1", "2.5", "0.125", "3e2", "7e-3", "1.5.2", "12."});
    }

    std::mt19937 m_random;
    int m_budget = 0;
};

void expectSame(const std::string& text, const Vars& vars, const std::set<std::string>& names, int& good) {
    VrexExprParser parser(text, vars);
    const Expr root = parser.parse();
    NaiveExpression naive(text, names);
    const auto expected = naive.parse();
    ASSERT_EQ(root != nullptr, expected.has_value()) << text;
    if (root != nullptr) {
        ++good;
        ASSERT_EQ(shapeOf(*root), shapeOf(*expected)) << text;
        std::set<std::string> added;
        for (const auto& [name, variable] : parser.getNewParameters()) {
            added.insert(name);
        }
        ASSERT_EQ(added, naive.newNames) << text;
    }
    ASSERT_EQ(parser.getError(), naive.error) << text;
}

} // namespace

TEST(VrexExprParserRandom, TextsOfTheGrammarGiveTheSameTreeOrMessage) {
    const Vars vars = someVars();
    RandomText random(1);
    int good = 0;
    for (int i = 0; i < TEXTS; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectSame(random.ofGrammar(), vars, {"a", "b", "t"}, good));
    }
    EXPECT_GT(good, TEXTS / 2);
    EXPECT_LT(good, TEXTS);
}

TEST(VrexExprParserRandom, PiecesInAnyOrderGiveTheSameTreeOrMessage) {
    const Vars vars = someVars();
    RandomText random(2);
    int good = 0;
    for (int i = 0; i < TEXTS; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectSame(random.ofPieces(), vars, {"a", "b", "t"}, good));
    }
    EXPECT_GT(good, TEXTS / 200);
}
