#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

/// Tells on standard error what takes longer than half a second, as long as it lives: one line that is
/// written over and over, and gone in the end.
class VrexProgress {
public:
    /// `what` is such as "reading arm.json". Does nothing unless `isShown`.
    VrexProgress(std::string what, bool isShown);
    VrexProgress(const VrexProgress&) = delete;
    VrexProgress& operator=(const VrexProgress&) = delete;
    ~VrexProgress();

    /// How far it is, for any thread.
    void reached(std::uint64_t done, std::uint64_t total) {
        m_done.store(done, std::memory_order_relaxed);
        m_total.store(total, std::memory_order_relaxed);
    }

private:
    void show();
    void draw() const;

    const std::string m_what;
    std::atomic<std::uint64_t> m_done = 0;
    std::atomic<std::uint64_t> m_total = 0; ///< 0 until somebody tells.
    std::mutex m_mutex;
    std::condition_variable m_ending;
    bool m_isOver = false; ///< Under the mutex.
    std::thread m_thread;
};
