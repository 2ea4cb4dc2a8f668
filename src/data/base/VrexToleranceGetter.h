#pragma once

#include "data/VrexExport.h"

/// Where everything learns the tolerances of a system.
class VREX_DATA_EXPORT VrexToleranceGetter {
public:
    /// A length in the model's unit.
    virtual double getLinearTolerance() const = 0;
    /// An angle in radians.
    virtual double getAngularTolerance() const = 0;

protected:
    VrexToleranceGetter() = default;
    VrexToleranceGetter(const VrexToleranceGetter&) = default;
    VrexToleranceGetter& operator=(const VrexToleranceGetter&) = default;
    ~VrexToleranceGetter() = default; ///< Nobody owns a getter through this interface.
};
