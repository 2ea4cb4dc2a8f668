#pragma once

class VrexFixation3D;
class VrexSolverBuilder;

/// What a fixation holds: all, the direction, the place or a size, as it is at the start.
namespace nsFixationResiduals {

void add(VrexSolverBuilder& builder, VrexFixation3D& fixation);

} // namespace nsFixationResiduals
