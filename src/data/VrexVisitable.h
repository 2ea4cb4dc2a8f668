#pragma once

#include "data/VrexExport.h"

class VrexVisitor3D;

/// Something that passes a visitor over the objects that it holds.
class VREX_DATA_EXPORT VrexVisitable {
public:
    virtual ~VrexVisitable();
    virtual void accept(VrexVisitor3D& visitor) const = 0;
};
