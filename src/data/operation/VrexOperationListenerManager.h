#pragma once

#include <list>
#include <memory>

#include "data/VrexExport.h"

class VrexOperation;
class VrexOperationListener;

/// Passes change records to listeners, in the order of their registration. Copies share the listeners. There
/// are no locks.
class VREX_DATA_EXPORT VrexOperationListenerManager {
public:
    /// At the end of the list. One that is registered twice is called twice, a null never.
    void addListener(const std::shared_ptr<VrexOperationListener>& listener);
    /// Ends the first registration of this listener; does nothing for one that has none.
    void removeListener(const std::shared_ptr<VrexOperationListener>& listener);
    /// Calls every listener. One that throws ends the round, and the exception comes out. Listeners should
    /// not add or remove any meanwhile; what they change holds from the next record on.
    void onOperation(const std::shared_ptr<VrexOperation>& operation) const;

private:
    std::list<std::shared_ptr<VrexOperationListener>> m_listeners;
};
