#include "tolvbase/LumoJsonIteratorImpl.h"

#include <stdexcept>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonMutableIterator.h"
#include "tolvbase/LumoJsonNode.h"

const LumoJson& LumoJsonIteratorImpl::operator*() const {
    if (m_entry == nullptr) {
        throw std::out_of_range("JSON iterator stands at no value.");
    }
    return m_entry[m_stride - 1];
}

const LumoJson* LumoJsonIteratorImpl::operator->() const { return &**this; }

LumoJsonIteratorImpl& LumoJsonIteratorImpl::operator++() {
    m_entry += m_stride;
    return *this;
}

LumoJsonIteratorImpl LumoJsonIteratorImpl::operator++(int) {
    const LumoJsonIteratorImpl before = *this;
    ++*this;
    return before;
}

LumoJsonIteratorImpl LumoJsonIteratorImpl::operator+(int count) const {
    return {m_entry + static_cast<std::ptrdiff_t>(count) * m_stride, m_stride};
}

std::string_view LumoJsonIteratorImpl::key() const {
    if (m_entry == nullptr || m_stride != LumoJsonNode::MEMBER_STRIDE) {
        throw std::runtime_error("JSON array element has no key.");
    }
    return m_entry->text();
}

// The casts give back what the container had: it is not const, or it would have made a reading iterator.
LumoJson& LumoJsonMutableIterator::operator*() const {
    return const_cast<LumoJson&>(LumoJsonIteratorImpl::operator*());
}

LumoJson* LumoJsonMutableIterator::operator->() const { return &**this; }

LumoJsonMutableIterator& LumoJsonMutableIterator::operator++() {
    LumoJsonIteratorImpl::operator++();
    return *this;
}

LumoJsonMutableIterator LumoJsonMutableIterator::operator++(int) {
    const LumoJsonMutableIterator before = *this;
    ++*this;
    return before;
}

LumoJsonMutableIterator LumoJsonMutableIterator::operator+(int count) const {
    return LumoJsonMutableIterator(LumoJsonIteratorImpl::operator+(count));
}
