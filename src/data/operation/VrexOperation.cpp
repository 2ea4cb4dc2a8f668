#include "data/operation/VrexOperation.h"

VrexOperation::VrexOperation(VrexOperationType type, const std::shared_ptr<VrexOperationData>& data)
    : m_type(type), m_data(data) {}

VrexOperation::VrexOperation(VrexOperationType type, const std::shared_ptr<VrexOperationData>& data,
                             const std::vector<std::shared_ptr<VrexOperationData>>& params)
    : m_type(type), m_data(data), m_params(params) {}
