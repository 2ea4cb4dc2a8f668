#include "data/base/VrexBaseDataManager.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"

template <class T>
VrexBaseDataManager<T>::VrexBaseDataManager(const VrexBaseDataManager& other) : m_dataMap(other.m_dataMap) {
    for (const auto& [id, object] : m_dataMap) {
        m_shortcuts.prepare(id, m_dataMap.size());
        m_shortcuts.set(id, &object);
    }
}

template <class T>
VrexBaseDataManager<T>& VrexBaseDataManager<T>::operator=(const VrexBaseDataManager& other) {
    VrexBaseDataManager copy(other);
    m_dataMap.swap(copy.m_dataMap);
    m_shortcuts.swap(copy.m_shortcuts);
    return *this;
}

template <class T>
VrexBaseDataManager<T>::~VrexBaseDataManager() = default;

template <class T>
void VrexBaseDataManager<T>::clear() {
    m_shortcuts.clear();
    m_dataMap.clear();
}

template <class T>
bool VrexBaseDataManager<T>::addData(const std::shared_ptr<T>& object) {
    if (object == nullptr) {
        return false;
    }
    const std::uint64_t id = object->getID();
    m_shortcuts.prepare(id, m_dataMap.size());
    const auto [entry, isNew] = m_dataMap.try_emplace(id, object);
    m_shortcuts.set(id, &entry->second);
    return isNew;
}

template <class T>
bool VrexBaseDataManager<T>::removeData(std::uint64_t id) {
    m_shortcuts.set(id, nullptr);
    return m_dataMap.erase(id) != 0;
}

template <class T>
std::vector<std::uint64_t> VrexBaseDataManager<T>::getDataIdsByOrder() const {
    std::vector<std::uint64_t> ids;
    ids.reserve(m_dataMap.size());
    for (const auto& [id, object] : m_dataMap) {
        ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

template <class T>
const std::string& VrexBaseDataManager<T>::getLabel(std::uint64_t id) const {
    const auto found = m_dataMap.find(id);
    return found != m_dataMap.end() ? std::as_const(*found->second).label() : m_emptyLabel;
}

template <class T>
bool VrexBaseDataManager<T>::setLabel(std::uint64_t id, const std::string& label) {
    const auto found = m_dataMap.find(id);
    if (found == m_dataMap.end()) {
        return false;
    }
    found->second->label() = label;
    found->second->setDirty(true);
    return true;
}

template <class T>
void VrexBaseDataManager<T>::updateData(const std::vector<std::shared_ptr<T>>& objects) {
    for (const auto& element : objects) {
        const std::shared_ptr<T> stored = element != nullptr ? findData(element->getID()) : nullptr;
        if (stored == nullptr) {
            continue;
        }
        const VrexBaseObject& source = *element;
        const VrexBaseObject& target = *stored;
        if (typeid(source) == typeid(target)) {
            stored->updateFrom(element);
        } else {
            VREX_LOG(nsLog::REFUSAL, "Object %llu is not updated from an object of another class.",
                     static_cast<unsigned long long>(element->getID()));
        }
    }
}

template <class T>
void VrexBaseDataManager<T>::clearDirtyFlag() {
    for (const auto& [id, object] : m_dataMap) {
        object->setDirty(false);
    }
}

template class VrexBaseDataManager<VrexBaseGeometry>;
template class VrexBaseDataManager<VrexBaseConstraint>;
