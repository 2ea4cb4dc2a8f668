#include "data/operation/VrexOperationListener.h"

VrexOperationListener::~VrexOperationListener() = default;
