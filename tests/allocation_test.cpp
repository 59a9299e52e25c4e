// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "game/event_table.h"
#include "platform/headless/headless.h"
#include "tools/robot.h"

// Once a hand runs, its moves ask for no memory: counted by replacing the program's allocator.

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

namespace {

/// Counts what the moves of a hand allocate, once the first hands have grown every list.
struct Counter {
    static constexpr int warmUp = 20, hands = 60;

    int hand = 0;
    long before = 0, inMoves = 0;

    static void see(Game&, Moment moment, void* self) {
        auto& counter = *static_cast<Counter*>(self);
        if (moment == Moment::turn) counter.before = allocations;
        if (moment == Moment::carriedOut && counter.hand >= warmUp)
            counter.inMoves += allocations - counter.before;
        if (moment == Moment::scored && ++counter.hand == hands) throw EndProgram{};
    }
};

TEST(Moves, AllocateNothing) {
    Headless backend(3);
    Game g(backend);
    Robot robot(g, 3);
    backend.time.user = [&](double until) { return robot.act(until); };
    Counter counter;
    g.watcher = &counter;
    g.watch = Counter::see;
    runProgram(g);
    EXPECT_GT(allocations, 0);
    EXPECT_EQ(counter.inMoves, 0);
}

}  // namespace
