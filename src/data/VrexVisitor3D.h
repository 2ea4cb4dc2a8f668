#pragma once

#include "data/VrexExport.h"

#define VREX_OBJECT_ROOT(CLASS, VISIT) class CLASS;
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT) class CLASS;
#define VREX_OBJECT_RESERVED(CLASS, VISIT, BASE, BASE_VISIT) class CLASS;
#include "data/VrexObjects.def"

/// Double dispatch over the whole object tree: one visit operation a class, in the slot order of
/// `VrexObjects.def`.
///
/// Each default climbs to the visit of the class's direct base, as a virtual call, so an override at any
/// level catches the whole subtree below it. What nobody overrides ends in `visitBaseObject`, which does
/// nothing: a visitor that must miss no class overrides `visitBaseObject` to throw.
class VREX_DATA_EXPORT VrexVisitor3D {
public:
    VrexVisitor3D() = default;
    VrexVisitor3D(const VrexVisitor3D&) = default;
    VrexVisitor3D& operator=(const VrexVisitor3D&) = default;
    virtual ~VrexVisitor3D();

#define VREX_OBJECT_ROOT(CLASS, VISIT) virtual void VISIT(CLASS& object);
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT) virtual void VISIT(CLASS& object);
#define VREX_OBJECT_RESERVED(CLASS, VISIT, BASE, BASE_VISIT) virtual void VISIT(CLASS& object);
#include "data/VrexObjects.def"
};
