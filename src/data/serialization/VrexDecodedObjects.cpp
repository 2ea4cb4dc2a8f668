#include "data/serialization/VrexDecodedObjects.h"

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"

VrexDecodedObjects::VrexDecodedObjects(std::uint32_t most) : m_most(most) {}

VrexDecodedObjects::~VrexDecodedObjects() = default;

/// Objects stand behind what they refer to, so the first one need not have the lowest number.
void VrexDecodedObjects::openRow(std::uint64_t id) {
    m_first = id > m_most ? id - m_most : 0;
    m_row.reserve(m_most);
}

VrexDecodedObjects::Slots& VrexDecodedObjects::at(std::uint64_t id) {
    if (m_row.capacity() == 0) {
        openRow(id);
    }
    const std::uint64_t place = id - m_first; // Wraps around for lower ones.
    if (place >= 2 * m_most) {
        return m_others[id];
    }
    if (place >= m_row.size()) {
        m_row.resize(place + 1);
    }
    return m_row[place];
}

const VrexDecodedObjects::Slots* VrexDecodedObjects::find(std::uint64_t id) const {
    const std::uint64_t place = id - m_first;
    if (place < m_row.size()) {
        return &m_row[place];
    }
    const auto found = m_others.find(id);
    return found != m_others.end() ? &found->second : nullptr;
}
