// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cassert>

/// An array addressed from 0 to Last, ends included, as the game counts its cards, places and
/// players; most of them leave index 0 unused. A wrong index stops a checked build.
template <class T, int Last>
class Array {
public:
    T& operator()(int i) {
        assert(i >= 0 && i <= Last);
        return items_[static_cast<std::size_t>(i)];
    }
    const T& operator()(int i) const {
        assert(i >= 0 && i <= Last);
        return items_[static_cast<std::size_t>(i)];
    }
    void fill(const T& value) { items_.fill(value); }
    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::array<T, Last + 1> items_{};
};

/// The same in two dimensions, rows 0 to LastRow and columns 0 to LastColumn.
template <class T, int LastRow, int LastColumn>
class Grid {
public:
    T& operator()(int row, int column) {
        assert(column >= 0 && column <= LastColumn);
        return items_(row * (LastColumn + 1) + column);
    }
    const T& operator()(int row, int column) const {
        assert(column >= 0 && column <= LastColumn);
        return items_(row * (LastColumn + 1) + column);
    }
    void fill(const T& value) { items_.fill(value); }

private:
    Array<T, (LastRow + 1) * (LastColumn + 1) - 1> items_{};
};
