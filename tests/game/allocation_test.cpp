// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// Once a hand runs, its moves ask for no memory: counted by replacing the program's allocator.

#include <cstdlib>
#include <new>

#include "whole_program.h"

namespace {

long allocations = 0;

}  // namespace

// Not inlined: the compiler would take the pair of malloc and delete for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

TEST(Moves, AllocateNothing) {
    WholeProgram program(3);
    long before = 0, inMoves = 0;
    program.watch = [&](Moment now) {
        if (now == Moment::turn) before = allocations;
        // The first hands have grown every list.
        if (now == Moment::carriedOut && program.seen(Moment::scored) >= 20)
            inMoves += allocations - before;
    };
    program.runHands(60);
    EXPECT_GT(allocations, 0);
    EXPECT_EQ(inMoves, 0);
}
