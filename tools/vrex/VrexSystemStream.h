#pragma once

#include <string>
#include <string_view>

#include "data/serialization/3d/VrexImmutableSystem3D.h"

/// Systems as compact streams, the form of `docs/stream-format.md` that holds one system.
namespace nsVrexSystemStream {

/// Whether the text is a stream rather than a document.
bool isStream(std::string_view text);

/// Throws `VrexToolFailure` for bytes that are no such stream. Equations over functions are refused: they
/// hold addresses of another process. The tolerances are those of a system that sets none.
VrexImmutableSystem3D decode(const std::string& title, std::string_view stream);

/// Throws `VrexToolFailure` that names the object which has no place in a stream, or an identifier that two
/// objects have. Tolerances and drags have none either: see `leavesOut`.
std::string encode(const std::string& title, const VrexImmutableSystem3D& system);

/// Whether the system has what a stream does not keep.
bool leavesOut(const VrexImmutableSystem3D& system);

} // namespace nsVrexSystemStream
