#pragma once

#include <cstdint>
#include <vector>

#include "data/VrexExprCalls.h"
#include "data/VrexExprProgram.h"

/// Hidden: the registers of a program as doubles, and how its steps run on them.
class VrexExprDoubles {
public:
    /// The program must outlive this.
    explicit VrexExprDoubles(const VrexExprProgram& program);

    /// Takes the present values of the variables.
    void load();
    /// Runs the whole program with the present values of the variables, and gives its result.
    [[nodiscard]] double run() {
        load();
        run(0, m_program.mainEnd);
        return at(m_program.result);
    }
    /// Runs steps from `begin` until `end` is the next one.
    void run(std::int32_t begin, std::int32_t end);
    [[nodiscard]] double at(std::int32_t index) const { return m_registers[index]; }

private:
    using Step = VrexExprProgram::Step;

    struct Load {
        std::int32_t target;
        const VrexVar* variable;
    };

    /// Makes a value by a rule from the tables; gives its own place.
    std::int32_t compute(const Step& step, std::int32_t place);
    /// Does a step that may jump, and gives the next one.
    std::int32_t control(const Step& step, std::int32_t place);

    const VrexExprProgram& m_program;
    std::vector<double> m_values;
    double* m_registers; ///< Register 0 in `m_values`.
    std::vector<Load> m_loads;
    VrexExprCalls m_calls;
};
