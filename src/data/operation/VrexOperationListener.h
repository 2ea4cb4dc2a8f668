#pragma once

#include <memory>

#include "data/VrexExport.h"

class VrexOperation;

/// Hears of changes; the application derives from it.
class VREX_DATA_EXPORT VrexOperationListener {
public:
    virtual ~VrexOperationListener();
    virtual void onOperation(const std::shared_ptr<VrexOperation>& operation) = 0;

protected:
    VrexOperationListener() = default;
    VrexOperationListener(const VrexOperationListener&) = default;
    VrexOperationListener(VrexOperationListener&&) = default;
    VrexOperationListener& operator=(const VrexOperationListener&) = default;
    VrexOperationListener& operator=(VrexOperationListener&&) = default;
};
