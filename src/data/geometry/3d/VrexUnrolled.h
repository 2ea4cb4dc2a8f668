#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

/// Hidden: lets loops over the degree of a B-spline and the order of its derivatives be unrolled by the
/// compiler where both are of the usual size.
namespace nsUnrolled {

template <std::size_t Value>
using Constant = std::integral_constant<std::size_t, Value>;

/// What sizes are passed as constants.
constexpr std::size_t HIGHEST = 3;

template <std::size_t Degree, std::size_t Order, typename Function>
void callWithOrder(std::size_t order, const Function& function) {
    if (order == Order) {
        function(Constant<Degree>(), Constant<Order>());
    } else if constexpr (Order < Degree) {
        callWithOrder<Degree, Order + 1>(order, function);
    }
}

template <std::size_t Degree, typename Function>
void callWithDegree(std::size_t degree, std::size_t order, const Function& function) {
    if (degree == Degree) {
        callWithOrder<Degree, 0>(order, function);
    } else if constexpr (Degree > 0) {
        callWithDegree<Degree - 1>(degree, order, function);
    }
}

/// Calls `function` with both numbers, `order` being at most `degree`: as integral constants or, when they
/// are greater than that, as they are.
template <typename Function>
void call(std::size_t degree, std::size_t order, const Function& function) {
    if (degree <= HIGHEST) {
        callWithDegree<HIGHEST>(degree, order, function);
    } else {
        function(degree, order);
    }
}

template <std::size_t... I, typename Function>
[[gnu::always_inline]] inline void callWithEach(std::index_sequence<I...> /*numbers*/,
                                                const Function& function) {
    (function(I), ...);
}

/// Calls `function` with 0, ..., `count` - 1; for an integral constant each call stands by itself, with a
/// constant.
template <typename Function>
[[gnu::always_inline]] inline void repeat(std::size_t count, const Function& function) {
    for (std::size_t i = 0; i < count; ++i) {
        function(i);
    }
}
template <std::size_t Count, typename Function>
[[gnu::always_inline]] inline void repeat(Constant<Count> /*count*/, const Function& function) {
    callWithEach(std::make_index_sequence<Count>(), function);
}

} // namespace nsUnrolled
