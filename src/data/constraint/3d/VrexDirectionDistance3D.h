#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexPoint3D;

/// The distance between two points along a direction: kind `DirectionDistance3D`, degree of constraint 1.
///
/// The direction is a vector of the dimension's own and kept at any length.
class VREX_DATA_EXPORT VrexDirectionDistance3D final : public VrexDimension3D {
public:
    static constexpr double m_defaultTolerance = 1e-6; ///< For callers; nothing here reads it.

    /// Whether both points are there.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                        const std::shared_ptr<VrexPoint3D>& point2);
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexDirectionDistance3D>
    create(const std::shared_ptr<VrexPoint3D>& point1, const std::shared_ptr<VrexPoint3D>& point2,
           const VrexVector3DT<double>& direction, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpPointSupported() const override;     ///< True.
    bool isHelpParameterSupported() const override; ///< True.

    const VrexVector3DT<double>& getDirectionVector() const { return m_direction; }
    void setDirectionVector(const VrexVector3DT<double>& direction) { m_direction = direction; }

private:
    friend class VrexObjectAccess;

    VrexDirectionDistance3D(const std::shared_ptr<VrexPoint3D>& point1,
                            const std::shared_ptr<VrexPoint3D>& point2,
                            const VrexVector3DT<double>& direction, double value);
    VrexDirectionDistance3D(const VrexDirectionDistance3D&) = default;
    VrexDirectionDistance3D& operator=(VrexDirectionDistance3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    VrexVector3DT<double> m_direction;
};
