#include "data/base/VrexBaseDataManager.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"

template <class T>
VrexBaseDataManager<T>::~VrexBaseDataManager() = default;

template <class T>
void VrexBaseDataManager<T>::clear() {
    m_dataMap.clear();
}

template <class T>
bool VrexBaseDataManager<T>::addData(const std::shared_ptr<T>& object) {
    return object != nullptr && m_dataMap.try_emplace(object->getID(), object).second;
}

template <class T>
bool VrexBaseDataManager<T>::removeData(std::uint64_t id) {
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
