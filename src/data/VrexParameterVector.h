#pragma once

#include <cstdint>
#include <span>

#include "data/VrexExport.h"

/// The real parameters of one object, addressed by a 32-bit index.
///
/// Up to `INLINE_CAPACITY` numbers live inside, enough for points, planes and spheres, so that making or
/// copying one allocates once; longer vectors live in one heap block of exactly their length. Indices are
/// unchecked.
class VREX_DATA_EXPORT VrexParameterVector {
public:
    static constexpr std::uint32_t INLINE_CAPACITY = 4;

    VrexParameterVector() noexcept : m_size(0) {}
    /// `size` zeros.
    explicit VrexParameterVector(std::uint32_t size);
    VrexParameterVector(const VrexParameterVector& other);
    /// Leaves `other` empty.
    VrexParameterVector(VrexParameterVector&& other) noexcept;
    VrexParameterVector& operator=(const VrexParameterVector& other);
    /// Leaves `other` empty.
    VrexParameterVector& operator=(VrexParameterVector&& other) noexcept;
    ~VrexParameterVector() { release(); }

    std::uint32_t size() const { return m_size; }
    double operator[](std::uint32_t index) const { return data()[index]; }
    double& operator[](std::uint32_t index) { return data()[index]; }
    std::span<const double> values() const { return {data(), m_size}; }

private:
    bool isInline() const { return m_size <= INLINE_CAPACITY; }
    const double* data() const { return isInline() ? m_inline : m_heap; }
    double* data() { return isInline() ? m_inline : m_heap; }
    void release() {
        if (!isInline()) {
            delete[] m_heap;
        }
    }
    void copyFrom(const VrexParameterVector& other);
    void stealFrom(VrexParameterVector& other) noexcept;

    std::uint32_t m_size;
    union {
        double m_inline[INLINE_CAPACITY];
        double* m_heap;
    };
};
