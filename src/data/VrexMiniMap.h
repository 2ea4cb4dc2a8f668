#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

/// A small insertion-ordered table: `N` entries inside the object, more of them in one heap block.
///
/// Keys are unique and never sorted; look-up scans from the first entry, which wins for the few keys that a
/// geometric equation has. An entry whose value is zero is an entry like any other. The two last parameters
/// are void in every use. Moving copies, so that the source of a move keeps its entries.
template <typename K, typename V, std::size_t N, typename = void, typename = void>
class VrexMiniMap {
public:
    struct Entry {
        K key;
        V value;
    };
    static_assert(std::is_trivially_copyable_v<Entry> && std::is_trivially_default_constructible_v<Entry>);
    using iterator = Entry*;
    using const_iterator = const Entry*;
    static constexpr std::size_t INLINE_CAPACITY = N;

    // Written out, because a defaulted constructor lets value initialisation zero the inline entries first.
    VrexMiniMap() noexcept {} // NOLINT(modernize-use-equals-default)
    /// Allocates for more than `N` entries only, and then twice the size.
    VrexMiniMap(const VrexMiniMap& other) { copyFresh(other); }
    /// Kept: a copy; the source keeps its entries.
    VrexMiniMap(VrexMiniMap&& other) noexcept(false) { copyFresh(other); }
    [[gnu::always_inline]] ~VrexMiniMap() {
        if (m_heap != nullptr) [[unlikely]] {
            release(m_heap);
        }
    }
    VrexMiniMap& operator=(const VrexMiniMap& other) {
        if (this != &other) {
            resizeForOverwrite(other.m_size);
            copyEntries(begin(), other.begin(), other.m_size);
        }
        return *this;
    }
    /// Kept: a copy, as in the constructor.
    VrexMiniMap& operator=(VrexMiniMap&& other) noexcept(false) {
        return *this = static_cast<const VrexMiniMap&>(other);
    }

    [[nodiscard]] iterator begin() noexcept { return m_heap != nullptr ? m_heap : m_inline; }
    [[nodiscard]] const_iterator begin() const noexcept { return m_heap != nullptr ? m_heap : m_inline; }
    [[nodiscard]] iterator end() noexcept { return begin() + m_size; }
    [[nodiscard]] const_iterator end() const noexcept { return begin() + m_size; }
    /// Count of live entries.
    [[nodiscard]] std::uint64_t size() const noexcept { return m_size; }
    [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
    /// Entries that the heap block holds; 0 while the entries live inline.
    [[nodiscard]] std::uint64_t capacity() const noexcept { return m_capacity; }

    /// The entry of `key`, or `end()`.
    [[nodiscard]] iterator find(const K& key) noexcept {
        iterator entry = begin();
        const iterator last = end();
        while (entry != last && entry->key != key) {
            ++entry;
        }
        return entry;
    }
    [[nodiscard]] const_iterator find(const K& key) const noexcept {
        return const_cast<VrexMiniMap*>(this)->find(key);
    }
    /// The value of `key`, zero for a key that is absent.
    [[nodiscard]] V operator[](const K& key) const noexcept {
        const const_iterator entry = find(key);
        return entry != end() ? entry->value : V{};
    }
    /// Writes the value of `key`, which is appended when absent.
    void set(const K& key, V value) {
        const iterator entry = find(key);
        if (entry != end()) {
            entry->value = value;
        } else {
            append(key, value);
        }
    }

    /// Moves the entries to a heap block of exactly `count` when that is more than `N` and than the capacity.
    void reserve(std::uint64_t count) {
        if (count > N && m_capacity < count) [[unlikely]] {
            grow(count);
        }
    }
    /// Sets the count of entries. A store that shrinks from more than `N` to `N` or fewer goes back inline;
    /// one that outgrows its capacity reserves twice the count. New entries are zero in key and value.
    void resize(std::uint64_t count) {
        const std::uint64_t before = m_size;
        resizeForOverwrite(count);
        for (std::uint64_t i = before; i < count; ++i) {
            begin()[i] = Entry{};
        }
    }
    /// For the arithmetic only: `resize` that leaves the new entries raw, so that the caller must write key
    /// and value of each.
    void resizeForOverwrite(std::uint64_t count) {
        if (count > N) [[unlikely]] {
            if (m_capacity < count) {
                grow(2 * count);
            }
        } else if (m_size > N) [[unlikely]] {
            returnInline(count);
        }
        m_size = count;
    }
    /// Adds an entry behind the last; `key` must be absent. May move the entries.
    Entry& append(K key, V value) {
        resizeForOverwrite(m_size + 1);
        Entry& entry = begin()[m_size - 1];
        entry = Entry{key, value};
        return entry;
    }
    /// For the arithmetic only: gives the store, in one step, the capacity that it would have after `count`
    /// calls of `append`.
    void reserveForAppending(std::uint64_t count) {
        const std::uint64_t target = m_size + count;
        std::uint64_t capacity = m_capacity > N ? m_capacity : N;
        while (capacity < target) {
            capacity = 2 * (capacity + 1);
        }
        reserve(capacity);
    }

private:
    static void copyEntries(Entry* target, const Entry* source, std::uint64_t count) noexcept {
        for (std::uint64_t i = 0; i < count; ++i) {
            target[i] = source[i];
        }
    }
    [[gnu::noinline]] static void release(Entry* block) noexcept { delete[] block; }
    [[gnu::noinline]] void grow(std::uint64_t count) {
        Entry* block = new Entry[count];
        copyEntries(block, begin(), m_size);
        if (m_heap != nullptr) {
            release(m_heap);
        }
        m_heap = block;
        m_capacity = count;
    }
    [[gnu::noinline]] void returnInline(std::uint64_t count) noexcept {
        copyEntries(m_inline, m_heap, count);
        release(m_heap);
        m_heap = nullptr;
        m_capacity = 0;
    }
    [[gnu::always_inline]] void copyFresh(const VrexMiniMap& other) {
        if (other.m_size > N) [[unlikely]] {
            grow(2 * other.m_size);
        }
        m_size = other.m_size;
        copyEntries(begin(), other.begin(), m_size);
    }

    Entry* m_heap = nullptr; ///< Where the entries live, unless null.
    Entry m_inline[N];       ///< Where they live otherwise; raw beyond `m_size`.
    std::uint64_t m_size = 0;
    std::uint64_t m_capacity = 0;
};
