// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/memory_pools.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>

namespace {
constexpr int largestPooled = 1 << 20;  ///< bytes; more than any picture, less than any surface
}

void shareMemory() {
    // NOLINTBEGIN(concurrency-mt-unsafe): there is one thread yet
    mallopt(M_ARENA_MAX, 1);
    // Or what is freed once moves the limit up, and the surface of a window that has changed its
    // size leaves a hole in the pool.
    mallopt(M_MMAP_THRESHOLD, largestPooled);
    // NOLINTEND(concurrency-mt-unsafe)
}

void returnMemory() {
    malloc_trim(0);
}
#else
void shareMemory() {}

void returnMemory() {}
#endif
