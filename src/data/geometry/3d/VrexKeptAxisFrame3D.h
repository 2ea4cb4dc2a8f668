#pragma once

#include <bit>
#include <cstdint>
#include <optional>

#include "data/geometry/3d/VrexAxisFrame3D.h"

/// The frame that a calculator used last, with the angles it was built from: building it takes longer than
/// what an evaluation adds to it.
class VrexKeptAxisFrame3D {
public:
    /// The frame at these angles, built anew when the bits of either differ from those of the call before.
    const VrexAxisFrame3D<double>& at(double polar, double azimuthal) {
        if (!m_frame.has_value() || !areSameBits(polar, m_polar) || !areSameBits(azimuthal, m_azimuthal)) {
            m_frame.emplace(polar, azimuthal);
            m_polar = polar;
            m_azimuthal = azimuthal;
        }
        return *m_frame;
    }

private:
    static bool areSameBits(double a, double b) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    }

    double m_polar = 0.0;
    double m_azimuthal = 0.0;
    std::optional<VrexAxisFrame3D<double>> m_frame;
};
