#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexPattern3D;

/// The step of a pattern, a length or an angle as the pattern goes: kind `PatternValue3D`, degree of
/// constraint 1.
class VREX_DATA_EXPORT VrexPatternValue3D final : public VrexDimension3D {
public:
    /// A dimension without identifier; never null. `pattern` may be null.
    [[nodiscard]] static std::shared_ptr<VrexPatternValue3D>
    create(const std::shared_ptr<VrexPattern3D>& pattern, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexPatternValue3D(const std::shared_ptr<VrexPattern3D>& pattern, double value);
    VrexPatternValue3D(const VrexPatternValue3D&) = default;
    VrexPatternValue3D& operator=(VrexPatternValue3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
