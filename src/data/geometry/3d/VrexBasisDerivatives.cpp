#include "data/geometry/3d/VrexBasisDerivatives.h"

#include <array>
#include <type_traits>

namespace {

template <std::size_t Value>
using Constant = std::integral_constant<std::size_t, Value>;

template <std::size_t Degree, std::size_t Order>
void differentiateUnrolled(const double* span, double t, double* rows) {
    using Derivatives = VrexBasisDerivatives<double, Constant<Degree>, Constant<Order>>;
    std::array<double, Derivatives::scratchSize(Degree, Order)> scratch;
    Derivatives({}, {}, scratch.data()).calculate(span, t);
    std::copy_n(scratch.begin(), (Order + 1) * (Degree + 1), rows);
}

constexpr std::size_t HIGHEST_DEGREE = 3;

/// By degree and order.
constexpr void (*UNROLLED[HIGHEST_DEGREE + 1][HIGHEST_DEGREE + 1])(const double*, double, double*) = {
    {differentiateUnrolled<0, 0>},
    {differentiateUnrolled<1, 0>, differentiateUnrolled<1, 1>},
    {differentiateUnrolled<2, 0>, differentiateUnrolled<2, 1>, differentiateUnrolled<2, 2>},
    {differentiateUnrolled<3, 0>, differentiateUnrolled<3, 1>, differentiateUnrolled<3, 2>,
     differentiateUnrolled<3, 3>}};

} // namespace

template <>
void nsBasis::differentiate(std::size_t degree, std::size_t order, const double* span, const double& t,
                            double* scratch) {
    if (degree <= HIGHEST_DEGREE) {
        UNROLLED[degree][order](span, t, scratch);
    } else {
        VrexBasisDerivatives<double>(degree, order, scratch).calculate(span, t);
    }
}
