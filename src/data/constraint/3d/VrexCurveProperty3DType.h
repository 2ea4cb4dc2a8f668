#pragma once

#include <cstdint>

/// What two curves have in common where they meet. The order is not that of the constraint types of the same
/// names.
enum class VrexCurveProperty3DType : std::int32_t {
    EqualDirection3D = 0,
    EqualCurvature3D = 1,
    EqualFirstDerivative3D = 2,
    EqualSecondDerivative3D = 3,
    EqualCurvatureDerivative3D = 4,
};
