#include "data/graph/VrexVertexIndex.h"

#include <algorithm>
#include <stdexcept>

#include "data/VrexLog.h"

void VrexVertexIndex::reserve(std::size_t count) {
    m_chains.reserve(count);
    m_objects.reserve(count);
    m_types.reserve(count);
}

void VrexVertexIndex::raiseTooMany() { VREX_RAISE(std::length_error, "Too many objects for one graph."); }

void VrexVertexIndex::noteRepeated(std::uint32_t before, VrexVertexType type) {
    m_repeated = true;
    if (this->type(before) != type) {
        m_behind[id(before)] = before;
    }
}

std::uint32_t VrexVertexIndex::findBehind(VrexVertexType type, std::uint64_t id) const {
    const auto found = m_behind.find(id);
    return found != m_behind.end() && this->type(found->second) == type ? found->second : NONE;
}

std::vector<std::uint32_t> VrexVertexIndex::byID(VrexVertexType type) const {
    std::vector<std::uint32_t> indices;
    for (std::uint32_t index = 0; index < size(); ++index) {
        if (this->type(index) == type && (!m_repeated || find(type, id(index)) == index)) {
            indices.push_back(index);
        }
    }
    std::sort(indices.begin(), indices.end(),
              [this](std::uint32_t left, std::uint32_t right) { return id(left) < id(right); });
    return indices;
}
