#include "data/base/VrexBaseDataFactory.h"

#include "data/base/VrexDefaultToleranceGetter.h"

VrexBaseDataFactory::VrexBaseDataFactory(VrexLogRecorder& logRecorder) : m_logRecorder(logRecorder) {}

double VrexBaseDataFactory::getLinearTolerance() const {
    return m_toleranceGetter != nullptr ? m_toleranceGetter->getLinearTolerance()
                                        : VrexDefaultToleranceGetter::LINEAR_TOLERANCE;
}

double VrexBaseDataFactory::getAngularTolerance() const {
    return m_toleranceGetter != nullptr ? m_toleranceGetter->getAngularTolerance()
                                        : VrexDefaultToleranceGetter::ANGULAR_TOLERANCE;
}
