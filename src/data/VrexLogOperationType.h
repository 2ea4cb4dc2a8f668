#pragma once

#include <cstdint>

/// Operations that a calculation log records. The numbers are part of recorded logs.
enum class VrexLogOperationType : std::uint32_t {
    Negate = 0,
    CompoundAdd = 1,
    CompoundSubtract = 2,
    CompoundMultiply = 3,
    CompoundDivide = 4,
    Add = 5,
    Subtract = 6,
    Multiply = 7,
    Divide = 8,
    Abs = 9,
    Sign = 10,
    Sqrt = 11,
    Exp = 12,
    Log = 13,
    Pow = 14,
    Cos = 15,
    Sin = 16,
    Tan = 17,
    Acos = 18,
    Asin = 19,
    Atan = 20,
    Atan2 = 21,
    Cosh = 22,
    Sinh = 23,
    Tanh = 24,
    Square = 25,
    Hypot = 26, ///< Kept: recorded and counted, but has neither name nor priority.
    Hypot2 = 27,
    Frac = 28,
    Trunc = 29,
    Expm1 = 30,
    Log1p = 31,
    Ceil = 32,
    Floor = 33,
    Erf = 34,
    Erfc = 35, ///< Kept: as `Hypot`.
    Fmod = 36,
    Min = 37,
    Max = 38
};
