#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// A small insertion-ordered table: `N` entries inside the object, more of them in one heap block.
///
/// Keys are unique and never sorted; look-up scans from the first entry, which wins for the few keys that a
/// geometric equation has. An entry whose value is zero is an entry like any other. The two last parameters
/// are void in every use. Moving copies, so that the source of a move keeps its entries.
///
/// A word with a bit for each key tells at once that two stores have no key in common, and a count spares the
/// arithmetic a walk over values on which it would change nothing. Whoever is handed entries to write may
/// change both, so from then on the word stands for any keys and the count is 0. Entries must not be written
/// through an iterator once another operation has changed the store.
template <typename K, typename V, std::size_t N, typename = void, typename = void>
class VrexMiniMap {
public:
    struct Entry {
        K key;
        V value;
    };
    static_assert(std::is_unsigned_v<K>, "the low bits of a key name its bit in the word");
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
            m_keyBits = other.m_keyBits;
            m_settled = other.m_settled;
            copyFew(first(), other.first(), other.m_size);
        }
        return *this;
    }
    /// Kept: a copy, as in the constructor.
    VrexMiniMap& operator=(VrexMiniMap&& other) noexcept(false) {
        return *this = static_cast<const VrexMiniMap&>(other);
    }

    [[nodiscard]] iterator begin() noexcept {
        m_keyBits = ANY_KEYS;
        return entries();
    }
    [[nodiscard]] const_iterator begin() const noexcept { return first(); }
    [[nodiscard]] iterator end() noexcept { return begin() + m_size; }
    [[nodiscard]] const_iterator end() const noexcept { return first() + m_size; }
    /// Count of live entries.
    [[nodiscard]] std::uint64_t size() const noexcept { return m_size; }
    [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
    /// Entries that the heap block holds; 0 while the entries live inline.
    [[nodiscard]] std::uint64_t capacity() const noexcept { return m_capacity; }

    /// The entry of `key`, or `end()`.
    [[nodiscard]] iterator find(const K& key) noexcept { return begin() + position(key); }
    [[nodiscard]] const_iterator find(const K& key) const noexcept { return begin() + position(key); }
    /// The value of `key`, zero for a key that is absent.
    [[nodiscard]] V operator[](const K& key) const noexcept {
        const const_iterator entry = find(key);
        return entry != end() ? entry->value : V{};
    }
    /// Writes the value of `key`, which is appended when absent.
    void set(const K& key, V value) {
        const std::uint64_t i = position(key);
        if (i < m_size) {
            entries()[i].value = value;
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
        m_keyBits |= keyBit(K{});
        for (std::uint64_t i = before; i < count; ++i) {
            entries()[i] = Entry{};
        }
    }
    /// Adds an entry behind the last; `key` must be absent. May move the entries.
    void append(K key, V value) {
        resizeForOverwrite(m_size + 1);
        m_keyBits |= keyBit(key);
        first()[m_size - 1] = Entry{key, value};
    }

    // For the arithmetic only.

    /// Stands in a loop over few entries, and keeps the compiler from preparing it for several entries at
    /// once, which costs more than it saves.
    template <typename Pointer>
    [[gnu::always_inline]] static void keepSimple(Pointer& pointer) noexcept {
        asm("" : "+r"(pointer)); // no instruction
    }
    /// The bit of a key in the word of keys.
    [[nodiscard]] static constexpr std::uint64_t keyBit(K key) noexcept {
        return std::uint64_t{1} << (key & (WORD_BITS - 1));
    }
    /// The position of `key`, or the size.
    [[nodiscard]] std::uint64_t position(const K& key) const noexcept {
        const Entry* const all = first();
        std::uint64_t i = 0;
        while (i < m_size && all[i].key != key) {
            ++i;
        }
        return i;
    }
    /// The bit of each key, and perhaps others.
    [[nodiscard]] std::uint64_t keyBits() const noexcept { return m_keyBits; }
    /// The entries, for a caller that keeps their keys, or adds the bits of new ones by `addKeyBits`.
    [[nodiscard]] Entry* entries() noexcept {
        m_settled = 0;
        return first();
    }
    [[nodiscard]] const Entry* entries() const noexcept { return first(); }
    void addKeyBits(std::uint64_t bits) noexcept { m_keyBits |= bits; }
    /// True while there is no heap block.
    [[nodiscard]] bool isInside() const noexcept { return m_heap == nullptr; }
    /// The entries of a store that is inside.
    [[nodiscard]] Entry* inside() noexcept { return m_inline; }
    [[nodiscard]] const Entry* inside() const noexcept { return m_inline; }
    /// Entries that fit without a new block.
    [[nodiscard]] std::uint64_t room() const noexcept { return m_heap == nullptr ? N : m_capacity; }
    /// Adds 0 to each value, which makes a negative zero a positive one and changes no other. Values that
    /// have been through this stay settled, so that a sum that grows key by key is not walked for each.
    void settle() noexcept {
        Entry* const end = first() + m_size;
        for (Entry* entry = first() + m_settled; entry != end; ++entry) {
            keepSimple(entry);
            entry->value += V{};
        }
        m_settled = m_size;
    }
    /// Appends entries whose keys, which are new, have these bits. There must be room.
    void appendAll(const Entry* source, std::uint64_t count, std::uint64_t keyBits) noexcept {
        copyFew(extend(count, keyBits), source, count);
    }
    /// Appends `count` raw entries, for which there is room; the caller must write key and value of each. The
    /// keys are new and have these bits.
    [[nodiscard]] Entry* extend(std::uint64_t count, std::uint64_t keyBits) noexcept {
        Entry* const target = first() + m_size;
        m_size += count;
        m_keyBits |= keyBits;
        return target;
    }
    /// Declares the first `count` entries of an empty store, for which there is room, live.
    void setFilled(std::uint64_t count, std::uint64_t keyBits) noexcept {
        m_size = count;
        m_keyBits = keyBits;
    }
    /// `resize` that leaves the new entries raw, so that the caller must write key and value of each and add
    /// the bits of their keys.
    void resizeForOverwrite(std::uint64_t count) {
        if (count > N) [[unlikely]] {
            if (m_capacity < count) {
                grow(2 * count);
            }
        } else if (m_size > N) [[unlikely]] {
            returnInline(count);
        }
        if (count < m_settled) {
            m_settled = count;
        }
        m_size = count;
    }
    /// Gives the store, in one step, the capacity that it would have after `count` calls of `append`.
    void reserveForAppending(std::uint64_t count) {
        const std::uint64_t target = m_size + count;
        std::uint64_t capacity = room();
        while (capacity < target) {
            capacity = 2 * (capacity + 1);
        }
        reserve(capacity);
    }

private:
    static constexpr std::uint64_t WORD_BITS = 64;
    static constexpr std::uint64_t ANY_KEYS = ~std::uint64_t{0};

    [[nodiscard]] Entry* first() noexcept { return m_heap != nullptr ? m_heap : m_inline; }
    [[nodiscard]] const Entry* first() const noexcept { return m_heap != nullptr ? m_heap : m_inline; }
    static void copyMany(Entry* target, const Entry* source, std::uint64_t count) noexcept {
        std::memcpy(target, source, count * sizeof(Entry));
    }
    /// Key and value apart: an entry was mostly written just before in two parts, and a processor that reads
    /// it as a whole would wait until both have reached the memory.
    static void copyFew(Entry* target, const Entry* source, std::uint64_t count) noexcept {
        for (const Entry* const end = source + count; source != end; ++source, ++target) {
            keepSimple(source);
            target->key = source->key;
            target->value = source->value;
        }
    }
    [[gnu::noinline]] static void release(Entry* block) noexcept { delete[] block; }
    [[gnu::noinline]] void grow(std::uint64_t count) {
        Entry* block = new Entry[count];
        copyMany(block, first(), m_size);
        if (m_heap != nullptr) {
            release(m_heap);
        }
        m_heap = block;
        m_capacity = count;
    }
    [[gnu::noinline]] void returnInline(std::uint64_t count) noexcept {
        copyMany(m_inline, m_heap, count);
        release(m_heap);
        m_heap = nullptr;
        m_capacity = 0;
    }
    [[gnu::noinline]] void copyLong(const VrexMiniMap& other) {
        grow(2 * other.m_size);
        m_size = other.m_size;
        copyMany(m_heap, other.m_heap, other.m_size);
    }
    [[gnu::always_inline]] void copyFresh(const VrexMiniMap& other) {
        m_keyBits = other.m_keyBits;
        m_settled = other.m_settled;
        if (other.m_size > N) [[unlikely]] {
            copyLong(other);
        } else {
            m_size = other.m_size;
            copyFew(m_inline, other.first(), other.m_size);
        }
    }

    Entry* m_heap = nullptr; ///< Where the entries live, unless null.
    Entry m_inline[N];       ///< Where they live otherwise; raw beyond `m_size`.
    std::uint64_t m_size = 0;
    std::uint64_t m_capacity = 0;
    // Behind what a store holds by its definition.
    std::uint64_t m_keyBits = 0;
    std::uint64_t m_settled = 0; ///< Entries from the first on that `settle` would not change.
};
