#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

/// Memory for many small things that are released one by one, also behind the pool and by other threads: cut
/// from chunks, each of which is freed with the last of its blocks. Nothing is cut twice.
///
/// The first chunk is small and later ones are larger, so that few things take little. A copy of a pool has
/// chunks of its own.
class VrexBlockPool {
    class Chunk;

public:
    /// The largest block.
    static constexpr std::size_t LARGEST = 128;

    /// For `std::allocate_shared` of one object of at most `LARGEST` bytes with its counters.
    template <class T>
    class Allocator {
    public:
        using value_type = T;

        explicit Allocator(Chunk* chunk) : m_chunk(chunk) {}
        template <class Other>
        Allocator(const Allocator<Other>& other) : m_chunk(other.m_chunk) {}

        T* allocate(std::size_t) {
            static_assert(sizeof(T) <= LARGEST && alignof(T) <= Chunk::STEP);
            return static_cast<T*>(m_chunk->cut(sizeof(T)));
        }
        void deallocate(T*, std::size_t) { m_chunk->release(1); }
        template <class Other>
        bool operator==(const Allocator<Other>& other) const {
            return m_chunk == other.m_chunk;
        }

    private:
        template <class Other>
        friend class Allocator;

        Chunk* m_chunk;
    };

    VrexBlockPool() = default;
    VrexBlockPool(const VrexBlockPool&) {}
    VrexBlockPool(VrexBlockPool&& other) noexcept : m_chunk(std::exchange(other.m_chunk, nullptr)) {}
    VrexBlockPool& operator=(VrexBlockPool other) noexcept {
        std::swap(m_chunk, other.m_chunk);
        return *this;
    }
    ~VrexBlockPool() { close(); }

    /// For the next block alone.
    template <class T>
    Allocator<T> allocator() {
        if (m_chunk == nullptr || !m_chunk->hasRoom()) {
            Chunk* next = Chunk::create(m_chunk == nullptr ? FIRST : std::min(2 * m_chunk->size(), LAST));
            close();
            m_chunk = next;
        }
        return Allocator<T>(m_chunk);
    }

private:
    static constexpr std::size_t FIRST = 4 * LARGEST, LAST = 256 * LARGEST;

    /// Lives as long as one of its blocks, or a pool that cuts from it.
    class Chunk {
    public:
        static constexpr std::size_t STEP = alignof(void*);

        static Chunk* create(std::size_t size) {
            return new (::operator new(sizeof(Chunk) + size)) Chunk(size);
        }
        std::size_t size() const { return m_size; }
        bool hasRoom() const { return m_used + LARGEST <= m_size; }
        void* cut(std::size_t bytes) {
            void* block = reinterpret_cast<std::byte*>(this + 1) + m_used;
            m_used += (bytes + STEP - 1) / STEP * STEP;
            ++m_cut;
            return block;
        }
        /// The last one frees the chunk.
        void release(std::size_t count) {
            if (m_users.fetch_sub(count, std::memory_order_acq_rel) == count) {
                std::destroy_at(this);
                ::operator delete(this);
            }
        }
        /// Nothing more will be cut.
        void close() { release(MOST - m_cut); }

    private:
        /// Blocks are counted in advance: each costs one atomic step, when it is released.
        static constexpr std::size_t MOST = LAST;

        explicit Chunk(std::size_t size) : m_size(size) {}

        std::atomic<std::size_t> m_users{MOST};
        std::size_t m_size;
        std::size_t m_used = 0;
        std::size_t m_cut = 0;
    };

    void close() {
        if (m_chunk != nullptr) {
            m_chunk->close();
        }
    }

    Chunk* m_chunk = nullptr;
};
