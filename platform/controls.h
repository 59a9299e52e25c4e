// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

#include "platform/pictures.h"

/// A colour as 0xBBGGRR: 0xFF is pure red.
using Colour = std::int32_t;

/// Who raises an event. The game names its forms, controls, timers and devices
/// (state/event_sources.h); the platform only carries the names about.
enum class Source : std::uint8_t;

enum class Kind : std::uint8_t { image, label, button, option, text };

/// What all controls have. Plain data: a change shows at the next rtcDoEvents.
struct Control {
    Kind kind{};
    Source source{};
    int index = 0;  ///< in its control array

    float Left = 0, Top = 0, Width = 0, Height = 0;  ///< table units
    int fixedWidth = 0, fixedHeight = 0;  ///< pixels; not 0: used in place of Width and Height
    bool Visible = false;
    unsigned z = 0;  ///< the higher one is in front; stamped by ZOrder
    std::string Tag;
};

struct Image : Control {
    Picture picture = picture::none;
};

struct Label : Control {
    std::string Caption;
    Colour ForeColor = 0, BackColor = 0;
    float FontSize = 8;  ///< points
    bool bold = false, underlined = false;
};

struct Button : Control {
    std::string Caption;
};

struct OptionButton : Control {
    std::string Caption;
    Colour ForeColor = 0, BackColor = 0;
    bool Value = false;  ///< selected; at most one of an array
};

struct TextBox : Control {
    std::string Text;  ///< UTF-8, paragraphs ended by \n; a tab parts the columns of a table
    std::string name;  ///< for readers of the screen
    Colour BackColor = 0;
    bool scrollBar = false;
};

/// A heading of the menu bar or an entry below the last heading.
struct MenuEntry {
    Source source{};
    int index = 0;
    std::string Caption;    ///< & before the access letter
    bool heading = false;   ///< opens a list of entries and acts no further
    bool topLevel = false;  ///< stands in the bar itself
    bool checkable = false;
    bool Checked = false;
};

/// Puts the control's top left corner at a place in table units.
inline void Move(Control& control, float left, float top) {
    control.Left = left;
    control.Top = top;
}
