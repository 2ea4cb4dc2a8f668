#include "data/serialization/VrexStreamEncoder.h"

#include <bit>
#include <limits>

#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"
#include "data/serialization/VrexOutputStream.h"

// Numbers are copied as they lie in memory.
static_assert(std::endian::native == std::endian::little && std::numeric_limits<double>::is_iec559);

namespace {

/// Of the length of a block.
constexpr std::uint32_t LENGTH_SIZE = sizeof(std::uint32_t);

} // namespace

VrexStreamEncoder::VrexStreamEncoder(VrexOutputStream* output) : m_output(output) {}

VrexStreamEncoder::~VrexStreamEncoder() = default;

bool VrexStreamEncoder::writeTag() { return writeU8(TAG); }

bool VrexStreamEncoder::writeU32(std::uint32_t value) { return writeBytes(&value, sizeof value); }

bool VrexStreamEncoder::writeI32(std::int32_t value) { return writeBytes(&value, sizeof value); }

bool VrexStreamEncoder::writeU64(std::uint64_t value) { return writeBytes(&value, sizeof value); }

bool VrexStreamEncoder::writeF64(double value) { return writeBytes(&value, sizeof value); }

bool VrexStreamEncoder::writeBool(bool value) { return writeU8(value ? 1 : 0); }

bool VrexStreamEncoder::writeU8(std::uint8_t value) { return writeBytes(&value, sizeof value); }

bool VrexStreamEncoder::writeString(const std::string& text) {
    const std::uint64_t count = text.size() + 1;
    return count <= std::numeric_limits<std::uint32_t>::max() && text.find('\0') == std::string::npos &&
           writeU32(static_cast<std::uint32_t>(count)) && writeBytes(text.c_str(), count);
}

bool VrexStreamEncoder::writeVector(const VrexVector3DT<double>& vector) {
    const double numbers[] = {vector.x(), vector.y(), vector.z()};
    return writeBytes(numbers, sizeof numbers);
}

bool VrexStreamEncoder::writeVector2(const VrexVector2DT<double>& vector) {
    const double numbers[] = {vector.x(), vector.y()};
    return writeBytes(numbers, sizeof numbers);
}

bool VrexStreamEncoder::writeDescriptor(const VrexVariableDescriptor& descriptor) {
    return descriptor.isValid() && beginBlock() && writeU64(descriptor.object()->getID()) &&
           writeI32(static_cast<std::int32_t>(descriptor.index())) &&
           writeString(descriptor.variableName()) && endBlock();
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

bool VrexStreamEncoder::writeEmptyBlock() { return writeTag() && writeI32(0); }

bool VrexStreamEncoder::writeOptionalF64(const std::optional<double>& value) {
    return value ? beginBlock() && writeF64(*value) && endBlock() : writeEmptyBlock();
}

bool VrexStreamEncoder::writeOptionalVector(const std::optional<VrexVector3DT<double>>& value) {
    return value ? beginBlock() && writeVector(*value) && endBlock() : writeEmptyBlock();
}

bool VrexStreamEncoder::writeOptionalVector2(const std::optional<VrexVector2DT<double>>& value) {
    return value ? beginBlock() && writeVector2(*value) && endBlock() : writeEmptyBlock();
}

bool VrexStreamEncoder::writeF64List(const std::vector<double>& list) {
    return writeNumbers(list.data(), list.size() * sizeof(double));
}

bool VrexStreamEncoder::writeIdList(const std::vector<std::uint64_t>& ids) {
    return writeNumbers(ids.data(), ids.size() * sizeof(std::uint64_t));
}

bool VrexStreamEncoder::writeDescriptorList(const std::vector<VrexVariableDescriptor>& list) {
    return writeList(list, [this](const auto& descriptor) { return writeDescriptor(descriptor); });
}

bool VrexStreamEncoder::writeBytes(const void* data, std::uint64_t count) {
    return m_output != nullptr && count <= std::numeric_limits<std::uint32_t>::max() &&
           m_output->write(data, static_cast<std::uint32_t>(count)) == count;
}

/// All numbers of a list in one step.
bool VrexStreamEncoder::writeNumbers(const void* data, std::uint64_t count) {
    return count == 0 ? writeEmptyBlock() : beginBlock() && writeBytes(data, count) && endBlock();
}
