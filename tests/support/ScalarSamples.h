#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariable.h"

/// Stores and values for tests of the differentiable scalar, and an independent view of a store.
namespace nsScalarSamples {

/// Keys and values in order, without any of the store's own look-up.
using Entries = std::vector<std::pair<std::uint64_t, double>>;

inline double valueOf(const Entries& entries, std::uint64_t key) {
    for (const auto& [k, v] : entries) {
        if (k == key) {
            return v;
        }
    }
    return 0.0;
}

inline bool hasKey(const Entries& entries, std::uint64_t key) {
    for (const auto& entry : entries) {
        if (entry.first == key) {
            return true;
        }
    }
    return false;
}

inline Entries entriesOf(const VrexVariable& variable) {
    Entries entries;
    for (const auto& entry : variable.derivatives()) {
        entries.emplace_back(entry.key, entry.value);
    }
    return entries;
}

inline VrexVariable make(double value, const Entries& entries) {
    VrexVariable variable(value);
    for (const auto& [key, entry] : entries) {
        variable.derivatives().append(key, entry);
    }
    return variable;
}

/// All NaNs count as the same; their bits depend on the order of the operands of commutative instructions.
inline bool sameBits(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

inline ::testing::AssertionResult sameResult(const VrexVariable& result, double value,
                                             const Entries& expected) {
    if (!sameBits(result.value(), value)) {
        return ::testing::AssertionFailure() << "value " << result.value() << " instead of " << value;
    }
    const Entries entries = entriesOf(result);
    if (entries.size() != expected.size()) {
        return ::testing::AssertionFailure() << entries.size() << " entries instead of " << expected.size();
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].first != expected[i].first || !sameBits(entries[i].second, expected[i].second)) {
            return ::testing::AssertionFailure()
                   << "entry " << i << " is (" << entries[i].first << ", " << entries[i].second
                   << ") instead of (" << expected[i].first << ", " << expected[i].second << ")";
        }
    }
    return ::testing::AssertionSuccess();
}

inline const std::vector<double>& values() {
    static const std::vector<double> list{0.0,  -0.0, std::numeric_limits<double>::quiet_NaN(),
                                          0.75, -2.5, std::numeric_limits<double>::infinity(),
                                          3.0,  0.3,  -std::numeric_limits<double>::infinity()};
    return list;
}

/// Each value with each.
inline const std::vector<std::pair<double, double>>& valuePairs() {
    static const std::vector<std::pair<double, double>> list = [] {
        std::vector<std::pair<double, double>> pairs;
        for (const double a : values()) {
            for (const double b : values()) {
                pairs.emplace_back(a, b);
            }
        }
        return pairs;
    }();
    return list;
}

/// Entries with the keys first, first + step, ..., their values drawn from ordinary and special ones.
inline Entries run(std::size_t count, std::uint64_t first, std::uint64_t step, std::size_t seed) {
    static const std::vector<double> special{1.5,
                                             -0.25,
                                             0.0,
                                             -0.0,
                                             1e-3,
                                             7.125,
                                             -1e300,
                                             4e-320,
                                             std::numeric_limits<double>::infinity(),
                                             std::numeric_limits<double>::quiet_NaN()};
    Entries entries;
    for (std::size_t i = 0; i < count; ++i) {
        entries.emplace_back(first + i * step,
                             special[(i * 7 + seed) % special.size()] * (1.0 + 0.125 * double(i % 3)));
    }
    return entries;
}

inline Entries reversed(Entries entries) { return {entries.rbegin(), entries.rend()}; }

/// The entries at even places, then those at odd ones.
inline Entries unfolded(const Entries& entries) {
    Entries result;
    for (const std::size_t first : {0U, 1U}) {
        for (std::size_t i = first; i < entries.size(); i += 2) {
            result.push_back(entries[i]);
        }
    }
    return result;
}

/// Two stores that meet in one of the ways that the combining code tells apart.
struct StorePair {
    Entries a, b;
};

inline std::vector<StorePair> storePairs(const std::vector<std::size_t>& sizes) {
    std::vector<StorePair> pairs;
    for (const std::size_t n : sizes) {
        const Entries a = run(n, 5, 1, n);
        pairs.push_back({a, run(n, 5, 1, n + 3)});                  // same keys, same order
        pairs.push_back({a, reversed(run(n, 5, 1, n + 1))});        // same keys, turned round
        pairs.push_back({a, unfolded(run(n, 5, 1, n + 2))});        // same keys, in another order
        pairs.push_back({a, run(n, 1000, 1, n + 4)});               // nothing in common
        pairs.push_back({a, run(n, 5 + 64 * 100, 1, n)});           // nothing in common but the low bits
        pairs.push_back({a, run(n, 5 + n / 2, 1, n + 2)});          // half in common
        pairs.push_back({a, run(n / 2 + 1, 5, 2, n + 5)});          // every other key
        pairs.push_back({a, run(n / 2, 5, 1, n + 6)});              // the front
        pairs.push_back({run(n / 3, 5 + n / 3, 1, n), a});          // the middle of a longer one
        pairs.push_back({run(n, 5, 64, n), run(n, 5 + 64, 64, n)}); // all low bits alike
        pairs.push_back({a, {}});
        pairs.push_back({{}, a});
    }
    return pairs;
}

} // namespace nsScalarSamples
