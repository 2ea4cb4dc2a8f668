#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "data/VrexEnumTable.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJsonText.h"

/// Hidden: a JSON object that is being written at the end of a text; closed when this dies, and one that is
/// not empty. Keys are written in the order in which they are put, and none may be put twice.
///
/// Numbers and texts that JSON does not have throw `std::runtime_error`; the text is of no use then.
class VrexJsonObject {
public:
    using Key = nsJsonKeys::Key;

    /// Begins with what `fill` puts. The text must outlive this, and nobody else may write to it meanwhile.
    template <class Fill>
    VrexJsonObject(std::string& text, const Fill& fill) : m_text(text) {
        m_text += '{';
        fill(*this);
    }
    VrexJsonObject(const VrexJsonObject&) = delete;
    VrexJsonObject& operator=(const VrexJsonObject&) = delete;
    ~VrexJsonObject() { m_text.back() = '}'; } // Every value leaves a comma.

    template <class Value>
    void put(Key key, const Value& value) {
        appendKey(key);
        append(value);
        m_text += ',';
    }

    template <class Value>
    void putIfSet(Key key, const std::optional<Value>& value) {
        if (value.has_value()) {
            put(key, *value);
        }
    }
    void putIfSet(const nsJsonKeys::RangeKeys& keys,
                  const std::pair<std::optional<double>, std::optional<double>>& ends) {
        putIfSet(keys.lower, ends.first);
        putIfSet(keys.upper, ends.second);
    }
    void putIfTrue(Key key, bool value) {
        if (value) {
            put(key, value);
        }
    }
    /// `omitted` is what a reader takes a missing key for.
    template <class Enum>
    void putUnless(Enum omitted, Key key, Enum value) {
        if (value != omitted) {
            put(key, value);
        }
    }

    /// An array of what `convert` makes of each element that `isKept`.
    template <class List, class Convert, class IsKept>
    void putArray(Key key, const List& list, const Convert& convert, const IsKept& isKept) {
        appendKey(key);
        m_text += '[';
        for (const auto& element : list) {
            if (isKept(element)) {
                append(convert(element));
                m_text += ',';
            }
        }
        closeArray();
        m_text += ',';
    }
    template <class List, class Convert>
    void putArray(Key key, const List& list, const Convert& convert) {
        putArray(key, list, convert, [](const auto&) { return true; });
    }
    /// The same; a list that is empty has no key.
    template <class List, class Convert>
    void putArrayIfFilled(Key key, const List& list, const Convert& convert) {
        if (!list.empty()) {
            putArray(key, list, convert);
        }
    }
    /// An array of objects, each of which `fill` fills from an element.
    template <class List, class Fill>
    void putObjects(Key key, const List& list, const Fill& fill) {
        appendKey(key);
        appendArray(list, [&](const auto& element) {
            const VrexJsonObject object(m_text, [&](VrexJsonObject& json) { fill(element, json); });
        });
        m_text += ',';
    }

private:
    /// Keys need no escapes.
    void appendKey(Key key) {
        m_text += '"';
        m_text.append(key).append("\":");
    }
    void append(double value) { nsLumoJsonText::append(m_text, value); }
    template <std::same_as<bool> Boolean>
    void append(Boolean value) {
        m_text += value ? "true" : "false";
    }
    template <std::unsigned_integral Integer>
    requires(!std::same_as<Integer, bool>) void append(Integer value) {
        nsLumoJsonText::append(m_text, std::uint64_t{value});
    }
    template <std::signed_integral Integer>
    void append(Integer value) {
        nsLumoJsonText::append(m_text, std::int64_t{value});
    }
    void append(std::string_view value) { nsLumoJsonText::append(m_text, value); }
    /// Neither do the names of enumerations.
    template <class Enum>
    requires std::is_enum_v<Enum>
    void append(Enum value) {
        m_text += '"';
        m_text += nsEnum::toText(value);
        m_text += '"';
    }
    void append(const VrexVector3DT<double>& value) {
        append(std::array<double, 3>{value.x(), value.y(), value.z()});
    }
    void append(const std::vector<double>& values) {
        appendArray(values, [this](double value) { append(value); });
    }
    template <class Value, std::size_t N>
    void append(const std::array<Value, N>& values) {
        appendArray(values, [this](const Value& value) { append(value); });
    }

    template <class List, class Append>
    void appendArray(const List& list, const Append& appendElement) {
        m_text += '[';
        for (const auto& element : list) {
            appendElement(element);
            m_text += ',';
        }
        closeArray();
    }
    void closeArray() {
        if (m_text.back() == ',') {
            m_text.back() = ']';
        } else {
            m_text += ']';
        }
    }

    std::string& m_text;
};
