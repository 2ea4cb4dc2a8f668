#include "data/VrexExprParser.h"

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>
#include <utility>

#include "data/VrexExprNumberText.h"
#include "data/VrexExprOpTable.h"

namespace {

using Op = VrexExpr::Op;

struct Word {
    std::string_view text;
    Op op;
};

/// Further names of functions.
constexpr std::array ALIASES{Word{"log", Op::Log}, Word{"square", Op::Sqr}};

/// The operators of the language, in the order in which the parser tries them. Kept: the first that fits is
/// taken, so "<=" and ">=" are never read.
constexpr std::array OPERATORS{
    Word{"*", Op::Mul},           Word{"+", Op::Add},        Word{"-", Op::Sub},   Word{"/", Op::Div},
    Word{"<", Op::Less},          Word{"<=", Op::LessEqual}, Word{"=", Op::Equal}, Word{">", Op::Greater},
    Word{">=", Op::GreaterEqual}, Word{"~", Op::Drag},
};

// Classes of bytes, the same in every locale.

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isDelimiter(char c) { return c == '.'; }
bool isEnd(char c) { return c == ')' || c == ','; }

constexpr std::size_t countFunctions() {
    std::size_t count = ALIASES.size();
    for (const nsExprOps::Row& row : nsExprOps::ROWS) {
        count += row.form == nsExprOps::Form::Function ? 1 : 0;
    }
    return count;
}

/// The names of functions, sorted.
constexpr auto FUNCTIONS = [] {
    std::array<Word, countFunctions()> words{};
    auto next = std::copy(ALIASES.begin(), ALIASES.end(), words.begin());
    for (const nsExprOps::Row& row : nsExprOps::ROWS) {
        if (row.form == nsExprOps::Form::Function) {
            *next++ = {row.text, row.op};
        }
    }
    std::sort(words.begin(), words.end(), [](const Word& a, const Word& b) { return a.text < b.text; });
    return words;
}();
static_assert(FUNCTIONS.size() == 30);

constexpr int MOST_ARGUMENTS = 3;

/// Levels of nesting for which there is room from the start.
constexpr std::size_t USUAL_DEPTH = 8;

} // namespace

/// While its operand is read, an expression waits in a frame instead of on the stack: nesting has no limit.
struct VrexExprParser::Frame {
    enum class Wait : std::uint8_t { Operand, Bracket, Argument, RightSide };

    Wait wait = Wait::Operand;
    std::uint8_t minOrder = 0;
    std::uint8_t count = 0; ///< Arguments read.
    Op op = Op::None;       ///< The function whose arguments are read, then the operator between both sides.
    Op sign = Op::None;     ///< Before the first operand.
    std::shared_ptr<VrexExpr> first;  ///< Left side, or first argument.
    std::shared_ptr<VrexExpr> second; ///< Second argument.
};

VrexExprParser::VrexExprParser(const std::string& text) : m_text(text) {}

VrexExprParser::VrexExprParser(const std::string& text, const std::vector<std::shared_ptr<VrexVar>>& vars)
    : m_text(text) {
    for (const auto& variable : vars) {
        if (variable != nullptr) {
            m_parameters.emplace(variable->name, variable);
        }
    }
}

void VrexExprParser::setString(const std::string& text) {
    m_text = text;
    m_pos = 0;
    m_error.clear();
}

std::shared_ptr<VrexExpr> VrexExprParser::parse() {
    m_error.clear();
    try {
        std::shared_ptr<VrexExpr> root = parseMain();
        if (hasNext(1)) {
            error("unexpected token");
        }
        return root;
    } catch (const std::exception& failure) {
        if (m_error.empty()) {
            m_error = failure.what();
        }
        return nullptr;
    }
}

