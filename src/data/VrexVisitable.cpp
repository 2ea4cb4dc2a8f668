#include "data/VrexVisitable.h"

VrexVisitable::~VrexVisitable() = default;
