#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "solver/VrexSolverBuilder.h"

class VrexMate3D;

/// The joints. All measure the second connector in the frame of the first.
namespace nsMateResiduals {

/// A degree in which two connectors stand to each other.
enum class Degree : std::int32_t {
    SHIFT_X, ///< The second origin in the first frame.
    SHIFT_Y,
    SHIFT_Z,
    TILT_X, ///< Component X in the first frame of the second Z axis.
    TILT_Y,
    TWIST, ///< The angle from the first X axis to the second about Z.
    SWING, ///< The angle between the Z axes.
};

/// Holds the degrees of `held` at zero. Those of `free` are the mate's dimensions, in order: held where
/// the dimension is fixed, else kept within its limits; where they end up is written into the mate.
///
/// The Z axes point the same way, with the alignment `Negative` opposite ways.
void add(VrexSolverBuilder& builder, VrexMate3D& mate, std::vector<Degree> held,
         const std::vector<Degree>& free);

/// The dimension of this index as a number that varies: what a relation between mates ties. Empty for a
/// mate that the component lacks, and for an index beyond the dimensions.
VrexSolverBuilder::Measure dimension(VrexSolverBuilder& builder, VrexMate3D& mate, std::uint64_t index);

} // namespace nsMateResiduals
