#pragma once

#include <cstddef>
#include <vector>

#include "data/VrexVector3DT.h"

namespace nsCalculator {

/// Hidden: the derivatives of a sum of multiples of a cosine and a sine, from its value and its first
/// derivative, which are there: each further one is the opposite of the one two orders below.
template <typename T>
void fillByOpposites(std::vector<VrexVector3DT<T>>& derivatives) {
    for (std::size_t k = 2; k < derivatives.size(); ++k) {
        derivatives[k] = -derivatives[k - 2];
    }
}

} // namespace nsCalculator
