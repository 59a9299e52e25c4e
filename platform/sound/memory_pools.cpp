// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/memory_pools.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>

void shareMemory() {
    mallopt(M_ARENA_MAX, 1);  // NOLINT(concurrency-mt-unsafe): there is one thread yet
}

void returnMemory() {
    malloc_trim(0);
}
#else
void shareMemory() {}

void returnMemory() {}
#endif
