#pragma once

/// How often a random test is repeated: so often, and a fifth of that where every memory access is watched
/// and takes ten times as long. The plain build looks for the odd case, the watched one for what no result
/// shows.
constexpr int randomTurns(int plain) {
#ifdef __SANITIZE_ADDRESS__
    return plain / 5;
#else
    return plain;
#endif
}
