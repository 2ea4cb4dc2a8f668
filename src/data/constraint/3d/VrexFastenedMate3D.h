#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"

class VrexConnector3D;

/// A joint that holds both sides together: kind `FastenedMate3D`, degree of constraint 6, no dimension.
class VREX_DATA_EXPORT VrexFastenedMate3D final : public VrexMate3D {
public:
    static constexpr int DIMENSIONS_AMOUNT = 0;
    /// A mate without identifier; never null. Null connectors are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexFastenedMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexFastenedMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                       const std::shared_ptr<VrexConnector3D>& connector2);
    VrexFastenedMate3D(const VrexFastenedMate3D&) = default;
    VrexFastenedMate3D& operator=(VrexFastenedMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
