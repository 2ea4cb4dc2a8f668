#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "data/serialization/VrexStreamFieldsT.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexBaseObject;
class VrexVariableDescriptor;

/// Writes the compact stream: little-endian numbers without padding, in blocks that nest to any depth.
///
/// The encodings are those of `VrexStreamFieldsT`, whose fields may also be written together.
///
/// Every operation answers false when the output refuses; the stream is of no use from then on.
class VREX_DATA_EXPORT VrexStreamEncoder {
public:
    /// The first byte of every block.
    static constexpr std::uint8_t TAG = VrexFieldStore::TAG;

    /// The output must outlive the encoder; without one everything is refused.
    explicit VrexStreamEncoder(VrexOutputStream* output);
    VrexStreamEncoder(const VrexStreamEncoder&) = delete;
    VrexStreamEncoder& operator=(const VrexStreamEncoder&) = delete;
    virtual ~VrexStreamEncoder();
    /// Writes one object as a block.
    virtual bool encodeObject(const std::shared_ptr<VrexBaseObject>& object) = 0;
    /// The same, and by default through it, for an object that the caller holds meanwhile.
    virtual bool encodeHeldObject(VrexBaseObject& object);

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
    /// What `put` puts, in one step: it is called with a `VrexFieldCounter`, and where the fields can be
    /// written and the output has room for all of them with a `VrexFieldStore`. Otherwise nothing is written.
    template <class Put>
    bool writeFields(Put put);

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
        return writeFields([&](auto& fields) { fields.ids(objects); });
    }
    bool writeDescriptorList(const std::vector<VrexVariableDescriptor>& list);
    template <class Object>
    bool writeObjectList(const std::vector<std::shared_ptr<Object>>& objects) {
        const auto isNull = [](const auto& object) { return object == nullptr; };
        if (std::all_of(objects.begin(), objects.end(), isNull)) {
            return writeEmptyBlock();
        }
        return writeList(objects,
                         [&](const auto& object) { return isNull(object) || encodeHeldObject(*object); });
    }
    /// Of objects that the caller holds, none of them null.
    bool writeObjectList(const std::vector<VrexBaseGeometry*>& objects);
    bool writeObjectList(const std::vector<VrexBaseConstraint*>& objects);
    /// A block of what `writeElement` makes of each element; the empty block for an empty list.
    template <class List, class WriteElement>
    bool writeList(const List& list, WriteElement writeElement) {
        if (list.empty()) {
            return writeEmptyBlock();
        }
        return beginBlock() && std::all_of(list.begin(), list.end(), writeElement) && endBlock();
    }

private:
    /// A few values.
    template <class... Values>
    bool write(const Values&... values) {
        return writeFields([&](auto& fields) { fields.values(values...); });
    }

    VrexOutputStream* m_output;
    VrexOutputMemory* m_memory;              ///< The output where it is one.
    VrexOutputLength* m_measure;             ///< The output where it is one.
    std::vector<std::uint32_t> m_openBlocks; ///< Where the lengths stand, the innermost last.
};

template <class Put>
bool VrexStreamEncoder::writeFields(Put put) {
    VrexFieldCounter counter;
    put(counter);
    if (m_output == nullptr || !counter.isGood() ||
        counter.size() > std::numeric_limits<std::uint32_t>::max()) {
        return false;
    }
    const auto size = static_cast<std::uint32_t>(counter.size());
    if (m_measure != nullptr) {
        return m_measure->write(nullptr, size) == size;
    }
    if (m_memory != nullptr) {
        unsigned char* const place = m_memory->claim(size);
        if (place != nullptr) {
            VrexFieldStore store(place);
            put(store);
        }
        return place != nullptr;
    }
    std::vector<unsigned char> bytes(size);
    VrexFieldStore store(bytes.data());
    put(store);
    return m_output->write(bytes.data(), size) == size;
}
