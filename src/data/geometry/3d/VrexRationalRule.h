#pragma once

#include <cstddef>

#include "data/geometry/3d/VrexBinomials.h"
#include "data/geometry/3d/VrexUnrolled.h"

namespace nsRational {

/// Hidden: from the derivatives A of the weighted curve and w of the weights, orders 0 to `order`, to those
/// of the curve, in their place: A[k] = (A[k] - sum over i of (k over i) w[i] A[k - i]) / w[0], i from 1 to
/// k.
///
/// `order` may be an integral constant. `subtract(k, j, factor)` takes factor A[j] off A[k], `divide(k,
/// divisor)` divides A[k].
template <typename Order, typename T, typename Subtract, typename Divide>
[[gnu::always_inline]] inline void applyRule(Order order, const T* w, const VrexBinomials& binomials,
                                             const Subtract& subtract, const Divide& divide) {
    divide(0, w[0]);
    nsUnrolled::repeat(order, [&](std::size_t previous) {
        const std::size_t k = previous + 1;
        for (std::size_t i = 1; i <= k; ++i) {
            subtract(k, k - i, binomials(k, i) * w[i]);
        }
        divide(k, w[0]);
    });
}

} // namespace nsRational
