#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tolvbase/LumoJsonIteratorImpl.h"
#include "tolvbase/LumoJsonMutableIterator.h"
#include "tolvbase/LumoJsonType.h"
#include "tolvbase/TolvExport.h"

class LumoJsonNode;

/// A JSON value of 16 bytes: null, object, array, string, boolean or number.
///
/// Objects keep their keys in the order of insertion and find them in constant time. Numbers keep what they
/// were stored as: integers up to 64 bits and doubles, each exact. Strings of up to 14 bytes lie in the
/// value. Depth is limited by memory only: copying, writing and releasing need no stack. One thread at a time
/// writes; any number may read. A moved-from value is null.
class TOLV_EXPORT LumoJson {
    /// The integers that index besides `int` and `std::size_t`.
    template <class Index>
    static constexpr bool IS_OTHER_INDEX = std::integral<Index> && sizeof(Index) <= sizeof(std::size_t) &&
                                           !std::same_as<Index, int> && !std::same_as<Index, std::size_t>;

public:
    using value_type = LumoJson;
    using iterator = LumoJsonMutableIterator;
    using const_iterator = LumoJsonIteratorImpl;

    LumoJson() noexcept = default;
    LumoJson(const LumoJson& other);
    LumoJson(LumoJson&& other) noexcept : m_tag(other.m_tag) {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        other.m_tag = Tag::Null;
    }
    LumoJson& operator=(const LumoJson& other);
    LumoJson& operator=(LumoJson&& other) noexcept {
        LumoJson taken(
            std::move(other)); // It may lie inside this value: it leaves before anything is released.
        swap(taken);
        return *this;
    }
    ~LumoJson() {
        if (m_tag >= Tag::LongString) {
            release();
        }
    }

    /// With `deduceType`, a list of two-element arrays whose first element is a string makes an object, where
    /// the last of equal keys wins; so does an empty list. Everything else makes an array, and so do braces
    /// around one value: `LumoJson{json}` is an array with a copy of it (compilers that follow CWG 1467 to
    /// the letter, as Clang before 18, copy instead: write `LumoJson(json)` or `LumoJson::array({json})`).
    LumoJson(std::initializer_list<LumoJson> elements, bool deduceType = true);
    static LumoJson array(std::initializer_list<LumoJson> elements = {});

    /// The value that `toJson` stores.
    LumoJson(std::string_view value) { toJson(*this, value); }
    LumoJson(const std::string& value) { toJson(*this, value); }
    LumoJson(const char* value) { toJson(*this, value); }
    LumoJson(int value) noexcept { toJson(*this, value); }
    LumoJson(long value) noexcept { toJson(*this, value); }
    LumoJson(long long value) noexcept { toJson(*this, value); }
    LumoJson(unsigned int value) noexcept { toJson(*this, value); }
    LumoJson(unsigned long value) noexcept { toJson(*this, value); }
    LumoJson(unsigned long long value) noexcept { toJson(*this, value); }
    LumoJson(double value) noexcept { toJson(*this, value); }
    template <std::same_as<bool> Boolean>
    LumoJson(Boolean value) noexcept {
        toJson(*this, value);
    }

    /// Reads one JSON text (RFC 8259, UTF-8 without byte order mark).
    /// A number without fraction and exponent is an integer if 64 bits hold it; every other one, and "-0", is
    /// the nearest double. Of equal keys the last value wins, at the place of the first. Throws
    /// `std::runtime_error`, with line and column (in characters, both from 1), for a text that is no JSON,
    /// holds more than its value, is not valid UTF-8, has a lone surrogate, a number beyond the doubles, or
    /// more than 512 levels.
    static LumoJson parse(std::string_view text);

    /// The shortest text without blanks and line breaks that reads back to the same value: integers in
    /// decimal, doubles always with '.' or 'e'. Throws `std::runtime_error` for a number that is not finite
    /// and for text that is not valid UTF-8.
    [[nodiscard]] std::string dump() const;

    /// Stores the value, in place of what was there. A null text is stored as null.
    static void toJson(LumoJson& json, std::string_view value);
    static void toJson(LumoJson& json, const std::string& value);
    static void toJson(LumoJson& json, const char* value);
    static void toJson(LumoJson& json, int value) noexcept;
    static void toJson(LumoJson& json, long value) noexcept;
    static void toJson(LumoJson& json, long long value) noexcept;
    static void toJson(LumoJson& json, unsigned int value) noexcept;
    static void toJson(LumoJson& json, unsigned long value) noexcept;
    static void toJson(LumoJson& json, unsigned long long value) noexcept;
    static void toJson(LumoJson& json, double value) noexcept;
    static void toJson(LumoJson& json, bool value) noexcept;
    static void toJson(LumoJson& json, const void* value) = delete; ///< No pointer becomes a boolean.

