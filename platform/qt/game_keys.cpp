// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/game_keys.h"

#include <QKeyEvent>

namespace {

struct Meaning {
    int key;
    Key meaning;
};

constexpr Meaning meanings[] = {
    {Qt::Key_1, Key::One},         {Qt::Key_2, Key::Two},       {Qt::Key_3, Key::Three},
    {Qt::Key_Left, Key::Left},     {Qt::Key_Up, Key::Up},       {Qt::Key_Right, Key::Right},
    {Qt::Key_Down, Key::Down},     {Qt::Key_Home, Key::Home},   {Qt::Key_End, Key::End},
    {Qt::Key_Space, Key::Press},   {Qt::Key_Enter, Key::Press}, {Qt::Key_Return, Key::Press},
    {Qt::Key_Escape, Key::Escape},
};

/// The number pad is as good as the rest, and there are keyboards with the digits under Shift.
bool heldAlone(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
}

std::optional<Key> meaning(const QKeyEvent& event) {
    if (!heldAlone(event)) return {};
    for (const auto& [key, meaning] : meanings)
        if (event.key() == key) return meaning;
    return {};
}

bool onlyMoves(Key key) {
    return key >= Key::Left && key <= Key::End;
}

}  // namespace

bool isPress(const QKeyEvent& event) {
    return meaning(event) == Key::Press;
}

std::optional<Key> gameKey(const QKeyEvent& event) {
    const auto key = meaning(event);
    if (key && event.isAutoRepeat() && !onlyMoves(*key)) return {};
    return key;
}
