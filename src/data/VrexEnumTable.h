#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "data/VrexExport.h"

/// One value of an enumeration with its text; the short name is for readers of tables and is never parsed.
template <class E>
struct VrexEnumRow {
    E value;
    const char* name;
    const char* shortName = "";
};

/// The text table of an enumeration, specialised beside it: `NAME`, how messages call the enumeration ("enum
/// E"), and `ROWS`, rising by one from the lowest value.
template <class E>
struct VrexEnumTable;

/// The only conversions between the library's enumerations and their texts.
namespace nsEnum {

template <class E>
consteval bool risesWithoutHoles() {
    std::int64_t expected = static_cast<std::int64_t>(VrexEnumTable<E>::ROWS[0].value);
    for (const VrexEnumRow<E>& row : VrexEnumTable<E>::ROWS) {
        if (static_cast<std::int64_t>(row.value) != expected++) {
            return false;
        }
    }
    return true;
}

[[noreturn]] VREX_DATA_EXPORT void raiseNoText(const char* enumName, std::int64_t value);
[[noreturn]] VREX_DATA_EXPORT void raiseNoValue(const char* enumName, std::string_view text);

/// Whether the table has a row of `value`.
template <class E>
constexpr bool isKnown(E value) {
    static_assert(risesWithoutHoles<E>(), "the rows of an enumeration rise by one");
    const std::int64_t index =
        static_cast<std::int64_t>(value) - static_cast<std::int64_t>(VrexEnumTable<E>::ROWS[0].value);
    return index >= 0 && index < static_cast<std::int64_t>(std::size(VrexEnumTable<E>::ROWS));
}

/// The row of `value`; throws `std::out_of_range` for a value outside the table.
template <class E>
const VrexEnumRow<E>& rowOf(E value) {
    using Table = VrexEnumTable<E>;
    if (!isKnown(value)) {
        raiseNoText(Table::NAME, static_cast<std::int64_t>(value));
    }
    return Table::ROWS[static_cast<std::int64_t>(value) - static_cast<std::int64_t>(Table::ROWS[0].value)];
}

/// The name of `value`. Throws `std::out_of_range` "Failed to convert enum E(N) to string." for a value
/// outside the table.
template <class E>
const char* toText(E value) {
    return rowOf(value).name;
}

/// The short name of `value`, empty where it has none; fails as `toText` does.
template <class E>
const char* toShortText(E value) {
    return rowOf(value).shortName;
}

/// The value of the first row whose name is `text` to the letter. Throws `std::out_of_range`
/// `Failed to convert the string "..." to enum E.` where there is none.
template <class E>
E fromText(std::string_view text) {
    static_assert(risesWithoutHoles<E>(), "the rows of an enumeration rise by one");
    for (const VrexEnumRow<E>& row : VrexEnumTable<E>::ROWS) {
        if (text == row.name) {
            return row.value;
        }
    }
    raiseNoValue(VrexEnumTable<E>::NAME, text);
}

} // namespace nsEnum
