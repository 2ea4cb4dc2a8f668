#include "data/operation/VrexOperationData.h"

VrexOperationData::~VrexOperationData() = default;
