// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

/// The pictures that the program carries, by number. The forty faces have their card ids.
using Picture = std::uint8_t;

namespace picture {

inline constexpr Picture none = 0;
inline constexpr Picture back = 41;
inline constexpr Picture banner = 42;
inline constexpr Picture title = 43;
inline constexpr Picture green = 44;
inline constexpr Picture red = 45;

constexpr Picture face(int id) {
    return static_cast<Picture>(id);
}
/// frame: 1 to 10.
constexpr Picture gorilla(int frame) {
    return static_cast<Picture>(45 + frame);
}
/// frame: 1 to 5.
constexpr Picture mask(int frame) {
    return static_cast<Picture>(55 + frame);
}

/// The name of the picture's source without its ending, such as "carta7" or "Mask2_1".
std::string name(Picture);

}  // namespace picture
