#pragma once

#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexExpr.h"

/// The expression language a second time, by recursion over short texts, to compare the parser with.
class NaiveExpression {
public:
    struct Node {
        int code;
        double value = 0.0;
        std::string name;
        std::vector<Node> operands;
    };

    NaiveExpression(std::string text, std::set<std::string> known)
        : m_text(std::move(text)), m_known(std::move(known)) {}

    /// The root, or nothing, with `error` set.
    std::optional<Node> parse() {
        try {
            Node root = readAll();
            if (m_at < m_text.size()) {
                fail("unexpected token");
            }
            return root;
        } catch (const Failure& failure) {
            error = failure.text;
            return std::nullopt;
        }
    }

    std::string error;
    std::set<std::string> newNames;

private:
    struct Failure {
        std::string text;
    };

    static const std::map<std::string, int>& functions() {
        static const std::map<std::string, int> codes{
            {"sin", 13},   {"cos", 12},   {"atan2", 16}, {"sqr", 9},    {"square", 9}, {"sqrt", 10},
            {"abs", 11},   {"sign", 28},  {"norm", 29},  {"acos", 14},  {"asin", 15},  {"exp", 19},
            {"sinh", 18},  {"cosh", 17},  {"sfres", 20}, {"cfres", 21}, {"if", 27},    {"tanh", 32},
            {"ceil", 33},  {"floor", 34}, {"pow", 35},   {"tan", 36},   {"atan", 37},  {"expm1", 38},
            {"hypot", 39}, {"ln", 40},    {"log", 40},   {"log10", 41}, {"log1p", 42}, {"mod", 43},
        };
        return codes;
    }
    static const std::map<std::string, int>& operators() {
        static const std::map<std::string, int> codes{{"+", 5},  {"-", 6},  {"=", 26}, {">=", 25}, {"<=", 24},
                                                      {">", 22}, {"<", 23}, {"~", 30}, {"*", 7},   {"/", 8}};
        return codes;
    }
    static int orderOf(int code) { return code >= 22 ? 1 : code <= 6 ? 2 : 3; }
    static int argumentsOf(int code) {
        static const std::map<int, int> counts{{16, 2}, {27, 3}, {35, 2}, {39, 2}, {43, 2}};
        const auto found = counts.find(code);
        return found != counts.end() ? found->second : 1;
    }

