#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "data/serialization/VrexPackedBytes.h"

class VrexBaseObject;
class VrexVariableDescriptor;

/// Writes the compact stream: little-endian numbers without padding, in blocks that nest to any depth.
///
/// A block is the tag, the u32 length of what follows, and that. An option that is absent and a list without
/// elements are both the empty block, of length 0; nothing else is. Nulls in lists are left out.
///
/// Every operation answers false when the output refuses; the stream is of no use from then on.
class VREX_DATA_EXPORT VrexStreamEncoder {
public:
    /// The first byte of every block.
    static constexpr std::uint8_t TAG = 0x30;

    /// The output must outlive the encoder.
    explicit VrexStreamEncoder(VrexOutputStream* output);
    VrexStreamEncoder(const VrexStreamEncoder&) = delete;
    VrexStreamEncoder& operator=(const VrexStreamEncoder&) = delete;
    virtual ~VrexStreamEncoder();
    /// Writes one object as a block.
    virtual bool encodeObject(const std::shared_ptr<VrexBaseObject>& object) = 0;

    bool writeTag();
    bool writeU32(std::uint32_t value);
    bool writeI32(std::int32_t value);
    bool writeU64(std::uint64_t value);
    bool writeF64(double value);
    bool writeBool(bool value); ///< One byte, 0 or 1.
    bool writeU8(std::uint8_t value);
    /// The u32 count, terminator included, the bytes, and the terminator. False for a text that holds a zero
    /// byte.
    bool writeString(const std::string& text);
    bool writeVector(const VrexVector3DT<double>& vector);
    bool writeVector2(const VrexVector2DT<double>& vector);
    /// A block: u64 identifier of the object, i32 index, name. False without an object.
    bool writeDescriptor(const VrexVariableDescriptor& descriptor);
    /// Values in one step: the array of bytes that `makeBytes` gives, of which it is not asked where they
    /// are only measured.
    template <class MakeBytes>
    bool writePacked(MakeBytes makeBytes) {
        constexpr std::uint32_t COUNT = std::tuple_size_v<std::invoke_result_t<MakeBytes>>;
        if (m_measure != nullptr) {
            return m_measure->write(nullptr, COUNT) == COUNT;
        }
        return writeArray(makeBytes());
    }

    bool beginBlock();
    /// Writes the length of the innermost open block. Does nothing, and answers true, when none is open.
    bool endBlock();
    bool writeEmptyBlock();
    std::size_t openBlocks() const { return m_openBlocks.size(); }
    /// Gives up the innermost open blocks until `count` are left: they get the length 0, so that nobody reads
    /// what they hold.
    void unwindBlocks(std::size_t count);

    bool writeOptionalF64(const std::optional<double>& value);
    bool writeOptionalVector(const std::optional<VrexVector3DT<double>>& value);
    bool writeOptionalVector2(const std::optional<VrexVector2DT<double>>& value);
    bool writeF64List(const std::vector<double>& list);
    bool writeIdList(const std::vector<std::uint64_t>& ids);
    /// The identifiers of the objects of a list of pointers.
    template <class Objects>
    bool writeIdList(const Objects& objects) {
        return writeIdList(objects, [](const auto& /*object*/) { return true; });
    }
    /// Of those that are wanted.
    template <class Objects, class IsWanted>
    bool writeIdList(const Objects& objects, IsWanted isWanted) {
        const auto isListed = [&](const auto& object) { return object != nullptr && isWanted(*object); };
        const auto count = std::count_if(objects.begin(), objects.end(), isListed);
        return writeBlockHead(static_cast<std::uint64_t>(count) * sizeof(std::uint64_t)) &&
               std::all_of(objects.begin(), objects.end(), [&](const auto& object) {
                   return !isListed(object) || writeU64(object->getID());
               });
    }
    bool writeDescriptorList(const std::vector<VrexVariableDescriptor>& list);
    template <class Object>
    bool writeObjectList(const std::vector<std::shared_ptr<Object>>& objects) {
        return writeListOf(
            objects, [](const auto& object) { return object != nullptr; },
            [this](const auto& object) { return encodeObject(object); });
    }
    /// A block of what `writeElement` makes of each element; the empty block for an empty list.
    template <class List, class WriteElement>
    bool writeList(const List& list, WriteElement writeElement) {
        return writeListOf(
            list, [](const auto& /*element*/) { return true; }, writeElement);
    }
    /// The same for the elements that are wanted.
    template <class List, class IsWanted, class WriteElement>
    bool writeListOf(const List& list, IsWanted isWanted, WriteElement writeElement) {
        if (std::none_of(list.begin(), list.end(), isWanted)) {
            return writeEmptyBlock();
        }
        const auto write = [&](const auto& element) { return !isWanted(element) || writeElement(element); };
        return beginBlock() && std::all_of(list.begin(), list.end(), write) && endBlock();
    }

private:
    /// Runs `action` on the output. Of the outputs of this library the class is named, so that what they do
    /// is done in place.
    template <class Action>
    bool onOutput(Action action) {
        if (m_memory != nullptr) {
            return action(*m_memory);
        }
        return m_measure != nullptr ? action(*m_measure) : action(*m_output);
    }
    template <std::size_t COUNT>
    bool writeArray(const std::array<unsigned char, COUNT>& bytes) {
        return onOutput([&](auto& output) { return output.write(bytes.data(), COUNT) == COUNT; });
    }
    template <class... Values>
    bool write(const Values&... values) {
        return writePacked([&] { return nsPacked::pack(values...); });
    }
    /// Tag and length of a block.
    bool writeBlockHead(std::uint64_t length) {
        return length <= std::numeric_limits<std::uint32_t>::max() &&
               write(TAG, static_cast<std::uint32_t>(length));
    }
    bool writeBytes(const void* data, std::uint64_t count);
    bool writeNumbers(const void* data, std::uint64_t count);
    template <class Value>
    bool writeOptional(const std::optional<Value>& value);

