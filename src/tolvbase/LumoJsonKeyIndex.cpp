#include "tolvbase/LumoJsonKeyIndex.h"

#include <algorithm>
#include <stdexcept>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonKeyHash.h"
#include "tolvbase/LumoJsonNode.h"

namespace {

constexpr std::size_t SMALLEST_TABLE = 64;

std::uint32_t hashOf(std::string_view key) {
    return static_cast<std::uint32_t>(LumoJsonKeyHash::ofProcess()(key));
}

std::uint32_t memberAt(std::size_t place) {
    const std::size_t member = place / LumoJsonNode::MEMBER_STRIDE + 1;
    if (member > std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("JSON object has too many members.");
    }
    return static_cast<std::uint32_t>(member);
}

std::size_t placeOf(std::uint32_t member) { return std::size_t{member} * LumoJsonNode::MEMBER_STRIDE - 1; }

} // namespace

LumoJsonKeyIndex::LumoJsonKeyIndex(std::span<const LumoJson> keysAndValues) {
    rebuild(keysAndValues, SMALLEST_TABLE);
}

std::size_t LumoJsonKeyIndex::find(std::span<const LumoJson> keysAndValues, std::string_view key) const {
    const std::uint32_t hash = hashOf(key);
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask; m_slots[at].member != 0; at = (at + 1) & mask) {
        const std::size_t place = placeOf(m_slots[at].member);
        if (m_slots[at].hash == hash && keysAndValues[place - 1].text() == key) {
            return place;
        }
    }
    return NOT_FOUND;
}

void LumoJsonKeyIndex::add(std::span<const LumoJson> keysAndValues, std::string_view key, std::size_t place) {
    const std::uint32_t member = memberAt(place);
    if (2 * (m_size + 1) > m_slots.size()) {
        rebuild(keysAndValues, 2 * m_slots.size());
    }
    enter(hashOf(key), member);
}

void LumoJsonKeyIndex::rebuild(std::span<const LumoJson> keysAndValues, std::size_t slotCount) {
    m_slots.assign(slotCount, {});
    m_size = 0;
    for (std::size_t place = 1; place < keysAndValues.size(); place += LumoJsonNode::MEMBER_STRIDE) {
        enter(hashOf(keysAndValues[place - 1].text()), memberAt(place));
    }
}

void LumoJsonKeyIndex::enter(std::uint32_t hash, std::uint32_t member) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = hash & mask;
    while (m_slots[at].member != 0) {
        at = (at + 1) & mask;
    }
    m_slots[at] = {hash, member};
    ++m_size;
}

std::size_t LumoJsonKeyIndex::longestProbe() const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t longest = 0;
    for (std::size_t at = 0; at <= mask; ++at) {
        if (m_slots[at].member != 0) {
            longest = std::max(longest, ((at - m_slots[at].hash) & mask) + 1);
        }
    }
    return longest;
}
