#pragma once

#include <memory>

class VrexConstraint3D;
class VrexGeometry3D;
class VrexStreamDecoder;

/// Hidden: the kinds of space in a stream.
namespace nsStreamKinds3D {

/// Reads the type and the fields of its kind, and creates the object with them. Null where the bytes make no
/// sense, and for a type that streams do not have.
std::shared_ptr<VrexGeometry3D> readGeometry(VrexStreamDecoder& stream);

/// The same up to the fields that stand before the identifier, components included.
std::shared_ptr<VrexConstraint3D> readConstraint(VrexStreamDecoder& stream);

} // namespace nsStreamKinds3D
