#pragma once

#include <filesystem>
#include <string_view>

#include "exchange/VrexExchangeExport.h"
#include "exchange/VrexUrdfImport.h"
#include "exchange/VrexUrdfOptions.h"

/// Reads robot descriptions (URDF) into systems.
///
/// A link becomes a rigid set where it stands when all joint values are 0, with the spheres, cylinders and
/// boxes of its looks as members; the root link is fixed. A joint becomes a connector on either link with the
/// joint's axis as Z, and the mate of its kind, whose first dimension is the joint's value less the offset
/// of a `mimic`. What mimics and what is coupled becomes a mate relation, what closes a loop one more mate.
/// No mesh is opened, and what is left out is among the findings. One thread at a time.
class VREX_EXCHANGE_EXPORT VrexUrdfReader {
public:
    explicit VrexUrdfReader(VrexUrdfOptions options = {});

    /// Throws `std::filesystem::filesystem_error` for a file that cannot be read, the loop file that the
    /// options name included.
    VrexUrdfImport read(const std::filesystem::path& file) const;
    /// Reads texts; `loops` is that of a loop file, if not empty. No file is opened: the loop file of the
    /// options is what findings name.
    VrexUrdfImport readText(std::string_view robot, std::string_view loops = {}) const;

    /// The loop file that is read with a robot file where the options name none.
    static std::filesystem::path loopFileBeside(const std::filesystem::path& file);

private:
    VrexUrdfOptions m_options;
};
