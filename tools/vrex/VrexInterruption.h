#pragma once

/// As long as it lives, the signals by which users end programs are only noted, so that what has been begun
/// can be cleared away. One that nobody looked at takes effect at the end.
///
/// Signals that are ignored, or handled by somebody else, stay so. One at a time.
class VrexInterruption {
public:
    VrexInterruption();
    VrexInterruption(const VrexInterruption&) = delete;
    VrexInterruption& operator=(const VrexInterruption&) = delete;
    ~VrexInterruption();

    /// Whether one came; the asker takes care of it.
    bool takeNote();

private:
    bool m_isTaken = false;
};
