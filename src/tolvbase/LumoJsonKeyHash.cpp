#include "tolvbase/LumoJsonKeyHash.h"

#include <bit>
#include <cstring>
#include <random>

namespace {

constexpr std::size_t WORD = sizeof(std::uint64_t);

/// The four words that the text is stirred into; constants and rotations are those of the paper.
class SipState {
public:
    explicit SipState(const LumoJsonKeyHash::Secret& secret)
        : m_v{secret[0] ^ 0x736f6d6570736575ULL, secret[1] ^ 0x646f72616e646f6dULL,
              secret[0] ^ 0x6c7967656e657261ULL, secret[1] ^ 0x7465646279746573ULL} {}

    void take(std::uint64_t word) {
        m_v[3] ^= word;
        stir();
        stir();
        m_v[0] ^= word;
    }

    std::uint64_t finish() {
        m_v[2] ^= 0xFFU;
        for (int round = 0; round < 4; ++round) {
            stir();
        }
        return m_v[0] ^ m_v[1] ^ m_v[2] ^ m_v[3];
    }

private:
    void stir() {
        addAndTurn(0, 1, 13);
        m_v[0] = std::rotl(m_v[0], 32);
        addAndTurn(2, 3, 16);
        addAndTurn(0, 3, 21);
        addAndTurn(2, 1, 17);
        m_v[2] = std::rotl(m_v[2], 32);
    }

    void addAndTurn(std::size_t sum, std::size_t turned, int bits) {
        m_v[sum] += m_v[turned];
        m_v[turned] = std::rotl(m_v[turned], bits) ^ m_v[sum];
    }

    std::array<std::uint64_t, 4> m_v;
};

/// Up to eight bytes, in the order of the machine; the hash leaves the process nowhere.
std::uint64_t wordOf(std::string_view bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), bytes.size());
    return word;
}

std::uint64_t drawWord() {
    static_assert(std::random_device::max() == 0xFFFFFFFF);
    std::random_device source;
    const std::uint64_t high = source();
    return high << 32U | source();
}

} // namespace

const LumoJsonKeyHash& LumoJsonKeyHash::ofProcess() {
    static const LumoJsonKeyHash hash({drawWord(), drawWord()});
    return hash;
}

std::uint64_t LumoJsonKeyHash::operator()(std::string_view text) const noexcept {
    SipState state(m_secret);
    std::string_view rest = text;
    for (; rest.size() >= WORD; rest.remove_prefix(WORD)) {
        state.take(wordOf(rest.substr(0, WORD)));
    }
    // The last word holds what is left and, on top, the length.
    state.take((rest.empty() ? 0 : wordOf(rest)) | std::uint64_t{text.size()} << 56U);
    return state.finish();
}
