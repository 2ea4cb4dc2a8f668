#include "solver/contacts/VrexContactSigns.h"

namespace {

using Kind = VrexSolverCore::Kind;

bool hasSides(const VrexSolverCore& core) { return core.kind() == Kind::PLANE || core.kind() == Kind::CONE; }

/// A sphere and a torus hold nothing that is endless.
bool canHold(const VrexSolverCore& outer, const VrexSolverCore& inner) {
    const bool isEndless = inner.kind() == Kind::LINE || inner.kind() == Kind::CONE;
    return outer.hasOffset() && (!isEndless || outer.kind() == Kind::LINE);
}

} // namespace

std::vector<VrexContactSigns> VrexContactSigns::candidates(const VrexSolverCore& first,
                                                           const VrexSolverCore& second,
                                                           VrexConstraintOrientation orientation) {
    std::vector<VrexContactSigns> inside;
    if (hasSides(second)) {
        inside.push_back({-1.0, -1.0, -1.0, false});
    } else {
        if (canHold(first, second)) {
            inside.push_back({-1.0, 1.0, -1.0, second.kind() == Kind::CIRCLE});
        }
        if (canHold(second, first)) {
            inside.push_back({-1.0, -1.0, 1.0, false});
        }
    }
    std::vector<VrexContactSigns> result;
    if (orientation != VrexConstraintOrientation::Negative || inside.empty()) {
        result.push_back({});
    }
    if (orientation != VrexConstraintOrientation::Positive) {
        result.insert(result.end(), inside.begin(), inside.end());
    }
    return result;
}

std::vector<VrexContactSigns> VrexContactSigns::touches(const VrexSolverCore& first,
                                                        const VrexSolverCore& second,
                                                        VrexConstraintOrientation orientation) {
    std::vector<VrexContactSigns> result = candidates(first, second, orientation);
    if (second.kind() == Kind::CIRCLE) {
        const std::size_t count = result.size();
        for (std::size_t i = 0; i < count; ++i) {
            VrexContactSigns other = result[i];
            other.isOpposite = !other.isOpposite;
            result.push_back(other);
        }
    }
    return result;
}
