#pragma once

#include <cstddef>
#include <vector>

#include "data/VrexVector3DT.h"

/// Hidden: the derivatives of a curve of cosines and sines.
namespace nsCalculator {

/// The derivative of order `order` of a sum of multiples of a cosine and a sine, of which `even` is
/// the sum itself and `odd` its first derivative; the second is -even, the third -odd, and so on.
template <typename T>
VrexVector3DT<T> turned(const VrexVector3DT<T>& even, const VrexVector3DT<T>& odd, int order) {
    const VrexVector3DT<T>& derivative = order % 2 == 0 ? even : odd;
    return order % 4 < 2 ? derivative : -derivative;
}

/// That sum and its derivatives of orders 1 to `order`, which is not negative.
template <typename T>
std::vector<VrexVector3DT<T>> alternate(const VrexVector3DT<T>& even, const VrexVector3DT<T>& odd,
                                        int order) {
    std::vector<VrexVector3DT<T>> result;
    result.reserve(static_cast<std::size_t>(order) + 1);
    for (int k = 0; k <= order; ++k) {
        result.push_back(turned(even, odd, k));
    }
    return result;
}

} // namespace nsCalculator
