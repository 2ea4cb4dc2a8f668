#pragma once

#include <array>
#include <cstddef>

/// What a surface is at one pair of parameters: the point and its partial derivatives up to the second order
/// in each parameter, zero where nothing was evaluated. `T` is a vector of `double` or of `VrexVariable`.
///
/// Element 3 i + j is the derivative of order i by u and j by v: 0 the point, 1 dS/dv, 2 d2S/dv2, 3 dS/du,
/// 4 d2S/dudv, 6 d2S/du2. An index outside 0..8 is undefined.
template <typename T>
class VrexSurfaceSample {
public:
    static constexpr int HIGHEST_ORDER = 2;
    static constexpr std::size_t SIZE = 9;

    static constexpr std::size_t index(int orderU, int orderV) {
        return (HIGHEST_ORDER + 1) * static_cast<std::size_t>(orderU) + static_cast<std::size_t>(orderV);
    }

    T& operator[](std::size_t index) { return m_elements[index]; }
    const T& operator[](std::size_t index) const { return m_elements[index]; }

    [[nodiscard]] auto begin() { return m_elements.begin(); }
    [[nodiscard]] auto begin() const { return m_elements.begin(); }
    [[nodiscard]] auto end() { return m_elements.end(); }
    [[nodiscard]] auto end() const { return m_elements.end(); }
    static constexpr std::size_t size() { return SIZE; }

private:
    std::array<T, SIZE> m_elements{};
};
