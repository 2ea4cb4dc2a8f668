#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexExpr.h"
#include "data/VrexExprProgram.h"

/// Hidden: turns a tree into a program, each node once. The program needs the tree's variables alive, and the
/// nodes no more.
class VrexExprCompiler {
public:
    /// Values that are taken for granted, by node.
    using Known = std::unordered_map<const VrexExpr*, double>;

    enum class Reading : std::uint8_t { Value, Condition };

    VrexExprCompiler() = default;
    explicit VrexExprCompiler(const Known& known) : m_known(&known) {}

    [[nodiscard]] VrexExprProgram compile(const VrexExpr& root, Reading reading);

private:
    using Code = VrexExprProgram::Code;
    using Op = VrexExpr::Op;

    /// A node whose operands are being compiled.
    struct Frame {
        const VrexExpr* node;
        Reading reading;
        std::uint8_t stage;
        std::int32_t depth;  ///< First pair of temporaries that is free.
        std::int32_t target; ///< Register of the result.
        std::int32_t first;  ///< Register of the first operand, or a step that waits for its aim.
    };
    struct Routine {
        const VrexExpr* node;
        Reading reading;
        std::int32_t target;
    };

    void compileNode(const VrexExpr& node, Reading reading, std::int32_t target);
    void compileRoutines();
    /// Makes the operand's register the result, now or after frames of its own.
    void enter(const std::shared_ptr<VrexExpr>& operand, Reading reading, std::int32_t depth,
               std::int32_t target);
    /// The same for an operand of the frame, which gets a register other than the frame's own.
    void enterOperand(const Frame& frame, const std::shared_ptr<VrexExpr>& operand, Reading reading,
                      std::int32_t depth);
    void open(const VrexExpr& node, Reading reading, std::int32_t depth, std::int32_t target);
    /// The register of a node that needs no steps; false for others.
    bool isSettled(const VrexExpr& node, Reading reading);
    void call(const VrexExpr& node, Reading reading);

    // Each does the next stage of a frame, and closes it with the last one.
    void advance(Frame& frame);
    void advanceCondition(Frame& frame);
    void advancePassing(Frame& frame);
    void advanceUnary(Frame& frame, Reading operands, Code code);
    void advanceBinary(Frame& frame, Reading operands, Code code);
    void advanceChoice(Frame& frame);
    void advanceShortCircuit(Frame& frame, Code jump, bool isSecondNegated);

    void close(std::int32_t result);
    void moveTo(std::int32_t target);
    std::int32_t emit(Code code, std::int32_t target, std::int32_t a, std::int32_t b);
    void aimHere(std::int32_t step);
    /// Register of one of the pair of temporaries at a depth.
    std::int32_t temporary(std::int32_t depth, bool isSecond);
    std::int32_t fixedRegister(const VrexExprProgram::Fixed& fixed);
    std::int32_t constant(double value);

    const Known* m_known = nullptr;
    VrexExprProgram m_program;
    std::vector<Frame> m_frames;
    std::int32_t m_result = 0;    ///< Register of what was compiled last.
    std::int32_t m_firstFree = 0; ///< First pair of the routine at hand.
    std::vector<Routine> m_routines;
    std::unordered_map<const VrexExpr*, std::int32_t> m_routineOf[2]; ///< By reading.
};
