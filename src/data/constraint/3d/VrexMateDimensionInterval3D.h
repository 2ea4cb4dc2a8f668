#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3DType.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexGeometryVariable;

/// Bounds a dimension of a mate through a variable: kind `MateDimensionInterval3D`, degree of constraint 0.
///
/// The variable is the one element of the geometry list, so an update keeps it; limits, index and type are
/// taken over.
class VREX_DATA_EXPORT VrexMateDimensionInterval3D final : public VrexConstraint3D {
public:
    /// An interval without identifier; never null. Limits are stored as given; a null variable leaves the
    /// geometry list empty.
    [[nodiscard]] static std::shared_ptr<VrexMateDimensionInterval3D>
    create(const std::shared_ptr<VrexGeometryVariable>& variable, const VrexDimensionLimits& limits,
           std::uint64_t dimensionIndex, VrexMateDimensionInterval3DType dimensionType);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexDimensionLimits& limit() { return m_limits; }
    const VrexDimensionLimits& limit() const { return m_limits; }
    /// Null when it was created so.
    std::shared_ptr<VrexGeometryVariable> variable() const;
    /// Which dimension of its mate the variable stands for.
    std::uint64_t dimensionIndex() const { return m_dimensionIndex; }
    VrexMateDimensionInterval3DType getMateDimensionType() const { return m_dimensionType; }
    void setMateDimensionType(VrexMateDimensionInterval3DType type) { m_dimensionType = type; }

private:
    friend class VrexObjectAccess;

    VrexMateDimensionInterval3D(const std::shared_ptr<VrexGeometryVariable>& variable,
                                const VrexDimensionLimits& limits, std::uint64_t dimensionIndex,
                                VrexMateDimensionInterval3DType dimensionType);
    VrexMateDimensionInterval3D(const VrexMateDimensionInterval3D&) = default;
    VrexMateDimensionInterval3D& operator=(VrexMateDimensionInterval3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    VrexDimensionLimits m_limits;
    std::uint64_t m_dimensionIndex;
    VrexMateDimensionInterval3DType m_dimensionType;
};
