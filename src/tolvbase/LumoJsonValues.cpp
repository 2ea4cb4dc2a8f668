#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>

#include "tolvbase/LumoJson.h"

template <class Payload>
void LumoJson::store(Tag tag, Payload value) noexcept {
    LumoJson stored;
    stored.setPayload(value);
    stored.m_tag = tag;
    swap(stored);
}

void LumoJson::toJson(LumoJson& json, std::string_view value) {
    LumoJson stored;
    if (value.size() <= SHORT_TEXT) {
        stored.m_bytes[0] = static_cast<char>(value.size());
        value.copy(stored.m_bytes + 1, value.size());
        stored.m_tag = Tag::ShortString;
    } else {
        char* const block = static_cast<char*>(::operator new(sizeof(std::size_t) + value.size()));
        const std::size_t size = value.size();
        std::memcpy(block, &size, sizeof size);
        value.copy(block + sizeof size, size);
        stored.setPayload(block);
        stored.m_tag = Tag::LongString;
    }
    json.swap(stored);
}

void LumoJson::toJson(LumoJson& json, const std::string& value) { toJson(json, std::string_view(value)); }

void LumoJson::toJson(LumoJson& json, const char* value) {
    if (value == nullptr) {
        json = LumoJson();
    } else {
        toJson(json, std::string_view(value));
    }
}

void LumoJson::toJson(LumoJson& json, int value) noexcept { toJson(json, static_cast<long long>(value)); }

void LumoJson::toJson(LumoJson& json, long value) noexcept { toJson(json, static_cast<long long>(value)); }

void LumoJson::toJson(LumoJson& json, long long value) noexcept {
    json.store(value < 0 ? Tag::Signed : Tag::Unsigned, std::int64_t{value});
}

void LumoJson::toJson(LumoJson& json, unsigned int value) noexcept {
    json.store(Tag::Unsigned, std::uint64_t{value});
}

void LumoJson::toJson(LumoJson& json, unsigned long value) noexcept {
    json.store(Tag::Unsigned, std::uint64_t{value});
}

void LumoJson::toJson(LumoJson& json, unsigned long long value) noexcept {
    json.store(Tag::Unsigned, std::uint64_t{value});
}

void LumoJson::toJson(LumoJson& json, double value) noexcept { json.store(Tag::Double, value); }

void LumoJson::toJson(LumoJson& json, bool value) noexcept { json.store(Tag::Boolean, value); }

namespace {

/// Whether the double is an integer between the limits of the type. The upper limit plus one is a power of
/// two, so exact as a double where the limit itself is not.
template <class Integer>
bool fits(double value) {
    const double beyond = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double lowest = std::is_signed_v<Integer> ? -beyond : 0.0;
    return value >= lowest && value < beyond && std::trunc(value) == value;
}

template <class Integer>
bool fits(std::int64_t negative) {
    return std::is_signed_v<Integer> &&
           negative >= static_cast<std::int64_t>(std::numeric_limits<Integer>::min());
}

template <class Integer>
bool fits(std::uint64_t value) {
    return value <= static_cast<std::uint64_t>(std::numeric_limits<Integer>::max());
}

template <class Integer, class Stored>
void takeInteger(Stored stored, Integer& out) {
    if (!fits<Integer>(stored)) {
        throw std::runtime_error("JSON number does not fit the integer.");
    }
    out = static_cast<Integer>(stored);
}

} // namespace

template <class Integer>
void LumoJson::readInteger(const LumoJson& json, Integer& out) {
    switch (json.m_tag) {
    case Tag::Signed:
        return takeInteger(json.payload<std::int64_t>(), out);
    case Tag::Unsigned:
        return takeInteger(json.payload<std::uint64_t>(), out);
    case Tag::Double:
        return takeInteger(json.payload<double>(), out);
    default:
        throw std::runtime_error("JSON value is no number.");
    }
}

void LumoJson::getValue(const LumoJson& json, int& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, long& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, long long& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, unsigned int& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, unsigned long& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, unsigned long long& out) { readInteger(json, out); }

void LumoJson::getValue(const LumoJson& json, double& out) {
    switch (json.m_tag) {
    case Tag::Signed:
        out = static_cast<double>(json.payload<std::int64_t>());
        return;
    case Tag::Unsigned:
        out = static_cast<double>(json.payload<std::uint64_t>());
        return;
    case Tag::Double:
        out = json.payload<double>();
        return;
    default:
        throw std::runtime_error("JSON value is no number.");
    }
}

void LumoJson::getValue(const LumoJson& json, bool& out) {
    if (!json.is_bool()) {
        throw std::runtime_error("JSON value is no boolean.");
    }
    out = json.payload<bool>();
}

void LumoJson::getValue(const LumoJson& json, std::string& out) {
    std::string_view view;
    getValue(json, view);
    out = view;
}

void LumoJson::getValue(const LumoJson& json, std::string_view& out) {
    if (!json.is_string()) {
        throw std::runtime_error("JSON value is no string.");
    }
    out = json.text();
}
