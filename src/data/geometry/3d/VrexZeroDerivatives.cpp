#include "data/geometry/3d/VrexZeroDerivatives.h"

#include <cstdint>

#include <boost/unordered/unordered_flat_set.hpp>

#include "data/base/VrexIDHash.h"

namespace {

using Entries = VrexVariable::Derivatives;
using Keys = boost::unordered_flat_set<std::uint64_t, VrexIDHash>;

/// Whether `entries` lack the key. `seen` keeps their keys once they are too many to be looked through; few
/// need no memory.
bool isNew(const Entries& entries, Keys& seen, std::uint64_t key) {
    if (entries.isInside()) {
        return entries.find(key) == entries.end();
    }
    if (seen.empty()) {
        for (const auto& entry : entries) {
            seen.insert(entry.key);
        }
    }
    return seen.insert(key).second;
}

void appendNew(const Entries& from, Entries& entries, Keys& seen) {
    for (const auto& entry : from) {
        if (isNew(entries, seen, entry.key)) {
            entries.append(entry.key, 0.0);
        }
    }
}

} // namespace

VrexVariable nsCalculator::makeZero(const std::vector<VrexVariable>& parameters) {
    VrexVariable zero;
    Entries& entries = zero.derivatives();
    Keys seen;
    for (const VrexVariable& parameter : parameters) {
        appendNew(parameter.derivatives(), entries, seen);
    }
    return zero;
}
