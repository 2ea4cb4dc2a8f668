#pragma once

#include "data/VrexExport.h"
#include "data/base/VrexBaseObjectFactory.h"

class VrexLogRecorder;

/// The base of the factories: identifiers, the current tolerances, and where refusals go. Copies are shallow.
class VREX_DATA_EXPORT VrexBaseDataFactory : public VrexBaseObjectFactory {
public:
    /// The recorder must outlive the factory.
    explicit VrexBaseDataFactory(VrexLogRecorder& logRecorder);

    /// Not owned; without one the tolerances are those of `VrexDefaultToleranceGetter`.
    void setToleranceGetter(VrexToleranceGetter* getter) { m_toleranceGetter = getter; }

    double getLinearTolerance() const override;
    double getAngularTolerance() const override;

protected:
    ~VrexBaseDataFactory() = default;
    VrexBaseDataFactory(const VrexBaseDataFactory&) = default;
    VrexBaseDataFactory(VrexBaseDataFactory&&) = default;

    VrexToleranceGetter* m_toleranceGetter = nullptr;
    VrexLogRecorder& m_logRecorder;
};
