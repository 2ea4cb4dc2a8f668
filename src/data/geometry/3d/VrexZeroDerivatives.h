#pragma once

#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"

/// Hidden: what both families of calculators share.
namespace nsCalculator {

/// A zero whose derivatives by all that `parameters` depend on are zero, keys in the order of first use.
///
/// Equal, for finite numbers, to the product of zero and all parameters, in linear time; and a parameter that
/// is not finite spoils nothing.
VrexVariable makeZero(const std::vector<VrexVariable>& parameters);

/// Adds that zero to each component of each vector.
template <class Vectors>
void addZeroDerivatives(const std::vector<VrexVariable>& parameters, Vectors& vectors) {
    const VrexVariable zero = makeZero(parameters);
    for (VrexVector3DT<VrexVariable>& vector : vectors) {
        vector.x() += zero;
        vector.y() += zero;
        vector.z() += zero;
    }
}

} // namespace nsCalculator