    [[noreturn]] void fail(const std::string& message) const {
        std::string marked = m_text;
        if (m_at < marked.size()) {
            marked.insert(m_at, "?");
        }
        throw Failure{message + " (error in \"" + marked + "\")"};
    }
    int peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? static_cast<unsigned char>(m_text[m_at + ahead]) : -1;
    }
    static bool isDigit(int c) { return c >= '0' && c <= '9'; }
    static bool isLetter(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
    void skipBlanks() {
        while (peek() != -1 && peek() != 0 &&
               std::string(" \t\n\v\f\r").find(static_cast<char>(peek())) != std::string::npos) {
            ++m_at;
        }
    }
    bool accept(char c) {
        if (peek() != static_cast<unsigned char>(c)) {
            return false;
        }
        ++m_at;
        return true;
    }
    void expect(char c) {
        if (!accept(c)) {
            fail(std::string("\"") + c + "\" expected!");
        }
    }
    /// The first operator in the order of their texts that stands at the cursor.
    std::pair<std::string, int> findOperator() {
        skipBlanks();
        for (const auto& [text, code] : operators()) {
            if (m_text.compare(m_at, text.size(), text) == 0) {
                return {text, code};
            }
        }
        fail("operator expected");
    }

    Node readAll() {
        Node left = readExpression(0);
        while (peek() != -1 && peek() != ')' && peek() != ',') {
            const auto [text, code] = findOperator();
            m_at += text.size();
            left = Node{code, 0.0, "", {left, readExpression(orderOf(code))}};
        }
        return left;
    }
    Node readExpression(int leastOrder) {
        skipBlanks();
        const int sign = peek() == '+' ? 4 : peek() == '-' ? 3 : 0;
        m_at += sign != 0 ? 1 : 0;
        Node left = readOperand();
        if (sign != 0) {
            left = Node{sign, 0.0, "", {left}};
        }
        skipBlanks();
        while (peek() != -1 && peek() != ')' && peek() != ',') {
            const auto [text, code] = findOperator();
            if (orderOf(code) <= leastOrder) {
                break;
            }
            m_at += text.size();
            left = Node{code, 0.0, "", {left, readExpression(orderOf(code))}};
            skipBlanks();
        }
        return left;
    }
    Node readOperand() {
        if (accept('(')) {
            Node inner = readAll();
            expect(')');
            return inner;
        }
        skipBlanks();
        if (peek() == -1) {
            fail("operand expected");
        }
        if (isDigit(peek())) {
            return readNumber();
        }
        if (!isLetter(peek())) {
            fail("valid operand expected");
        }
        std::string word;
        while (isLetter(peek()) || isDigit(peek())) {
            word += static_cast<char>(peek());
            ++m_at;
        }
        return functions().count(word) != 0 ? readFunction(functions().at(word)) : readName(word);
    }
    Node readNumber() {
        std::string digits;
        bool hasExponent = false;
        while (true) {
            if (isDigit(peek()) || peek() == '.') {
                digits += static_cast<char>(peek());
                ++m_at;
            } else if (peek() == 'e' && !hasExponent && beginsExponent()) {
                hasExponent = true;
                digits += m_text.substr(m_at, 2);
                m_at += 2;
            } else {
                return Node{1, std::strtod(digits.c_str(), nullptr), "", {}};
            }
        }
    }
    bool beginsExponent() const {
        const bool isSign = peek(1) == '+' || peek(1) == '-';
        return isDigit(peek(1)) || (isSign && peek(2) != -1);
    }
    Node readFunction(int code) {
        skipBlanks();
        if (!accept('(')) {
            fail("function arguments expected");
        }
        Node call{code, 0.0, "", {}};
        do {
            call.operands.push_back(readAll());
        } while (call.operands.size() < 3 && accept(','));
        expect(')');
        if (static_cast<int>(call.operands.size()) != argumentsOf(code)) {
            fail("function argument expected");
        }
        return call;
    }
    Node readName(const std::string& word) {
        if (word == "pi" || word == "e") {
            return Node{1, word == "pi" ? 3.141592653589793 : 2.718281828459045, "", {}};
        }
        if (m_known.count(word) == 0) {
            newNames.insert(word);
        }
        return Node{2, 0.0, word, {}};
    }

    std::string m_text;
    std::set<std::string> m_known;
    std::size_t m_at = 0;
};

/// A tree as nested brackets with codes, names, and numbers to the last bit, for both kinds of node.
inline void writeShape(const NaiveExpression::Node& node, std::string& shape) {
    char number[64];
    std::snprintf(number, sizeof number, "%a", node.value);
    shape += '(' + std::to_string(node.code) + ' ' + (node.code == 1 ? number : node.name);
    for (const NaiveExpression::Node& operand : node.operands) {
        writeShape(operand, shape);
    }
    shape += ')';
}

inline void writeShape(const VrexExpr& node, std::string& shape) {
    char number[64];
    std::snprintf(number, sizeof number, "%a", node.value);
    shape += '(' + std::to_string(static_cast<int>(node.op)) + ' ';
    shape += node.op == VrexExpr::Op::Const ? number : node.var != nullptr ? node.var->name : "";
    for (const auto& operand : {node.left, node.right, node.third}) {
        if (operand != nullptr) {
            writeShape(*operand, shape);
        }
    }
    shape += ')';
}

template <typename Node>
std::string shapeOf(const Node& node) {
    std::string shape;
    writeShape(node, shape);
    return shape;
}
