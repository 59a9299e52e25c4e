// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/memory_pools.h"

#include <malloc.h>

/// All threads have one pool here.
void shareMemory() {}

void returnMemory() {
    _heapmin();
}
