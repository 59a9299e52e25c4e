// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/wipe.h"

#include "platform/backend.h"
#include "state/state.h"

namespace modScopa {

void sipario(Game& g, Form& form, Colour colour) {
    const float width = form.ScaleWidth, height = form.ScaleHeight;
    const double wipe = g.backend.wipeSeconds;
    const double start = rtcGetTimer(g);
    double nextFrame = start;
    const auto show = [&](double part) {
        const double moment = start + wipe * part;
        if (moment <= nextFrame) return;
        showUntil(g, moment);
        nextFrame = moment + g.backend.frameSeconds;
    };
    for (float x = 0; x <= width; ++x) {
        Line(form, x, 0, x, height / 2 + 1, colour);
        Line(form, width - x, height, width - x, height / 2, colour);
        if (wipe > 0) show(static_cast<double>(x / width));
    }
    BackColor(form, colour);
}

}  // namespace modScopa
