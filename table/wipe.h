// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/controls.h"

struct Form;
struct Game;

namespace modScopa {

/// Wipes a form to a colour: the upper half fills from the left, the lower half from the right.
/// Leaves the colour as the form's back colour. Shows itself as it goes; runs no events.
void sipario(Game&, Form&, Colour);

}  // namespace modScopa
