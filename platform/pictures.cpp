// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/pictures.h"

namespace picture {

std::string name(Picture picture) {
    const int number = picture;
    if (number >= 1 && number <= 40) return "carta" + std::to_string(number);
    if (number >= gorilla(1) && number <= gorilla(10))
        return "Gorilla" + std::to_string(number - gorilla(1) + 1);
    if (number >= mask(1) && number <= mask(5))
        return "Mask2_" + std::to_string(number - mask(1) + 1);
    switch (picture) {
        case back:
            return "dorso";
        case banner:
            return "Picture2";
        case title:
            return "Picture4";
        case green:
            return "Verde";
        case red:
            return "Rosso";
        default:
            return {};
    }
}

}  // namespace picture
