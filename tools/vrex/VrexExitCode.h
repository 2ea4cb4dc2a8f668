#pragma once

/// How the tool ends. The manual page has the same table.
enum class VrexExitCode {
    FINE = 0,
    USAGE = 1,             ///< Arguments that make no sense together or for this input.
    INVALID = 2,           ///< What was read is no system, or holds what is refused.
    NOT_CONVERGED = 3,     ///< Something was not solved.
    OVER_CONSTRAINED = 4,  ///< Constraints say the same or contradict each other.
    UNDER_CONSTRAINED = 5, ///< Freedom is left, and none was to be.
    IO_FAILURE = 6,        ///< A file or a stream cannot be read or written.
    DIFFERENT = 7          ///< What was compared is not the same.
};