std::shared_ptr<VrexExpr> VrexExprParser::parseMain() {
    std::vector<Frame> frames;
    frames.reserve(USUAL_DEPTH);
    frames.emplace_back();
    std::shared_ptr<VrexExpr> value;
    while (!frames.empty()) {
        Frame& frame = frames.back();
        bool isRead = frame.wait == Frame::Wait::Operand ? parseOperand(frame, value) : resume(frame, value);
        if (isRead && parseExp(frame, value)) {
            frames.pop_back();
        } else {
            Frame inner;
            inner.minOrder = frame.wait == Frame::Wait::RightSide
                                 ? static_cast<std::uint8_t>(VrexExpr::orderOf(frame.op))
                                 : 0;
            frames.push_back(std::move(inner));
        }
    }
    return value;
}

bool VrexExprParser::parseOperand(Frame& frame, std::shared_ptr<VrexExpr>& value) {
    frame.sign = parseUnary();
    if (skipIf('(')) {
        frame.wait = Frame::Wait::Bracket;
        return false;
    }
    value = parseValue(frame.op);
    if (value == nullptr) {
        frame.wait = Frame::Wait::Argument;
        return false;
    }
    return true;
}

bool VrexExprParser::resume(Frame& frame, std::shared_ptr<VrexExpr>& value) {
    switch (frame.wait) {
    case Frame::Wait::Bracket:
        skip(')');
        return true;
    case Frame::Wait::Argument:
        return resumeArguments(frame, value);
    default:
        value = VrexExpr::create(frame.op, std::move(frame.first), std::move(value));
        return true;
    }
}

bool VrexExprParser::resumeArguments(Frame& frame, std::shared_ptr<VrexExpr>& value) {
    ++frame.count;
    if (frame.count < MOST_ARGUMENTS && skipIf(',')) {
        (frame.count == 1 ? frame.first : frame.second) = std::move(value);
        return false;
    }
    skip(')');
    if (VrexExpr::getArgumentsNumber(frame.op) != frame.count) {
        error("function argument expected");
    }
    std::array<std::shared_ptr<VrexExpr>, MOST_ARGUMENTS> arguments{std::move(frame.first),
                                                                    std::move(frame.second), nullptr};
    arguments[frame.count - 1] = std::move(value);
    value =
        VrexExpr::create(frame.op, std::move(arguments[0]), std::move(arguments[1]), std::move(arguments[2]));
    return true;
}

bool VrexExprParser::parseExp(Frame& frame, std::shared_ptr<VrexExpr>& value) {
    if (frame.wait != Frame::Wait::RightSide && frame.sign != Op::None) {
        value = VrexExpr::create(frame.sign, std::move(value), nullptr);
    }
    skipSpaces();
    if (!hasNext(1) || isEnd(next(1))) {
        return true;
    }
    const Op op = checkOp();
    if (op == Op::None) {
        error("operator expected");
    }
    if (VrexExpr::orderOf(op) <= frame.minOrder) {
        return true;
    }
    skipOp(op);
    frame.wait = Frame::Wait::RightSide;
    frame.op = op;
    frame.first = std::move(value);
    return false;
}

Op VrexExprParser::parseUnary() {
    skipSpaces();
    if (skipIf('+')) {
        return Op::Plus;
    }
    return skipIf('-') ? Op::Neg : Op::None;
}

std::shared_ptr<VrexExpr> VrexExprParser::parseValue(Op& function) {
    skipSpaces();
    double number = 0.0;
    if (parseDigits(number)) {
        return VrexExpr::create(number);
    }
    std::string_view word;
    if (!parseAlphas(word)) {
        error("valid operand expected");
    }
    function = getFunction(word);
    if (function != Op::None) {
        skipSpaces();
        if (!skipIf('(')) {
            error("function arguments expected");
        }
        return nullptr;
    }
    // Constants hide parameters of their names.
    if (const double* constant = getConstant(word)) {
        return VrexExpr::create(*constant);
    }
    if (auto parameter = getParam(word)) {
        return VrexExpr::create(std::move(parameter));
    }
    auto variable = VrexVar::create(std::string(word), 0.0);
    m_newParameters.insert_or_assign(variable->name, variable);
    return VrexExpr::create(std::move(variable));
}

