#include "data/geometry/3d/VrexBasisDerivatives.h"

#include <array>

#include "data/geometry/3d/VrexUnrolled.h"

namespace {

template <std::size_t Degree, std::size_t Order>
void differentiateOnce(nsUnrolled::Constant<Degree> degree, nsUnrolled::Constant<Order> order,
                       const double* span, double t, double* rows) {
    using Derivatives =
        VrexBasisDerivatives<double, nsUnrolled::Constant<Degree>, nsUnrolled::Constant<Order>>;
    // An array of its own, which the compiler keeps in registers.
    std::array<double, Derivatives::scratchSize(Degree, Order)> scratch;
    Derivatives(degree, order, scratch.data()).calculate(span, t);
    nsUnrolled::repeat(nsUnrolled::Constant<(Order + 1) * (Degree + 1)>(),
                       [&](std::size_t i) { rows[i] = scratch[i]; });
}

void differentiateOnce(std::size_t degree, std::size_t order, const double* span, double t, double* scratch) {
    VrexBasisDerivatives<double>(degree, order, scratch).calculate(span, t);
}

} // namespace

template <>
void nsBasis::differentiate(std::size_t degree, std::size_t order, const double* span, const double& t,
                            double* scratch) {
    nsUnrolled::call(degree, order, [&](auto p, auto d) { differentiateOnce(p, d, span, t, scratch); });
}
