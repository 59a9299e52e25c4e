// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

struct Game;

namespace frmscopa {

/// The game's pause: t seconds at the "Low" rate, t * 10 / velocita in all. The rate counts as it
/// stands at the call. Runs events.
void ritardo(Game&, float t);

}  // namespace frmscopa
