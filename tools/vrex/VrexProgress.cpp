#include "tools/vrex/VrexProgress.h"

#include <chrono>
#include <cstdio>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "tolvbase/TolvUtf8.h"
#include "tools/vrex/VrexHarmlessText.h"

namespace {

constexpr auto PATIENCE = std::chrono::milliseconds(500);
constexpr auto PACE = std::chrono::milliseconds(100);
/// A line that wraps could not be written over.
constexpr std::size_t WIDTH = 78;
constexpr const char* CLEAR_LINE = "\r\033[K";

} // namespace

VrexProgress::VrexProgress(std::string what, bool isShown) : m_what(std::move(what)) {
    if (isShown) {
        m_thread = std::thread([this] { show(); });
    }
}

VrexProgress::~VrexProgress() {
    if (!m_thread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_ending.notify_one();
    m_thread.join();
}

void VrexProgress::show() {
    std::unique_lock lock(m_mutex);
    const auto isOver = [this] { return m_isOver; };
    if (m_ending.wait_for(lock, PATIENCE, isOver)) {
        return;
    }
    do {
        draw();
    } while (!m_ending.wait_for(lock, PACE, isOver));
    std::fputs(CLEAR_LINE, stderr);
}

void VrexProgress::draw() const {
    const std::uint64_t total = m_total.load(std::memory_order_relaxed);
    const std::string line = nsVrexHarmlessText::of(
        total == 0 ? m_what + " ..."
                   : fmt::format("{}: {} of {}", m_what, m_done.load(std::memory_order_relaxed), total));
    const std::string_view shown = std::string_view(line).substr(0, WIDTH);
    // The cut may go through a character.
    std::fputs(std::string(CLEAR_LINE).append(shown, 0, nsTolvUtf8::findInvalid(shown)).c_str(), stderr);
}
