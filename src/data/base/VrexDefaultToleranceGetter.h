#pragma once

#include "data/VrexExport.h"
#include "data/base/VrexToleranceGetter.h"

/// The tolerances of a system that sets none.
class VREX_DATA_EXPORT VrexDefaultToleranceGetter final : public VrexToleranceGetter {
public:
    static constexpr double LINEAR_TOLERANCE = 1e-8;
    static constexpr double ANGULAR_TOLERANCE = 1e-11;

    double getLinearTolerance() const override;
    double getAngularTolerance() const override;
};
