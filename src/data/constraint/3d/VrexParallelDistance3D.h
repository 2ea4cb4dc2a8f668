#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexGeometry3D;
class VrexPoint3D;

/// The distance between two points along the direction of a third entity: kind `ParallelDistance3D`, degree
/// of constraint 1.
class VREX_DATA_EXPORT VrexParallelDistance3D final : public VrexDimension3D {
public:
    static constexpr double m_defaultTolerance = 1e-6; ///< For callers; nothing here reads it.

    /// Whether all three are there and `geometry` is a line, a plane, or a curve or surface with an axis.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                        const std::shared_ptr<VrexPoint3D>& point2,
                                        const std::shared_ptr<VrexGeometry3D>& geometry);
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexParallelDistance3D>
    create(const std::shared_ptr<VrexPoint3D>& point1, const std::shared_ptr<VrexPoint3D>& point2,
           const std::shared_ptr<VrexGeometry3D>& geometry, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpPointSupported() const override;     ///< True.
    bool isHelpParameterSupported() const override; ///< True.

    /// The entity that gives the direction; null when it was created so.
    std::shared_ptr<VrexGeometry3D> getDirectionGeometry() const { return geometry(3); }

private:
    friend class VrexObjectAccess;

    VrexParallelDistance3D(const std::shared_ptr<VrexPoint3D>& point1,
                           const std::shared_ptr<VrexPoint3D>& point2,
                           const std::shared_ptr<VrexGeometry3D>& geometry, double value);
    VrexParallelDistance3D(const VrexParallelDistance3D&) = default;
    VrexParallelDistance3D& operator=(VrexParallelDistance3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
