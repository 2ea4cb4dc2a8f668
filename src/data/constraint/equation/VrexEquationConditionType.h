#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"

/// What the residual of an equation has to be.
enum class VrexEquationConditionType : std::int32_t {
    unknown = -1,
    equalToZero = 0,
    lessThanZero = 1,
    lessEqualZero = 2,
    greaterThanZero = 3,
    greaterEqualZero = 4,
    dragTowardsZero = 5,
};

template <>
struct VrexEnumTable<VrexEquationConditionType> {
    static constexpr const char* NAME = "enum VrexEquationConditionType";
    static constexpr VrexEnumRow<VrexEquationConditionType> ROWS[] = {
        {VrexEquationConditionType::unknown, "unknown"},
        {VrexEquationConditionType::equalToZero, "equalToZero"},
        {VrexEquationConditionType::lessThanZero, "lessThanZero"},
        {VrexEquationConditionType::lessEqualZero, "lessEqualZero"},
        {VrexEquationConditionType::greaterThanZero, "greaterThanZero"},
        {VrexEquationConditionType::greaterEqualZero, "greaterEqualZero"},
        {VrexEquationConditionType::dragTowardsZero, "dragTowardsZero"},
    };
};