    VrexOutputStream* m_output;
    VrexOutputMemory* m_memory;              ///< The output where it is one.
    VrexOutputLength* m_measure;             ///< The output where it is one.
    std::vector<std::uint32_t> m_openBlocks; ///< Where the lengths stand, the innermost last.
};

inline bool VrexStreamEncoder::writeTag() { return write(TAG); }

inline bool VrexStreamEncoder::writeU32(std::uint32_t value) { return write(value); }

inline bool VrexStreamEncoder::writeI32(std::int32_t value) { return write(value); }

inline bool VrexStreamEncoder::writeU64(std::uint64_t value) { return write(value); }

inline bool VrexStreamEncoder::writeF64(double value) { return write(value); }

inline bool VrexStreamEncoder::writeBool(bool value) { return write(value); }

inline bool VrexStreamEncoder::writeU8(std::uint8_t value) { return write(value); }

inline bool VrexStreamEncoder::writeVector(const VrexVector3DT<double>& vector) { return write(vector); }

inline bool VrexStreamEncoder::writeVector2(const VrexVector2DT<double>& vector) { return write(vector); }

inline bool VrexStreamEncoder::writeEmptyBlock() { return writeBlockHead(0); }

inline bool VrexStreamEncoder::beginBlock() {
    return onOutput([&](auto& output) {
        if (output.write(&TAG, sizeof TAG) == 0) {
            return false;
        }
        const std::uint32_t place = output.position();
        output.seek(place + sizeof(std::uint32_t));
        m_openBlocks.push_back(place);
        return true;
    });
}

inline bool VrexStreamEncoder::endBlock() {
    if (m_openBlocks.empty()) {
        return true;
    }
    const std::uint32_t place = m_openBlocks.back();
    m_openBlocks.pop_back();
    return onOutput([&](auto& output) {
        const std::uint32_t end = output.seek(place);
        // Wraps around in an output that only measures.
        const std::uint32_t length = end - place - static_cast<std::uint32_t>(sizeof(std::uint32_t));
        const bool written = output.write(&length, sizeof length) == sizeof length;
        output.seek(end);
        return written;
    });
}

template <class Value>
bool VrexStreamEncoder::writeOptional(const std::optional<Value>& value) {
    return value ? write(TAG, static_cast<std::uint32_t>(sizeof *value), *value) : writeEmptyBlock();
}

inline bool VrexStreamEncoder::writeOptionalF64(const std::optional<double>& value) {
    return writeOptional(value);
}

inline bool VrexStreamEncoder::writeOptionalVector(const std::optional<VrexVector3DT<double>>& value) {
    return writeOptional(value);
}

inline bool VrexStreamEncoder::writeOptionalVector2(const std::optional<VrexVector2DT<double>>& value) {
    return writeOptional(value);
}
