#include "data/constraint/equation/VrexEquationCallback.h"

#include <cstddef>
#include <utility>

#include <boost/container/small_vector.hpp>

VrexEquationCallback::VrexEquationCallback(Callback callback) : m_callback(std::move(callback)) {}

VrexVariable VrexEquationCallback::operator()(const std::vector<VrexVariable>& args) const {
    // As many as a variable holds derivatives without allocating.
    constexpr std::size_t FEW = VrexVariable::Derivatives::INLINE_CAPACITY;
    boost::container::small_vector<double, FEW> values;
    for (const VrexVariable& arg : args) {
        values.push_back(arg.value());
    }
    boost::container::small_vector<double, FEW> gradient(args.size(), 0.0);
    VrexVariable result(m_callback(values.data(), static_cast<unsigned int>(args.size()), gradient.data()));
    for (std::size_t i = 0; i < args.size(); ++i) {
        const auto& derivatives = args[i].derivatives();
        if (gradient[i] != 0.0 && !derivatives.empty()) {
            result.derivatives().set(derivatives.begin()->key, gradient[i]);
        }
    }
    return result;
}
