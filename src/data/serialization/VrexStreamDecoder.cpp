#include "data/serialization/VrexStreamDecoder.h"

#include <cstring>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexVariableDescriptor.h"
#include "data/serialization/VrexStreamEncoder.h"

namespace {

/// A variable without a label: tag and length of the block, kind, value, identifier, two statuses, label,
/// dirty flag.
constexpr std::uint32_t SMALLEST_OBJECT = 5 + 4 + 8 + 8 + 2 * 4 + 5 + 1;

constinit const VrexDecodedObjects::Slots NOTHING{};

/// Only constraints may be asked for parameters that they do not have.
bool isReadable(const VrexVariableDescriptor& descriptor) {
    return descriptor.hasParameter() ||
           dynamic_cast<const VrexBaseConstraint*>(descriptor.object().get()) != nullptr;
}

} // namespace

VrexStreamDecoder::VrexStreamDecoder(const unsigned char* input, std::uint32_t size)
    : m_input(input), m_size(input != nullptr ? size : 0), m_objects(m_size / SMALLEST_OBJECT) {}

VrexStreamDecoder::~VrexStreamDecoder() = default;

bool VrexStreamDecoder::expectTag() {
    if (isAtEnd() || m_input[m_position] != VrexStreamEncoder::TAG) {
        return false;
    }
    ++m_position;
    return true;
}

bool VrexStreamDecoder::readBool(bool& out) {
    std::uint8_t byte = 0;
    if (!readU8(byte)) {
        return false;
    }
    out = byte != 0;
    return true;
}

bool VrexStreamDecoder::readString(std::string& out) {
    const std::uint32_t start = m_position;
    std::uint32_t count = 0;
    if (readU32(count) && count != 0 && count <= m_size - m_position) {
        const char* const text = reinterpret_cast<const char*>(m_input + m_position);
        if (const void* const end = std::memchr(text, 0, count)) {
            out.assign(text, static_cast<const char*>(end));
            m_position += count;
            return true;
        }
    }
    m_position = start;
    return false;
}

bool VrexStreamDecoder::readDescriptor(std::vector<VrexVariableDescriptor>& out) {
    return readBlock([&] {
        std::uint64_t id = 0;
        std::uint32_t index = 0;
        std::string name;
        if (!readPacked(id, index) || !readString(name) || !isAtEnd()) {
            return false;
        }
        VrexVariableDescriptor descriptor(findObject(id), index, name.c_str());
        if (!isReadable(descriptor)) {
            return false;
        }
        out.push_back(std::move(descriptor));
        return true;
    });
}

bool VrexStreamDecoder::readOptionalF64(std::optional<double>& out) { return readOptional(out); }

bool VrexStreamDecoder::readOptionalVector(std::optional<VrexVector3DT<double>>& out) {
    return readOptional(out);
}

bool VrexStreamDecoder::readOptionalVector2(std::optional<VrexVector2DT<double>>& out) {
    return readOptional(out);
}

bool VrexStreamDecoder::readF64List(std::vector<double>& out) { return readNumbers(out); }

bool VrexStreamDecoder::readIdList(std::vector<std::uint64_t>& out) { return readNumbers(out); }

bool VrexStreamDecoder::readDescriptorList(std::vector<VrexVariableDescriptor>& out) {
    std::vector<VrexVariableDescriptor> list;
    const bool read = readList([&] { return readDescriptor(list); });
    if (read) {
        out = std::move(list);
    }
    return read;
}

bool VrexStreamDecoder::readObjectList(std::vector<std::shared_ptr<VrexBaseObject>>& out) {
    std::vector<std::shared_ptr<VrexBaseObject>> list;
    const bool read = readList([&] {
        list.push_back(decodeObject());
        return list.back() != nullptr;
    });
    if (read) {
        out = std::move(list);
    }
    return read;
}

void VrexStreamDecoder::enterObject(const std::shared_ptr<VrexBaseObject>& object) {
    if (const auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(object)) {
        enterGeometry(geometry, nullptr);
    } else if (const auto constraint = std::dynamic_pointer_cast<VrexBaseConstraint>(object)) {
        enterConstraint(constraint);
    }
}

void VrexStreamDecoder::enterGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry,
                                      VrexGeometry3D* entity) {
    VrexDecodedObjects::Slots& slots = m_objects.at(geometry->getID());
    slots.geometry = geometry;
    slots.entity = entity;
}

void VrexStreamDecoder::enterConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    m_objects.at(constraint->getID()).constraint = constraint;
}

const std::shared_ptr<VrexBaseGeometry>& VrexStreamDecoder::findGeometry(std::uint64_t id) const {
    const VrexDecodedObjects::Slots* const slots = m_objects.find(id);
    return slots != nullptr ? slots->geometry : NOTHING.geometry;
}

const std::shared_ptr<VrexBaseConstraint>& VrexStreamDecoder::findConstraint(std::uint64_t id) const {
    const VrexDecodedObjects::Slots* const slots = m_objects.find(id);
    return slots != nullptr ? slots->constraint : NOTHING.constraint;
}

std::shared_ptr<VrexGeometry3D> VrexStreamDecoder::findEntity(std::uint64_t id) const {
    const VrexDecodedObjects::Slots* const slots = m_objects.find(id);
    return slots != nullptr && slots->entity != nullptr
               ? std::shared_ptr<VrexGeometry3D>(slots->geometry, slots->entity)
               : nullptr;
}

std::shared_ptr<VrexBaseObject> VrexStreamDecoder::findObject(std::uint64_t id) const {
    if (const auto& geometry = findGeometry(id)) {
        return geometry;
    }
    return findConstraint(id);
}

VrexStreamDecoder::Scope::Scope(VrexStreamDecoder& decoder)
    : m_decoder(decoder),
      m_position(decoder.m_position),
      m_size(decoder.m_size),
      m_open(decoder.openBlock()) {}

VrexStreamDecoder::Scope::~Scope() {
    m_decoder.m_size = m_size;
    if (!m_closed) {
        m_decoder.m_position = m_position;
    }
}

/// A block that reaches beyond the enclosing one is not opened.
bool VrexStreamDecoder::openBlock() {
    std::uint32_t length = 0;
    if (!expectTag() || !readU32(length) || length > m_size - m_position) {
        return false;
    }
    m_size = m_position + length;
    return true;
}

bool VrexStreamDecoder::readBytes(void* out, std::uint32_t count) {
    if (count > m_size - m_position) {
        return false;
    }
    std::memcpy(out, m_input + m_position, count);
    m_position += count;
    return true;
}

/// Most options are absent, which is told without opening their blocks.
template <class Value>
bool VrexStreamDecoder::readOptional(std::optional<Value>& out) {
    std::uint8_t tag = 0;
    std::uint32_t length = 0;
    const std::uint32_t start = m_position;
    if (!readPacked(tag, length) || tag != VrexStreamEncoder::TAG ||
        (length != 0 && length != sizeof(Value))) {
        m_position = start;
        return false;
    }
    if (length == 0) {
        out.reset();
        return true;
    }
    Value value;
    if (!readPacked(value)) {
        m_position = start;
        return false;
    }
    out = value;
    return true;
}

/// All numbers of a list in one step.
template <class Number>
bool VrexStreamDecoder::readNumbers(std::vector<Number>& out) {
    return readBlock([&] {
        const std::uint32_t bytes = m_size - m_position;
        if (bytes % sizeof(Number) != 0) {
            return false;
        }
        out.resize(bytes / sizeof(Number));
        return bytes == 0 || readBytes(out.data(), bytes);
    });
}
