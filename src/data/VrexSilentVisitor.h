#pragma once

#include "data/VrexVisitor3D.h"

/// The named base of a visitor that means to ignore what it does not handle.
class VREX_DATA_EXPORT VrexSilentVisitor : public VrexVisitor3D {
public:
    void visitBaseObject(VrexBaseObject& object) override;
};
