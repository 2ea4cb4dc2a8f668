#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexArrayPattern3D;
class VrexGeometry3D;

/// A geometry that is the copy of another, placed by the steps of an array pattern: kind `Instance3D`.
///
/// The list holds the first geometry, the second, and the array pattern; one coefficient a pattern says how
/// many of its steps to take. It is the one constraint that satisfies itself.
class VREX_DATA_EXPORT VrexInstance3D final : public VrexConstraint3D {
public:
    /// Whether all three are there, there are as many coefficients as patterns, and the geometries are
    /// compatible: of one kind and, as far as the kind has them, of the same members pair by pair, the same
    /// profile, knots, rows or number of control points, or expressions over the same parameters.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexArrayPattern3D>& arrayPattern,
                                        const std::shared_ptr<VrexGeometry3D>& first,
                                        const std::shared_ptr<VrexGeometry3D>& second,
                                        const std::vector<std::int32_t>& coefficients);
    /// A constraint without identifier; null when `canCreate` says no, which leaves no message.
    [[nodiscard]] static std::shared_ptr<VrexInstance3D>
    create(const std::shared_ptr<VrexGeometry3D>& first, const std::shared_ptr<VrexGeometry3D>& second,
           const std::shared_ptr<VrexArrayPattern3D>& arrayPattern,
           const std::vector<std::int32_t>& coefficients);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override; ///< The freedom of the first geometry less 1.
    /// Lays the values of the first geometry and of its parts onto the second and its parts, pair by pair,
    /// and moves the second into place. Doing so again changes nothing.
    ///
    /// The first geometry stays as it is: what it is built on is neither written nor moved, also where the
    /// second shares it. Assumes `checkData()`. Throws what `getInstanceTransform` throws and what
    /// `VrexAssigner3D` throws, as for an evaluated surface; the second may then be half written.
    void satisfy() override;

    std::shared_ptr<VrexArrayPattern3D> getArrayPattern() const;
    const std::vector<std::int32_t>& getCoefficients() const { return m_coefficients; }
    /// Stores a list of any length; `checkData` tells whether it fits.
    void setCoefficients(const std::vector<std::int32_t>& coefficients) { m_coefficients = coefficients; }
    /// Whether what `canCreate` asks still holds.
    bool checkData() const;
    /// The motion from the first geometry to the second: all linear steps, then the turn about the axis of
    /// the circular pattern, if there is one. Throws `std::out_of_range` for a null pattern, a pattern
    /// without axis line, and too few coefficients.
    /// Kept: coefficients are counted over linear patterns, and the circular one takes that of the next
    /// linear one, or the one behind the last. Only with the circular pattern at the end does each pattern
    /// have its own.
    VrexTransformMatrix3D getInstanceTransform() const;

private:
    friend class VrexObjectAccess;

    VrexInstance3D(const std::shared_ptr<VrexGeometry3D>& first,
                   const std::shared_ptr<VrexGeometry3D>& second,
                   const std::shared_ptr<VrexArrayPattern3D>& arrayPattern,
                   const std::vector<std::int32_t>& coefficients);
    VrexInstance3D(const VrexInstance3D&) = default;
    VrexInstance3D& operator=(VrexInstance3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::vector<std::int32_t> m_coefficients;
};
