// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/pause.h"

#include "state/state.h"

namespace frmscopa {

void ritardo(Game& g, float t) {
    const double duration = static_cast<double>(t) * 10 / g.velocita;
    const double end = rtcGetTimer(g) + duration;
    while (rtcGetTimer(g) < end) rtcDoEvents(g, end);
}

}  // namespace frmscopa
