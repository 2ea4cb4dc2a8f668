#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/base/VrexIDHash.h"
#include "data/base/VrexIDShortcuts.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// The store of a system's live objects of one branch of the object tree, by identifier: `T` is
/// `VrexBaseGeometry` or `VrexBaseConstraint`. It shares its objects with whoever else holds them, and its
/// copies share them too.
///
/// No refusal is recorded here: a miss is null, an empty text or false.
template <class T>
class VREX_DATA_EXPORT VrexBaseDataManager {
public:
    using DataMap = std::unordered_map<std::uint64_t, std::shared_ptr<T>, VrexIDHash>;

    VrexBaseDataManager() = default;
    VrexBaseDataManager(const VrexBaseDataManager& other);
    VrexBaseDataManager& operator=(const VrexBaseDataManager& other);
    virtual ~VrexBaseDataManager();
    virtual void clear();

    /// Stores `object` under its identifier, 0 included. False, with nothing changed, for null and for an
    /// identifier that is taken.
    bool addData(const std::shared_ptr<T>& object);
    bool removeData(std::uint64_t id);
    /// Null where nothing is stored.
    std::shared_ptr<T> findData(std::uint64_t id) const {
        if (const std::shared_ptr<T>* stored = m_shortcuts.find(id)) {
            return *stored;
        }
        const auto found = m_dataMap.find(id);
        return found != m_dataMap.end() ? found->second : nullptr;
    }
    const DataMap& getDataMap() const { return m_dataMap; }
    /// The identifiers, rising; sorts at each call.
    std::vector<std::uint64_t> getDataIdsByOrder() const;

    /// An empty text, valid as long as the manager, for an unknown identifier.
    const std::string& getLabel(std::uint64_t id) const;
    /// Makes the object dirty; false for an unknown identifier.
    bool setLabel(std::uint64_t id, const std::string& label);
    /// Updates each stored object from the element of the same identifier, in place, so that other holders
    /// see it. Passes over null, unknown identifiers and, with a line in the log, elements of another class.
    void updateData(const std::vector<std::shared_ptr<T>>& objects);
    void clearDirtyFlag();

private:
    std::string m_emptyLabel;
    DataMap m_dataMap;
    VrexIDShortcuts<std::shared_ptr<T>> m_shortcuts; ///< Into the map, whose entries stay where they are.
};

extern template class VREX_DATA_EXPORT VrexBaseDataManager<VrexBaseGeometry>;
extern template class VREX_DATA_EXPORT VrexBaseDataManager<VrexBaseConstraint>;
