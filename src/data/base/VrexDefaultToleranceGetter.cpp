#include "data/base/VrexDefaultToleranceGetter.h"

double VrexDefaultToleranceGetter::getLinearTolerance() const { return LINEAR_TOLERANCE; }

double VrexDefaultToleranceGetter::getAngularTolerance() const { return ANGULAR_TOLERANCE; }
