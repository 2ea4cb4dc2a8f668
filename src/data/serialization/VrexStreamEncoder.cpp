#include "data/serialization/VrexStreamEncoder.h"

#include <bit>

#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"
#include "data/serialization/VrexOutputStream.h"

// Numbers are copied as they lie in memory.
static_assert(std::endian::native == std::endian::little && std::numeric_limits<double>::is_iec559);

VrexStreamEncoder::VrexStreamEncoder(VrexOutputStream* output)
    : m_output(output),
      m_memory(dynamic_cast<VrexOutputMemory*>(output)),
      m_measure(dynamic_cast<VrexOutputLength*>(output)) {}

VrexStreamEncoder::~VrexStreamEncoder() = default;

bool VrexStreamEncoder::writeString(const std::string& text) {
    const std::uint64_t count = text.size() + 1;
    return count <= std::numeric_limits<std::uint32_t>::max() && text.find('\0') == std::string::npos &&
           writeU32(static_cast<std::uint32_t>(count)) && writeBytes(text.c_str(), count);
}

bool VrexStreamEncoder::writeDescriptor(const VrexVariableDescriptor& descriptor) {
    return descriptor.isValid() && beginBlock() && writeU64(descriptor.object()->getID()) &&
           writeI32(static_cast<std::int32_t>(descriptor.index())) &&
           writeString(descriptor.variableName()) && endBlock();
}

void VrexStreamEncoder::unwindBlocks(std::size_t count) {
    while (m_openBlocks.size() > count) {
        const std::uint32_t end = m_output->seek(m_openBlocks.back());
        m_openBlocks.pop_back();
        writeU32(0);
        m_output->seek(end);
    }
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
    return count <= std::numeric_limits<std::uint32_t>::max() && onOutput([&](auto& output) {
               return output.write(data, static_cast<std::uint32_t>(count)) == count;
           });
}

/// A block of all numbers of a list, in one step.
bool VrexStreamEncoder::writeNumbers(const void* data, std::uint64_t count) {
    return writeBlockHead(count) && (count == 0 || writeBytes(data, count));
}
