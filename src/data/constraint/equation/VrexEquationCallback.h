#pragma once

#include <functional>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"

/// Makes a function over plain numbers, which tells its gradient, the function of a `VrexCallbackEquation`.
///
/// Each argument is taken for an independent variable: its first derivative entry names it, and is taken for
/// 1.
class VREX_DATA_EXPORT VrexEquationCallback {
public:
    /// Of values and their count; the gradient, zeros so far, is its to write.
    using Callback = std::function<double(const double*, unsigned int, double*)>;
    /// The plain form, of which the compact stream carries the address.
    using Function = double (*)(const double*, unsigned int, double*);

    explicit VrexEquationCallback(Callback callback);

    const Callback& callback() const { return m_callback; }
    /// The callback's value; its derivative by argument i is the gradient's entry i, where that is not 0 and
    /// the argument has a derivative entry. Kept: of arguments with the same index the last one's gradient
    /// stands; they are not summed. Throws what the callback throws, `std::bad_function_call` for an empty
    /// one.
    VrexVariable operator()(const std::vector<VrexVariable>& args) const;

private:
    Callback m_callback;
};
