#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"

class VrexBaseObject;
class VrexOutputStream;
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

    /// The output must outlive the encoder; without one everything is refused.
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

    bool beginBlock();
    /// Writes the length of the innermost open block. Does nothing, and answers true, when none is open.
    bool endBlock();
    bool writeEmptyBlock();

    bool writeOptionalF64(const std::optional<double>& value);
    bool writeOptionalVector(const std::optional<VrexVector3DT<double>>& value);
    bool writeOptionalVector2(const std::optional<VrexVector2DT<double>>& value);
    bool writeF64List(const std::vector<double>& list);
    bool writeIdList(const std::vector<std::uint64_t>& ids);
    /// The identifiers of the objects.
    template <class Object>
    bool writeIdList(const std::vector<std::shared_ptr<Object>>& objects) {
        std::vector<std::uint64_t> ids;
        ids.reserve(objects.size());
        for (const auto& object : objects) {
            if (object != nullptr) {
                ids.push_back(object->getID());
            }
        }
        return writeIdList(ids);
    }
    bool writeDescriptorList(const std::vector<VrexVariableDescriptor>& list);
    template <class Object>
    bool writeObjectList(const std::vector<std::shared_ptr<Object>>& objects) {
        const auto isNull = [](const auto& object) { return object == nullptr; };
        if (std::all_of(objects.begin(), objects.end(), isNull)) {
            return writeEmptyBlock();
        }
        return writeList(objects, [&](const auto& object) { return isNull(object) || encodeObject(object); });
    }
    /// A block of what `writeElement` makes of each element; the empty block for an empty list.
    template <class List, class WriteElement>
    bool writeList(const List& list, WriteElement writeElement) {
        if (list.empty()) {
            return writeEmptyBlock();
        }
        return beginBlock() && std::all_of(list.begin(), list.end(), writeElement) && endBlock();
    }

private:
    bool writeBytes(const void* data, std::uint64_t count);
    bool writeNumbers(const void* data, std::uint64_t count);

    VrexOutputStream* m_output;
    std::vector<std::uint32_t> m_openBlocks; ///< Where the lengths stand, the innermost last.
};
