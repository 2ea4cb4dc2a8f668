#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexExport.h"
#include "data/VrexPrefetch.h"
#include "data/base/VrexIDHash.h"
#include "data/graph/VrexIndexChains.h"
#include "data/graph/VrexVertexType.h"

/// The objects of a constraint graph in the order of its vertices, found by kind and identifier.
///
/// An identifier is noted when its object is added. Where several objects of one kind share one, the latest
/// is found.
class VREX_DATA_EXPORT VrexVertexIndex {
public:
    using Chains = VrexIndexChains<VrexIDHash>;
    static constexpr std::uint32_t NONE = Chains::NONE;

    std::uint32_t size() const { return m_chains.size(); }
    void reserve(std::size_t count);
    /// At index `size()`. Throws `std::length_error` beyond 2^32 - 1 objects.
    void add(VrexVertexType type, std::shared_ptr<VrexBaseObject>&& object) {
        if (size() == NONE) [[unlikely]] {
            raiseTooMany();
        }
        const std::uint32_t before = m_chains.add(object->getID());
        if (before != NONE) [[unlikely]] {
            noteRepeated(before, type);
        }
        m_objects.push_back(std::move(object));
        m_types.push_back(static_cast<std::uint8_t>(type));
    }
    /// `NONE` where there is none.
    std::uint32_t find(VrexVertexType type, std::uint64_t id) const {
        const std::uint32_t index = m_chains.latest(id);
        if (index != NONE && this->type(index) != type) [[unlikely]] {
            return findBehind(type, id);
        }
        return index;
    }
    /// Where `object` itself is what is found by its kind and identifier, otherwise `NONE`.
    std::uint32_t findItself(VrexVertexType type, const VrexBaseObject& object) const {
        std::uint32_t index = m_chains.latestNear(object.getID());
        if (index != NONE && m_objects[index].get() == &object) {
            return index;
        }
        index = find(type, object.getID());
        return index != NONE && m_objects[index].get() == &object ? index : NONE;
    }
    /// Fetches what is told of the object at `index`.
    void prefetch(std::uint32_t index) const {
        nsPrefetch::line(&m_objects[index]);
        nsPrefetch::line(&m_chains.keys()[index]);
        nsPrefetch::line(&m_types[index]);
    }
    /// Fetches where an object stands that is about to be found, and then, some steps later, its pointer.
    void prefetchPlace(std::uint64_t id) const { m_chains.prefetch(id); }
    void prefetchObject(std::uint64_t id) const {
        const std::uint32_t index = m_chains.latestNear(id);
        if (index != NONE) {
            nsPrefetch::line(&m_objects[index]);
        }
    }
    /// The latest object of either kind.
    std::uint32_t findAny(std::uint64_t id) const { return m_chains.latest(id); }
    VrexVertexType type(std::uint32_t index) const { return static_cast<VrexVertexType>(m_types[index]); }
    const std::shared_ptr<VrexBaseObject>& object(std::uint32_t index) const { return m_objects[index]; }
    std::uint64_t id(std::uint32_t index) const { return m_chains.key(index); }
    const std::vector<std::uint64_t>& ids() const { return m_chains.keys(); }
    /// The indices of all objects of a kind that are found, rising by identifier.
    std::vector<std::uint32_t> byID(VrexVertexType type) const;
    /// Whether an identifier stands at more than one index.
    bool hasRepeatedIDs() const { return m_repeated; }
    void clear() {
        nsPrefetch::dropAll(m_objects);
        *this = {};
    }

private:
    [[noreturn]] static void raiseTooMany();
    /// The identifier of the object at `before` comes again, for one of kind `type`.
    void noteRepeated(std::uint32_t before, VrexVertexType type);
    /// Of an identifier whose latest object is of the other kind.
    std::uint32_t findBehind(VrexVertexType type, std::uint64_t id) const;

    Chains m_chains;
    std::vector<std::shared_ptr<VrexBaseObject>> m_objects;
    std::vector<std::uint8_t> m_types;
    /// By an identifier of both kinds the latest object of the kind that the latest of all is not: however
    /// many share it, each is found at once.
    std::unordered_map<std::uint64_t, std::uint32_t> m_behind;
    bool m_repeated = false;
};
