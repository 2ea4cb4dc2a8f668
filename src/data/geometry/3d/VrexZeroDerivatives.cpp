#include "data/geometry/3d/VrexZeroDerivatives.h"

#include <cstdint>

#include <boost/unordered/unordered_flat_set.hpp>

#include "data/base/VrexIDHash.h"

VrexVariable nsCalculator::makeZero(const std::vector<VrexVariable>& parameters) {
    VrexVariable zero;
    VrexVariable::Derivatives& entries = zero.derivatives();
    boost::unordered_flat_set<std::uint64_t, VrexIDHash> seen;
    for (const VrexVariable& parameter : parameters) {
        for (const auto& entry : parameter.derivatives()) {
            if (seen.insert(entry.key).second) {
                entries.append(entry.key, 0.0);
            }
        }
    }
    return zero;
}
