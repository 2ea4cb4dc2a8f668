#include "data/VrexSilentVisitor.h"

void VrexSilentVisitor::visitBaseObject(VrexBaseObject&) {}
