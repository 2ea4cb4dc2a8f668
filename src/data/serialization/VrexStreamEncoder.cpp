#include "data/serialization/VrexStreamEncoder.h"

#include <bit>

#include "data/VrexBaseGeometry.h"
#include "data/VrexPrefetch.h"
#include "data/serialization/VrexOutputStream.h"

// Numbers are copied as they lie in memory.
static_assert(std::endian::native == std::endian::little && std::numeric_limits<double>::is_iec559);

namespace {

/// Of the length of a block.
constexpr std::uint32_t LENGTH_SIZE = sizeof(std::uint32_t);

} // namespace

VrexStreamEncoder::VrexStreamEncoder(VrexOutputStream* output)
    : m_output(output),
      m_memory(dynamic_cast<VrexOutputMemory*>(output)),
      m_measure(dynamic_cast<VrexOutputLength*>(output)) {}

VrexStreamEncoder::~VrexStreamEncoder() = default;

bool VrexStreamEncoder::encodeHeldObject(VrexBaseObject& object) {
    return encodeObject(object.shared_from_this());
}

bool VrexStreamEncoder::writeTag() { return write(TAG); }

bool VrexStreamEncoder::writeU32(std::uint32_t value) { return write(value); }

bool VrexStreamEncoder::writeI32(std::int32_t value) { return write(value); }

bool VrexStreamEncoder::writeU64(std::uint64_t value) { return write(value); }

bool VrexStreamEncoder::writeF64(double value) { return write(value); }

bool VrexStreamEncoder::writeBool(bool value) { return write(value); }

bool VrexStreamEncoder::writeU8(std::uint8_t value) { return write(value); }

bool VrexStreamEncoder::writeString(const std::string& text) {
    return writeFields([&](auto& fields) { fields.string(text); });
}

bool VrexStreamEncoder::writeVector(const VrexVector3DT<double>& vector) { return write(vector); }

bool VrexStreamEncoder::writeVector2(const VrexVector2DT<double>& vector) { return write(vector); }

bool VrexStreamEncoder::writeDescriptor(const VrexVariableDescriptor& descriptor) {
    return writeFields([&](auto& fields) { fields.descriptor(descriptor); });
}

bool VrexStreamEncoder::beginBlock() {
    if (!writeTag()) {
        return false;
    }
    const std::uint32_t place = m_output->position();
    if (place > std::numeric_limits<std::uint32_t>::max() - LENGTH_SIZE) {
        return false;
    }
    m_openBlocks.push_back(place);
    m_output->seek(place + LENGTH_SIZE);
    return true;
}

bool VrexStreamEncoder::endBlock() {
    if (m_openBlocks.empty()) {
        return true;
    }
    const std::uint32_t place = m_openBlocks.back();
    m_openBlocks.pop_back();
    const std::uint32_t end = m_output->seek(place);
    // Wraps around in an output that only measures.
    const bool written = writeU32(end - place - LENGTH_SIZE);
    m_output->seek(end);
    return written;
}

void VrexStreamEncoder::unwindBlocks(std::size_t count) {
    while (m_openBlocks.size() > count) {
        const std::uint32_t end = m_output->seek(m_openBlocks.back());
        m_openBlocks.pop_back();
        writeU32(0);
        m_output->seek(end);
    }
}

bool VrexStreamEncoder::writeEmptyBlock() {
    return writeFields([](auto& fields) { fields.emptyBlock(); });
}

bool VrexStreamEncoder::writeOptionalF64(const std::optional<double>& value) {
    return writeFields([&](auto& fields) { fields.optional(value); });
}

bool VrexStreamEncoder::writeOptionalVector(const std::optional<VrexVector3DT<double>>& value) {
    return writeFields([&](auto& fields) { fields.optional(value); });
}

bool VrexStreamEncoder::writeOptionalVector2(const std::optional<VrexVector2DT<double>>& value) {
    return writeFields([&](auto& fields) { fields.optional(value); });
}

bool VrexStreamEncoder::writeF64List(const std::vector<double>& list) {
    return writeFields([&](auto& fields) { fields.numbers(list); });
}

bool VrexStreamEncoder::writeIdList(const std::vector<std::uint64_t>& ids) {
    return writeFields([&](auto& fields) { fields.numbers(ids); });
}

bool VrexStreamEncoder::writeDescriptorList(const std::vector<VrexVariableDescriptor>& list) {
    return writeFields([&](auto& fields) { fields.descriptors(list); });
}

bool VrexStreamEncoder::writeObjectList(const std::vector<VrexBaseGeometry*>& objects) {
    std::size_t place = 0;
    return writeList(objects, [&](VrexBaseGeometry* geometry) {
        nsPrefetch::ahead(objects, place++);
        return encodeHeldObject(*geometry);
    });
}

bool VrexStreamEncoder::writeObjectList(const std::vector<VrexBaseConstraint*>& objects) {
    std::size_t place = 0;
    return writeList(objects, [&](VrexBaseConstraint* constraint) {
        nsPrefetch::ahead(objects, place++);
        return encodeHeldObject(*constraint);
    });
}
