#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "support/Samples.h"

/// A curve of each class, and how many differentiable parameters its calculator reads.
inline std::vector<std::pair<std::shared_ptr<VrexParametricCurve3D>, std::size_t>> makeProfiles() {
    const auto point = makeSample<VrexPoint3D>();
    const auto evaluated = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE(),
                                                        {{point, 0, "a"}, {point, 1, "b"}}, "t", "a", "b");
    const auto spline = VrexSpline3D::create({1, false, {0.0, 0.0, 1.0, 1.0}, {{point, 1.0}, {point, 1.0}}});
    return {{makeSample<VrexCircle3D>(), 6},
            {makeSample<VrexEllipse3D>(), 9},
            {evaluated, 7 + 2},
            {spline, 3 * 2}};
}