    /// Reads the value; `out` is untouched on failure. Throws `std::runtime_error` for another type, and for
    /// a number that the integer cannot hold exactly. An integer reads as the nearest double. A view lives
    /// until the value changes, moves or dies.
    static void getValue(const LumoJson& json, int& out);
    static void getValue(const LumoJson& json, long& out);
    static void getValue(const LumoJson& json, long long& out);
    static void getValue(const LumoJson& json, unsigned int& out);
    static void getValue(const LumoJson& json, unsigned long& out);
    static void getValue(const LumoJson& json, unsigned long long& out);
    static void getValue(const LumoJson& json, double& out);
    static void getValue(const LumoJson& json, bool& out);
    static void getValue(const LumoJson& json, std::string& out);
    static void getValue(const LumoJson& json, std::string_view& out);
    static void getValue(const LumoJson&& json, std::string_view& out) = delete; ///< The view would dangle.

    /// The member, created as null if missing; a null value becomes an object first. Throws
    /// `std::runtime_error` for every other type. A new member ends the life of references and iterators into
    /// this object, also within one line: `json["new"] = json["old"]` takes the reference to the old member
    /// first and reads it after the new one has moved it. Write `json["new"] = LumoJson(json["old"])`.
    LumoJson& operator[](std::string_view key) &;
    LumoJson& operator[](const char* key) &;
    /// The member or element; throws `std::out_of_range` where there is none, as for every negative index.
    const LumoJson& operator[](std::string_view key) const&;
    const LumoJson& operator[](const char* key) const&;
    const LumoJson& operator[](int index) const&;
    const LumoJson& operator[](std::size_t index) const&;
    template <class Index>
    requires IS_OTHER_INDEX<Index>
    const LumoJson& operator[](Index index) const& {
        return (*this)[static_cast<std::size_t>(index)]; // A negative one lies beyond every array then.
    }
    LumoJson& operator[](int index) &;
    LumoJson& operator[](std::size_t index) &;
    template <class Index>
    requires IS_OTHER_INDEX<Index> LumoJson& operator[](Index index) & {
        return (*this)[static_cast<std::size_t>(index)];
    }

    /// False for a missing key, a null key and for everything that is no object.
    [[nodiscard]] bool contains(std::string_view key) const;
    [[nodiscard]] bool contains(const char* key) const;
    /// `end()` for a missing key and for everything that is no object.
    [[nodiscard]] iterator find(std::string_view key);
    [[nodiscard]] const_iterator find(std::string_view key) const;

    /// The elements of an array or the values of an object. The beginnings throw `std::runtime_error` for
    /// every other type; the ends do not, so that `find` can be compared with them.
    iterator begin();
    iterator end();
    [[nodiscard]] const_iterator begin() const { return cbegin(); }
    [[nodiscard]] const_iterator end() const { return cend(); }
    [[nodiscard]] const_iterator cbegin() const;
    [[nodiscard]] const_iterator cend() const;

    /// The number of elements or members; 0 for everything that is no container.
    [[nodiscard]] std::size_t size() const noexcept;
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }

    [[nodiscard]] LumoJsonType type() const noexcept;
    [[nodiscard]] bool is_null() const noexcept { return type() == LumoJsonType::Null; }
    [[nodiscard]] bool is_object() const noexcept { return type() == LumoJsonType::Object; }
    [[nodiscard]] bool is_array() const noexcept { return type() == LumoJsonType::Array; }
    [[nodiscard]] bool is_string() const noexcept { return type() == LumoJsonType::String; }
    [[nodiscard]] bool is_bool() const noexcept { return type() == LumoJsonType::Boolean; }
    [[nodiscard]] bool is_number() const noexcept { return type() == LumoJsonType::Number; }

    /// Turns null into an empty array and leaves an array as it is; throws `std::runtime_error` for other
    /// types.
    void makeArray();
    /// Appends to an array; a null value becomes one first. Throws `std::runtime_error` for other types.
    void push_back(LumoJson value);

    /// Last and first element, or member's value; throws `std::out_of_range` where there is none.
    LumoJson& back();
    [[nodiscard]] const LumoJson& back() const;
    LumoJson& front();
    [[nodiscard]] const LumoJson& front() const;

    /// Empties an array, an object or a string, which keeps its type; every other value becomes null.
    void clear() noexcept;

    void swap(LumoJson& other) noexcept {
        std::swap(m_tag, other.m_tag);
        std::swap(m_bytes, other.m_bytes);
    }

