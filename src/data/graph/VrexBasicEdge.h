#pragma once

#include <utility>

/// An undirected edge: its two ends.
template <class V>
class VrexBasicEdge {
public:
    explicit VrexBasicEdge(std::pair<V, V> ends)
        : m_first(std::move(ends.first)), m_second(std::move(ends.second)) {}
    VrexBasicEdge(V first, V second) : m_first(std::move(first)), m_second(std::move(second)) {}
    VrexBasicEdge(const VrexBasicEdge&) = default;
    VrexBasicEdge(VrexBasicEdge&&) noexcept = default;
    VrexBasicEdge& operator=(const VrexBasicEdge&) = default;
    VrexBasicEdge& operator=(VrexBasicEdge&&) noexcept = default;
    virtual ~VrexBasicEdge() = default;

    /// The second end where `end` is the first one itself, otherwise the first, also for what is no end.
    virtual const V& getAnother(const V& end) const { return end == m_first ? m_second : m_first; }

    V& getFirst() { return m_first; }
    const V& getFirst() const { return m_first; }
    V& getSecond() { return m_second; }
    const V& getSecond() const { return m_second; }

private:
    V m_first;
    V m_second;
};
