#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/operation/VrexOperationData.h"
#include "data/operation/VrexOperationType.h"

/// One change made to a system: what was done, to which object, with which others. The application records
/// it; a plain value, and copies share the objects.
class VREX_DATA_EXPORT VrexOperation {
public:
    VrexOperation(VrexOperationType type, const std::shared_ptr<VrexOperationData>& data);
    VrexOperation(VrexOperationType type, const std::shared_ptr<VrexOperationData>& data,
                  const std::vector<std::shared_ptr<VrexOperationData>>& params);

    /// Kept: spelled so, since callers name it so.
    VrexOperationType operatoinType() const { return m_type; }
    const std::shared_ptr<VrexOperationData>& operationData() const { return m_data; }
    const std::vector<std::shared_ptr<VrexOperationData>>& operationParams() const { return m_params; }

private:
    VrexOperationType m_type;
    std::shared_ptr<VrexOperationData> m_data;
    std::vector<std::shared_ptr<VrexOperationData>> m_params;
};
