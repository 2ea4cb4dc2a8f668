#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexExpr.h"
#include "data/VrexVar.h"

/// Turns one line of expression text into a tree; docs/expressions.md describes the language.
///
/// The text is bytes: letters, digits and blanks are those of ASCII, numbers have a point in every locale,
/// and a zero byte is a character like others. There is no limit of depth or length. Names that are neither
/// function, constant nor parameter become new parameters of value 0, which the caller finds afterwards. One
/// thread at a time.
class VREX_DATA_EXPORT VrexExprParser {
public:
    using Parameters = std::map<std::string, std::shared_ptr<VrexVar>, std::less<>>;

    /// Without parameters.
    explicit VrexExprParser(const std::string& text);
    /// Of several variables with one name the first is taken. Null ones are passed over.
    VrexExprParser(const std::string& text, const std::vector<std::shared_ptr<VrexVar>>& vars);

    /// A new text, to be parsed from its start; both tables of parameters stay.
    void setString(const std::string& text);
    /// The root, or null after a failure. Starts where the last parsing ended.
    [[nodiscard]] std::shared_ptr<VrexExpr> parse();
    /// What was wrong, with the text and a "?" before the place in it; empty after a success.
    [[nodiscard]] const std::string& getError() const { return m_error; }
    /// Names met for the first time; after a failure those met until then. Kept: each further occurrence of
    /// such a name makes a further variable, which takes the name's place here, while the tree has them all.
    [[nodiscard]] const Parameters& getNewParameters() const { return m_newParameters; }

private:
    struct Frame;

    std::shared_ptr<VrexExpr> parseMain();
    // Each takes and gives the value read last, and is false where another expression must be read first.
    /// The first operand, with what stands before it.
    bool parseOperand(Frame& frame, std::shared_ptr<VrexExpr>& value);
    /// What follows the expression that the frame waited for.
    bool resume(Frame& frame, std::shared_ptr<VrexExpr>& value);
    bool resumeArguments(Frame& frame, std::shared_ptr<VrexExpr>& value);
    /// From an operand on: takes an operator of higher order than the frame's, or ends the expression.
    bool parseExp(Frame& frame, std::shared_ptr<VrexExpr>& value);
    /// Code of the sign.
    VrexExpr::Op parseUnary();
    /// The value, or null where a function begins, whose code is put into `function`.
    std::shared_ptr<VrexExpr> parseValue(VrexExpr::Op& function);
    [[nodiscard]] VrexExpr::Op checkOp();
    void skipOp(VrexExpr::Op op);
    bool parseAlphas(std::string_view& word);
    bool parseDigits(double& number);
    bool skipExponent();
    static VrexExpr::Op getFunction(std::string_view word);
    static const double* getConstant(std::string_view word);
    [[nodiscard]] std::shared_ptr<VrexVar> getParam(std::string_view word) const;
    void skip(char character);
    bool skipIf(char character);
    void skipSpaces();
    [[nodiscard]] bool hasNext(std::uint64_t n) const;
    [[nodiscard]] char next(std::uint64_t n) const;
    [[noreturn]] void error(const std::string& message);

    std::string m_text;
    std::uint64_t m_pos = 0; ///< The cursor in `m_text`.
    Parameters m_parameters;
    Parameters m_newParameters;
    std::string m_error;
};
