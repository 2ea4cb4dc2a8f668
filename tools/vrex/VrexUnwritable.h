#pragma once

class VrexBaseObject;
class VrexImmutableSystem3D;

/// Looks why a system cannot be written as a document.
namespace nsVrexUnwritable {

/// The first object that no document can hold, in the order of writing; null where it is none of them.
const VrexBaseObject* find(const VrexImmutableSystem3D& system);

} // namespace nsVrexUnwritable
