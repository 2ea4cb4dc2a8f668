#pragma once

class VrexSolverBuilder;
class VrexTransform3D;

/// What a drag asks for: entities at the places where its matrices take them, sizes and variables at its
/// values. All of it gives way to the constraints.
namespace nsDragWishes {

void add(VrexSolverBuilder& builder, const VrexTransform3D& drag);

} // namespace nsDragWishes
