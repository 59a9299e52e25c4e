// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/chance.h"

#include "platform/backend.h"
#include "platform/events.h"

namespace {

/// Steele, Lea and Flood's SplitMix64: one multiplication-based step of a 64-bit counter.
std::uint64_t next(std::uint64_t& state) {
    std::uint64_t z = (state += 0x9e3779b97f4a7c15u);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

}  // namespace

void rtcRandomize(Runtime& runtime) {
    Chance& chance = runtime.chance;
    std::uint64_t count = ++chance.seedings;
    chance.state = runtime.backend.seed() ^ next(count);
}

float rtcRandomNext(Runtime& runtime) {
    Chance& chance = runtime.chance;
    if (!chance.prepared.empty()) {
        const float draw = chance.prepared.back();
        chance.prepared.pop_back();
        return draw;
    }
    // 24 bits are what a single-precision fraction holds exactly, so 1 is never reached.
    return static_cast<float>(next(chance.state) >> 40) * 0x1p-24f;
}

int randomBelow(Runtime& runtime, int n) {
    return static_cast<int>(static_cast<double>(rtcRandomNext(runtime)) * n);
}
