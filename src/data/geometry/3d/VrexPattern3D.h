#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3DType.h"

/// One direction of repetition: kind `PATTERN`, name prefix "pat", one degree of freedom.
///
/// Parameters: slot VALUE holds the step from one element to the next, a length along the axis line for a
/// linear pattern, an angle about it in radians for a circular one.
class VREX_DATA_EXPORT VrexPattern3D final : public VrexGeometry3D {
public:
    static constexpr int VALUE = 0;
    static constexpr int PARAMETERS_AMOUNT = 1;
    /// A pattern without identifier; never null. `axisLine` may be null.
    [[nodiscard]] static std::shared_ptr<VrexPattern3D>
    create(VrexPattern3DType patternType, std::shared_ptr<VrexLine3D> axisLine, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The axis line, if there is one.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when the step differs from the latest snapshot's by more than `tolerance`; false without a
    /// snapshot. `second` has no meaning for a pattern.
    bool checkChanged(double tolerance, double second) const override;
    bool isPattern() const override; ///< True.

    VrexPattern3DType getPatternType() const { return m_patternType; }
    void setPatternType(VrexPattern3DType patternType) { m_patternType = patternType; }
    const std::shared_ptr<VrexLine3D>& getAxisLine() const { return m_axisLine; }
    void setAxisLine(std::shared_ptr<VrexLine3D> axisLine);
    double getValue() const { return getParameter(VALUE); }
    void setValue(double value);

private:
    friend class VrexObjectAccess;

    VrexPattern3D(VrexPattern3DType patternType, std::shared_ptr<VrexLine3D> axisLine, double value);
    VrexPattern3D(const VrexPattern3D&) = default;
    VrexPattern3D& operator=(VrexPattern3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the axis line.
    void doUpdateFrom(const VrexBaseObject& other) override;

    VrexPattern3DType m_patternType;
    std::shared_ptr<VrexLine3D> m_axisLine;
};
