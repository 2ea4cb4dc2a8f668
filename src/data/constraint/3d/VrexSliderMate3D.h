#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that slides along one axis without turning: kind `SliderMate3D`, degree of constraint 5, one
/// dimension.
class VREX_DATA_EXPORT VrexSliderMate3D final : public VrexMate3D {
public:
    static constexpr int DISTANCE = 0;
    static constexpr int DIMENSIONS_AMOUNT = 1;
    /// A mate without identifier, its dimension 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexSliderMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& distanceLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexMateDimension3D& getDistance() { return getDimension(DISTANCE); }
    const VrexMateDimension3D& getDistance() const { return getDimension(DISTANCE); }

private:
    friend class VrexObjectAccess;

    VrexSliderMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                     const std::shared_ptr<VrexConnector3D>& connector2);
    VrexSliderMate3D(const VrexSliderMate3D&) = default;
    VrexSliderMate3D& operator=(VrexSliderMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
