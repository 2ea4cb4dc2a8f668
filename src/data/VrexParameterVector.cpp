#include "data/VrexParameterVector.h"

#include <algorithm>

VrexParameterVector::VrexParameterVector(std::uint32_t size) : m_size(size) {
    if (!isInline()) {
        m_heap = new double[size];
    }
    std::fill_n(data(), size, 0.0);
}

VrexParameterVector::VrexParameterVector(const VrexParameterVector& other) : m_size(0) { copyFrom(other); }

VrexParameterVector::VrexParameterVector(VrexParameterVector&& other) noexcept : m_size(0) {
    stealFrom(other);
}

VrexParameterVector& VrexParameterVector::operator=(const VrexParameterVector& other) {
    if (this != &other) {
        VrexParameterVector copy(other);
        release();
        stealFrom(copy);
    }
    return *this;
}

VrexParameterVector& VrexParameterVector::operator=(VrexParameterVector&& other) noexcept {
    if (this != &other) {
        release();
        stealFrom(other);
    }
    return *this;
}

void VrexParameterVector::copyFrom(const VrexParameterVector& other) {
    if (!other.isInline()) {
        m_heap = new double[other.m_size];
    }
    m_size = other.m_size;
    std::copy_n(other.data(), m_size, data());
}

void VrexParameterVector::stealFrom(VrexParameterVector& other) noexcept {
    m_size = other.m_size;
    if (isInline()) {
        std::copy_n(other.m_inline, m_size, m_inline);
    } else {
        m_heap = other.m_heap;
    }
    other.m_size = 0;
}