Op VrexExprParser::checkOp() {
    skipSpaces();
    const std::string_view rest = std::string_view(m_text).substr(m_pos);
    for (const Word& word : OPERATORS) {
        if (!rest.empty() && rest.front() == word.text.front() && rest.starts_with(word.text)) {
            return word.op;
        }
    }
    return Op::None;
}

void VrexExprParser::skipOp(Op op) {
    const auto word = std::find_if(OPERATORS.begin(), OPERATORS.end(),
                                   [op](const Word& candidate) { return candidate.op == op; });
    m_pos += word->text.size();
}

bool VrexExprParser::parseAlphas(std::string_view& word) {
    if (!hasNext(1)) {
        error("operand expected");
    }
    if (!isAlpha(next(1))) {
        return false;
    }
    const std::uint64_t begin = m_pos;
    while (hasNext(1) && (isAlpha(next(1)) || isDigit(next(1)))) {
        ++m_pos;
    }
    word = std::string_view(m_text).substr(begin, m_pos - begin);
    return true;
}

bool VrexExprParser::parseDigits(double& number) {
    if (!hasNext(1)) {
        error("operand expected");
    }
    if (!isDigit(next(1))) {
        return false;
    }
    const std::uint64_t begin = m_pos;
    bool hasExponent = false;
    // Kept: points are taken wherever they stand; the value ends before the second one.
    while (hasNext(1)) {
        if (isDigit(next(1)) || isDelimiter(next(1))) {
            ++m_pos;
        } else if (!hasExponent && skipExponent()) {
            hasExponent = true;
        } else {
            break;
        }
    }
    number = nsExprNumberText::read(std::string_view(m_text).substr(begin, m_pos - begin));
    return true;
}

bool VrexExprParser::skipExponent() {
    if (next(1) != 'e' || !hasNext(2)) {
        return false;
    }
    const bool isSign = next(2) == '+' || next(2) == '-';
    // Kept: a sign counts unless it is the last character of the text.
    if (isDigit(next(2)) || (isSign && hasNext(3))) {
        m_pos += 2;
        return true;
    }
    return false;
}

Op VrexExprParser::getFunction(std::string_view word) {
    const auto first =
        std::lower_bound(FUNCTIONS.begin(), FUNCTIONS.end(), word.front(),
                         [](const Word& row, char letter) { return row.text.front() < letter; });
    for (auto row = first; row != FUNCTIONS.end() && row->text.front() == word.front(); ++row) {
        if (row->text == word) {
            return row->op;
        }
    }
    return Op::None;
}

const double* VrexExprParser::getConstant(std::string_view word) {
    for (const nsExprOps::Constant* constant : {&nsExprOps::PI, &nsExprOps::E}) {
        if (constant->text == word) {
            return &constant->value;
        }
    }
    return nullptr;
}

std::shared_ptr<VrexVar> VrexExprParser::getParam(std::string_view word) const {
    const auto found = m_parameters.find(word);
    return found != m_parameters.end() ? found->second : nullptr;
}

void VrexExprParser::skip(char character) {
    if (!skipIf(character)) {
        error(std::string("\"") + character + "\" expected!");
    }
}

bool VrexExprParser::skipIf(char character) {
    if (!hasNext(1) || next(1) != character) {
        return false;
    }
    ++m_pos;
    return true;
}

void VrexExprParser::skipSpaces() {
    while (hasNext(1) && isSpace(next(1))) {
        ++m_pos;
    }
}

bool VrexExprParser::hasNext(std::uint64_t n) const { return m_pos + n - 1 < m_text.size(); }

char VrexExprParser::next(std::uint64_t n) const { return m_text[m_pos + n - 1]; }

void VrexExprParser::error(const std::string& message) {
    m_error = message + " (error in \"";
    m_error.append(m_text, 0, m_pos);
    if (m_pos < m_text.size()) {
        m_error += '?';
        m_error.append(m_text, m_pos, std::string::npos);
    }
    m_error += "\")";
    // The message stays behind as it is, zero bytes included, which an exception would cut.
    throw std::runtime_error(message);
}
