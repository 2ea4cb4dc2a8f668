#pragma once

#include <cstdint>
#include <optional>

#include "solver/model/VrexSolverBuilder.h"

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

/// Holds the degrees that the kind of mate takes away at zero. Those that it leaves are its dimensions: held
/// where the dimension is fixed, else kept within its limits; where they end up is written into the mate.
///
/// The Z axes point the same way, with the alignment `Negative` opposite ways.
void add(VrexSolverBuilder& builder, VrexMate3D& mate);

/// A dimension as a number that varies.
struct Dimension {
    VrexSolverBuilder::Measure measure;
    double unit = 1.0;
    /// Whether it is the value of the counter.
    bool isCounter = false;
};

/// The dimension of this index. An angle is told up to whole turns by where the bodies stand; the turns are
/// counted by `counter`, a number that is tied to the angle here, or by a new one if it is null, so that the
/// angle grows without end, and is written into the mate. Empty for a mate that the component lacks, and for
/// an index beyond the dimensions.
std::optional<Dimension> dimension(VrexSolverBuilder& builder, VrexMate3D& mate, std::uint64_t index,
                                   const VrexSolverShape* counter);

} // namespace nsMateResiduals
