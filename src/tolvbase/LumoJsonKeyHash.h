#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// SipHash-2-4 (Aumasson and Bernstein, 2012): a hash of text under a secret of 128 bits.
///
/// Without the secret nobody can find texts that share a hash, which plain hashes allow whatever is mixed in
/// afterwards.
class LumoJsonKeyHash {
public:
    using Secret = std::array<std::uint64_t, 2>;

    explicit LumoJsonKeyHash(const Secret& secret) : m_secret(secret) {}
    /// The hash under a secret that is drawn once a process. Throws what `std::random_device` throws.
    [[nodiscard]] static const LumoJsonKeyHash& ofProcess();

    [[nodiscard]] std::uint64_t operator()(std::string_view text) const noexcept;

private:
    Secret m_secret;
};
