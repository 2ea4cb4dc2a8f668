#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/VrexExprProgram.h"

/// Hidden: which routines of a program have run, and where those under way go on afterwards.
class VrexExprCalls {
public:
    explicit VrexExprCalls(const VrexExprProgram& program)
        : m_program(program), m_isDone(program.routines.size()) {}

    void reset() {
        if (m_isDone.empty()) [[likely]] {
            return;
        }
        std::fill(m_isDone.begin(), m_isDone.end(), false);
        m_returns.clear();
    }
    /// The step after a `Call` that stands at `place`.
    std::int32_t call(std::int32_t routine, std::int32_t place) {
        if (m_isDone[static_cast<std::size_t>(routine)]) {
            return place + 1;
        }
        m_returns.push_back(place + 1);
        return m_program.routines[static_cast<std::size_t>(routine)];
    }
    /// The step after a `Return`.
    std::int32_t finish(std::int32_t routine) {
        m_isDone[static_cast<std::size_t>(routine)] = true;
        const std::int32_t next = m_returns.back();
        m_returns.pop_back();
        return next;
    }

private:
    const VrexExprProgram& m_program;
    std::vector<bool> m_isDone;
    std::vector<std::int32_t> m_returns;
};
