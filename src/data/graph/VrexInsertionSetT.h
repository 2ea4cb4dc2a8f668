#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "data/VrexPrefetch.h"
#include "data/graph/VrexIndexChains.h"

/// Objects by address, each once, in the order of their insertion. Nulls are not taken.
///
/// Where each stands is found out when somebody first asks, so that a list known to hold each object once is
/// no dearer than a vector; asking is therefore for one thread at a time.
template <class Object>
class VrexInsertionSetT {
public:
    std::size_t size() const { return m_objects.size() - m_erased; }
    bool contains(const Object* object) const { return object != nullptr && find(object) != Chains::NONE; }
    /// False for null and for an object that is there.
    bool insert(const std::shared_ptr<Object>& object) {
        if (object == nullptr || contains(object.get())) {
            return false;
        }
        m_objects.push_back(object);
        return true;
    }
    /// Appends an object that is not there, which the caller knows.
    void append(std::shared_ptr<Object> object) { m_objects.push_back(std::move(object)); }
    void reserveMore(std::size_t count) {
        if (m_objects.size() + count > m_objects.capacity()) {
            m_objects.reserve(std::max(m_objects.size() + count, 2 * m_objects.capacity()));
        }
    }
    bool erase(const Object* object) {
        const std::uint32_t place = object != nullptr ? find(object) : Chains::NONE;
        if (place == Chains::NONE) {
            return false;
        }
        m_objects[place] = nullptr;
        if (++m_erased * 2 > m_objects.size()) {
            std::erase(m_objects, nullptr);
            m_erased = 0;
            m_chains.clear();
        }
        return true;
    }
    void clear() {
        nsPrefetch::dropAll(m_objects);
        *this = {};
    }
    std::vector<std::shared_ptr<Object>> list() const {
        std::vector<std::shared_ptr<Object>> objects;
        objects.reserve(size());
        std::copy_if(m_objects.begin(), m_objects.end(), std::back_inserter(objects),
                     [](const std::shared_ptr<Object>& object) { return object != nullptr; });
        return objects;
    }

private:
    /// Objects lie at any stride of the allocator's: the multiplication spreads it over the upper half.
    struct AddressHash {
        std::size_t operator()(std::uint64_t address) const {
            return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15U) >> 32U);
        }
    };
    using Chains = VrexIndexChains<AddressHash>;

    static std::uint64_t keyOf(const Object* object) { return reinterpret_cast<std::uintptr_t>(object); }

    std::uint32_t find(const Object* object) const {
        if (m_chains.size() < m_objects.size()) {
            if (m_chains.size() == 0) {
                m_chains.reserve(m_objects.size());
            }
            for (std::size_t place = m_chains.size(); place < m_objects.size(); ++place) {
                m_chains.add(keyOf(m_objects[place].get()));
            }
        }
        std::uint32_t place = m_chains.latest(keyOf(object));
        // An object that was erased may have come back, or its address another object.
        while (place != Chains::NONE && m_objects[place] == nullptr) {
            place = m_chains.before(place);
        }
        return place;
    }

    std::vector<std::shared_ptr<Object>> m_objects; ///< Null where one was erased; less than half of them.
    std::size_t m_erased = 0;
    mutable Chains m_chains; ///< Of the first ones of these.
};
