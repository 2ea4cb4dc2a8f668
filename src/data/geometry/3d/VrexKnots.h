#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

/// Hidden: what B-spline curves and surfaces do with a list of knots U, of degree p, in one parameter.
namespace nsKnots {

/// From U[p] to U[size - p - 1], each end trimmed where it is set; (0, 0) without any knot. A natural end
/// whose knot does not exist is 0.
std::pair<std::optional<double>, std::optional<double>> interval(const std::optional<double>& start,
                                                                 const std::optional<double>& end,
                                                                 const std::vector<double>& knots,
                                                                 int degree);

/// The degree, once it is known that there is a span to find: it is not negative, and 2 p + 2 knots or more
/// are there. Throws `std::invalid_argument` otherwise.
std::size_t requireSpans(const std::vector<double>& knots, int degree);

/// The index s, p <= s < size - p - 1, for which U[s] <= t < U[s + 1]. A t outside takes the first or the
/// last span, a NaN the last.
std::size_t findSpan(const std::vector<double>& knots, std::size_t degree, double t);

/// Whether a list of knots has another length than `before`, or a knot that is off by more than `tolerance`.
bool isChanged(const std::vector<double>& now, const std::vector<double>& before, double tolerance);

} // namespace nsKnots
