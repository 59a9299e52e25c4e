// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "table/wipe.h"

#include "platform/backend.h"

namespace modScopa {

void sipario(Game& g, Form& form, Colour colour) {
    const float width = form.ScaleWidth, height = form.ScaleHeight;
    const double start = rtcGetTimer(g), wipe = g.backend.wipeSeconds;
    double nextFrame = start;
    for (float x = 0; x <= width; ++x) {
        Line(form, x, 0, x, height / 2 + 1, colour);
        Line(form, width - x, height, width - x, height / 2, colour);
        const double moment = start + wipe * static_cast<double>(x / width);
        if (moment > nextFrame) {
            showUntil(g, moment);
            nextFrame = moment + g.backend.frameSeconds;
        }
    }
    BackColor(form, colour);
}

}  // namespace modScopa
