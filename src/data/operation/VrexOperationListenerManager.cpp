#include "data/operation/VrexOperationListenerManager.h"

#include <algorithm>
#include <vector>

#include "data/operation/VrexOperationListener.h"

void VrexOperationListenerManager::addListener(const std::shared_ptr<VrexOperationListener>& listener) {
    m_listeners.push_back(listener);
}

void VrexOperationListenerManager::removeListener(const std::shared_ptr<VrexOperationListener>& listener) {
    const auto registration = std::ranges::find(m_listeners, listener);
    if (registration != m_listeners.end()) {
        m_listeners.erase(registration);
    }
}

void VrexOperationListenerManager::onOperation(const std::shared_ptr<VrexOperation>& operation) const {
    // Shares of their own: a listener may drop the record, the others and this manager.
    const std::shared_ptr<VrexOperation> record = operation; // NOLINT(performance-unnecessary-copy-*)
    const std::vector<std::shared_ptr<VrexOperationListener>> listeners(m_listeners.begin(),
                                                                        m_listeners.end());
    for (const auto& listener : listeners) {
        if (listener != nullptr) {
            listener->onOperation(record);
        }
    }
}
