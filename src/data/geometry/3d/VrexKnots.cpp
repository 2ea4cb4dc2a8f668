#include "data/geometry/3d/VrexKnots.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

namespace {

double knotOrZero(const std::vector<double>& knots, std::ptrdiff_t index) {
    const bool exists = index >= 0 && index < std::ssize(knots);
    return exists ? knots[static_cast<std::size_t>(index)] : 0.0;
}

} // namespace

std::pair<std::optional<double>, std::optional<double>> nsKnots::interval(const std::optional<double>& start,
                                                                          const std::optional<double>& end,
                                                                          const std::vector<double>& knots,
                                                                          int degree) {
    if (knots.empty()) {
        return {0.0, 0.0};
    }
    const std::ptrdiff_t p = degree;
    return nsInterval::trimmedRange(start, end, knotOrZero(knots, p),
                                    knotOrZero(knots, std::ssize(knots) - p - 1));
}

std::size_t nsKnots::requireSpans(const std::vector<double>& knots, int degree) {
    if (degree < 0 || knots.size() < 2 * static_cast<std::size_t>(degree) + 2) {
        VREX_RAISE(std::invalid_argument, "Broken internal state: the knots do not fit the degree.");
    }
    return static_cast<std::size_t>(degree);
}

std::size_t nsKnots::findSpan(const std::vector<double>& knots, std::size_t degree, double t) {
    const std::size_t m = knots.size() - degree - 1;
    if (!(t < knots[m])) { // so that a NaN ends here
        return m - 1;
    }
    t = std::max(t, knots[degree]);
    if (m + 1 < knots.size()) {
        t = std::min(t, knots[m + 1]);
    }
    std::size_t low = degree;
    std::size_t high = m;
    std::size_t middle = (low + high) / 2;
    while (knots[middle] > t || t >= knots[middle + 1]) {
        (knots[middle] > t ? high : low) = middle;
        const std::size_t next = (low + high) / 2;
        if (next == middle) {
            break;
        }
        middle = next;
    }
    return middle;
}

bool nsKnots::isChanged(const std::vector<double>& now, const std::vector<double>& before, double tolerance) {
    return !std::equal(now.begin(), now.end(), before.begin(), before.end(),
                       [tolerance](double a, double b) { return !(std::fabs(a - b) > tolerance); });
}
