#pragma once

#include <optional>
#include <string>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexErrorCode.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraint3DPreValidator.h"

class VrexConstraint3D;

/// Asks of constraints that exist what is asked of requests: the validator, and the class itself for kinds
/// that the validator refuses whatever they bind.
class VrexConstraintCheck {
public:
    struct Refusal {
        VrexErrorCode code;
        std::string message;
    };

    VrexConstraintCheck();
    VrexConstraintCheck(const VrexConstraintCheck&) = delete;
    VrexConstraintCheck& operator=(const VrexConstraintCheck&) = delete;

    /// Why the constraint would be refused; nothing where it would not.
    std::optional<Refusal> operator()(VrexConstraint3D& constraint);

private:
    bool isAdmitted(const VrexConstraint3D& constraint) const;

    VrexLogRecorder m_recorder;
    VrexDefaultToleranceGetter m_tolerances;
    VrexConstraint3DPreValidator m_validator;
};
