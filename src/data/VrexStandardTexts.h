#pragma once

/// Hidden: texts of `std::out_of_range` as one standard library words them. Others say it differently, and
/// callers compare texts, so they are thrown by hand.
namespace nsStandardTexts {

constexpr const char* ARRAY_SUBSCRIPT = "invalid array<T, N> subscript";
constexpr const char* MAP_KEY = "invalid map<K, T> key";
constexpr const char* UNORDERED_MAP_KEY = "invalid unordered_map<K, T> key";
constexpr const char* VECTOR_SUBSCRIPT = "invalid vector subscript";

} // namespace nsStandardTexts
