#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/equation/VrexBaseEquation.h"

/// An equation whose function is a callback. Copies share what the callback refers to.
class VREX_DATA_EXPORT VrexCallbackEquation final : public VrexBaseEquation {
public:
    /// Its results bring derivatives by the indices that those of the arguments have.
    using Callback = std::function<VrexVariable(const std::vector<VrexVariable>&)>;

    /// Without descriptors; never null. Nothing is checked, so that an empty callback shows at the first
    /// evaluation only.
    [[nodiscard]] static std::shared_ptr<VrexCallbackEquation> create(VrexEquationConditionType type,
                                                                      Callback callback);
    [[nodiscard]] static std::shared_ptr<VrexCallbackEquation>
    create(std::vector<VrexVariableDescriptor> descriptors, VrexEquationConditionType type,
           Callback callback);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;

    const Callback& callback() const { return m_callback; }

private:
    friend class VrexObjectAccess;

    VrexCallbackEquation(VrexEquationConditionType type, Callback callback);
    VrexCallbackEquation(const VrexCallbackEquation&) = default;
    VrexCallbackEquation& operator=(VrexCallbackEquation&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Throws what the callback throws, `std::bad_function_call` for an empty one.
    VrexVariable evaluateInternal(const std::vector<VrexVariable>& args) override;

    Callback m_callback;
};
