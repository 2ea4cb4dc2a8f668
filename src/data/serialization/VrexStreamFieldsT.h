#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"
#include "data/serialization/VrexPackedBytes.h"

/// The encodings of the compact stream, each once, over a `Fields` that either counts the bytes or stores
/// them. Nothing is checked while storing: what counts the same fields first knows whether they can be
/// written, and how much room they need.
///
/// A block is the tag, the u32 length of what follows, and that. An option that is absent and a list without
/// elements are both the empty block, of length 0; nothing else is. Nulls in lists are left out.
template <class Fields>
class VrexStreamFieldsT {
public:
    /// The first byte of every block.
    static constexpr std::uint8_t TAG = 0x30;

    template <class... Values>
    void values(const Values&... values) {
        self().packed([&] { return nsPacked::pack(values...); });
    }
    /// The u32 count, terminator included, the bytes, and the terminator. Cannot be written with a zero byte
    /// in the text.
    void string(const std::string& text) {
        self().require([&] { return text.find('\0') == std::string::npos; });
        values(static_cast<std::uint32_t>(text.size() + 1));
        self().bytes(text.c_str(), text.size() + 1);
    }
    void emptyBlock() { values(TAG, std::uint32_t{0}); }
    template <class Value>
    void optional(const std::optional<Value>& value) {
        if (value) {
            values(TAG, static_cast<std::uint32_t>(nsPacked::SIZE<Value>), *value);
        } else {
            emptyBlock();
        }
    }
    /// All numbers in one step.
    template <class Number>
    void numbers(const std::vector<Number>& elements) {
        values(TAG, static_cast<std::uint32_t>(elements.size() * sizeof(Number)));
        if (!elements.empty()) {
            self().bytes(elements.data(), elements.size() * sizeof(Number));
        }
    }
    /// The identifiers of the objects of a list of pointers.
    template <class Objects>
    void ids(const Objects& objects) {
        ids(objects, [](const auto& /*object*/) { return true; });
    }
    /// Of those that are wanted.
    template <class Objects, class IsWanted>
    void ids(const Objects& objects, IsWanted isWanted) {
        list(objects, [&](const auto& object) {
            if (object != nullptr && isWanted(*object)) {
                id(*object);
            }
        });
    }
    template <class Object>
    void id(const Object& object) {
        self().packed([&] { return nsPacked::pack(object.getID()); });
    }
    /// A block: u64 identifier of the object, i32 index, name. Cannot be written without an object.
    void descriptor(const VrexVariableDescriptor& descriptor) {
        self().require([&] { return descriptor.isValid(); });
        self().block([&] {
            self().packed([&] { return nsPacked::pack(descriptor.object()->getID(), descriptor.index()); });
            string(descriptor.variableName());
        });
    }
    void descriptors(const std::vector<VrexVariableDescriptor>& elements) {
        list(elements, [&](const VrexVariableDescriptor& element) { descriptor(element); });
    }
    /// A block of what `put` puts of each element.
    template <class List, class Put>
    void list(const List& elements, Put put) {
        self().block([&] {
            for (const auto& element : elements) {
                put(element);
            }
        });
    }

private:
    friend Fields;
    VrexStreamFieldsT() = default;
    Fields& self() { return static_cast<Fields&>(*this); }
};

/// Learns how many bytes fields take, and whether they can be written at all. Values are not computed.
class VrexFieldCounter final : public VrexStreamFieldsT<VrexFieldCounter> {
public:
    std::uint64_t size() const { return m_size; }
    bool isGood() const { return m_good; }

    template <class Holds>
    void require(Holds holds) {
        m_good = m_good && holds();
    }
    template <class MakeBytes>
    void packed(MakeBytes /*makeBytes*/) {
        m_size += std::tuple_size_v<std::invoke_result_t<MakeBytes>>;
    }
    void bytes(const void* /*data*/, std::size_t count) { m_size += count; }
    template <class Put>
    void block(Put put) {
        m_size += sizeof TAG + sizeof(std::uint32_t);
        put();
    }

private:
    std::uint64_t m_size = 0;
    bool m_good = true;
};

/// Stores fields from a place on, where there is room for all of them.
class VrexFieldStore final : public VrexStreamFieldsT<VrexFieldStore> {
public:
    explicit VrexFieldStore(unsigned char* place) : m_place(place) {}

    template <class Holds>
    void require(Holds /*holds*/) {}
    template <class MakeBytes>
    void packed(MakeBytes makeBytes) {
        const auto values = makeBytes();
        bytes(values.data(), values.size());
    }
    void bytes(const void* data, std::size_t count) {
        std::memcpy(m_place, data, count);
        m_place += count;
    }
    template <class Put>
    void block(Put put) {
        unsigned char* const head = m_place;
        m_place += sizeof TAG + sizeof(std::uint32_t);
        unsigned char* const payload = m_place;
        put();
        const auto packedHead = nsPacked::pack(TAG, static_cast<std::uint32_t>(m_place - payload));
        std::memcpy(head, packedHead.data(), packedHead.size());
    }

private:
    unsigned char* m_place;
};
