#pragma once

#include "data/VrexExport.h"
#include "data/operation/VrexOperationDataType.h"

/// An object that a change record names; which class it is, `getType` tells.
class VREX_DATA_EXPORT VrexOperationData {
public:
    virtual VrexOperationDataType getType() const = 0;
    virtual ~VrexOperationData();

protected:
    VrexOperationData() = default;
    VrexOperationData(const VrexOperationData&) = default;
    VrexOperationData(VrexOperationData&&) = default;
    VrexOperationData& operator=(const VrexOperationData&) = default;
    VrexOperationData& operator=(VrexOperationData&&) = default;
};