private:
    friend class LumoJsonNode;
    friend class LumoJsonIteratorImpl;
    friend class LumoJsonKeyIndex;
    friend class LumoJsonTreeBuilder;
    friend class LumoJsonWriter;

    /// From `LongString` on the value may own memory.
    enum class Tag : std::uint8_t {
        Null,
        Boolean,
        Signed, ///< Negative integers only.
        Unsigned,
        Double,
        ShortString,
        LongString,
        Array,
        Object
    };
    static constexpr std::size_t SHORT_TEXT = 14;

    // NOLINTBEGIN(bugprone-sizeof-expression): a payload may be a pointer, and its own size is meant.
    template <class Payload>
    [[nodiscard]] Payload payload() const noexcept {
        Payload value;
        std::memcpy(&value, m_bytes + PAYLOAD_AT, sizeof(Payload));
        return value;
    }
    template <class Payload>
    void setPayload(Payload value) noexcept {
        static_assert(sizeof(Payload) <= sizeof m_bytes - PAYLOAD_AT);
        std::memcpy(m_bytes + PAYLOAD_AT, &value, sizeof(Payload));
    }
    // NOLINTEND(bugprone-sizeof-expression)
    template <class Payload>
    void store(Tag tag, Payload value) noexcept;

    template <class Integer>
    static void readInteger(const LumoJson& json, Integer& out);

    static LumoJson emptyContainer(LumoJsonType type) noexcept;
    void release() noexcept;
    /// The text of a string; the type must have been tested.
    [[nodiscard]] std::string_view text() const noexcept {
        if (m_tag == Tag::ShortString) {
            return {m_bytes + 1, static_cast<std::size_t>(m_bytes[0])};
        }
        const char* const block = payload<const char*>();
        std::size_t size = 0;
        std::memcpy(&size, block, sizeof size);
        return {block + sizeof size, size};
    }
    /// The elements; null for an empty container that never had any, and for every other type.
    [[nodiscard]] LumoJsonNode* node() const noexcept {
        return m_tag >= Tag::Array ? payload<LumoJsonNode*>() : nullptr;
    }
    /// The elements of a container, made if there are none yet, with room for `count` values more.
    LumoJsonNode* ensureRoom(std::size_t count);
    /// The member of an object, made if it is missing.
    LumoJson& member(std::string_view key);
    /// Takes the elements away, for their release by the caller.
    LumoJsonNode* detachNode() noexcept {
        LumoJsonNode* const elements = node();
        if (elements != nullptr) {
            setPayload<LumoJsonNode*>(nullptr);
        }
        return elements;
    }
    [[nodiscard]] const LumoJson* findMember(std::string_view key) const;
    [[nodiscard]] const LumoJson* findElement(std::size_t index) const noexcept;
    [[nodiscard]] const LumoJson& atEdge(bool isBack) const;
    [[nodiscard]] int stride() const noexcept;

    /// Tag, then: a short text's length and bytes; or the payload in the upper eight bytes.
    static constexpr std::size_t PAYLOAD_AT = 7;
    alignas(8) Tag m_tag = Tag::Null;
    char m_bytes[15] = {};
};

/// `LumoJson::toJson`, for calls without the class name.
template <class Value>
requires requires(LumoJson& json, Value&& value) { LumoJson::toJson(json, std::forward<Value>(value)); }
void toJson(LumoJson& json,
            Value&& value) noexcept(noexcept(LumoJson::toJson(json, std::forward<Value>(value)))) {
    LumoJson::toJson(json, std::forward<Value>(value));
}

/// `LumoJson::getValue`, for calls without the class name.
template <class Json, class Value>
requires std::same_as<std::remove_cvref_t<Json>, LumoJson> && requires(Json&& json, Value& out) {
    LumoJson::getValue(std::forward<Json>(json), out);
}
void getValue(Json&& json, Value& out) { LumoJson::getValue(std::forward<Json>(json), out); }
