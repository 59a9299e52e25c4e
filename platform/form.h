// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "platform/surface.h"
#include "platform/told.h"

class Backend;

/// Lengths given in twips become table units by the window that the layout was drawn for.
inline constexpr float layoutTwipsAcross = 15432, layoutTwipsDown = 12360;
inline constexpr float unitsAcross = 800, unitsDown = 600;
/// Where a size is fixed on the screen, this many twips are a pixel.
inline constexpr int twipsPerPixel = 12;

constexpr float twipsToUnitsAcross(float twips) {
    return twips * unitsAcross / layoutTwipsAcross;
}
constexpr float twipsToUnitsDown(float twips) {
    return twips * unitsDown / layoutTwipsDown;
}

inline constexpr int minimised = 1, maximised = 2;  ///< values of WindowState
inline constexpr int pixelScale = 3;                ///< value of ScaleMode

/// A window with a painted surface and controls in front of it.
struct Form {
    Backend* backend = nullptr;
    Source source{};
    std::string Caption;
    std::string name;  ///< of the surface, for readers of the screen
    int WindowState = 0;
    int ScaleMode = 0;
    float ScaleWidth = unitsAcross, ScaleHeight = unitsDown;
    float Width = layoutTwipsAcross, Height = layoutTwipsDown;  ///< twips
    bool loaded = false, Visible = false;
    Surface surface;
    PixelGrid grid;  ///< as the window stands; kept by the backend
    Box ring;        ///< round what the keys would press, shown in front of all; empty for none
    std::vector<Control*> controls;  ///< all, in no order
    std::vector<MenuEntry*> menu;    ///< in the order of the bar
    Teller teller = nullptr;         ///< asked when a reader of the screen is there
};

enum class LineStyle { plain, B, BF };  ///< a line, a box outline, a filled box

/// Copies a picture into the box at (x, y), stretched to width by height; units.
void PaintPicture(Form&, Picture, float x, float y, float width, float height);

/// Paints from (x1, y1) to (x2, y2), ends included: the unit that begins at an end is painted too,
/// so a box reaches one unit past its last coordinates. A plain line is straight across or down.
/// An outline is two units thick, inwards.
void Line(Form&, float x1, float y1, float x2, float y2, Colour, LineStyle = LineStyle::plain);

/// The colour of the surface at a point in units, as the screen shows it in the pixel that the
/// point lies in; controls in front of it do not count.
Colour Point(const Form&, float x, float y);

/// Clears the surface to the back colour.
void Cls(Form&);

/// Clears the surface to a new back colour.
void BackColor(Form&, Colour);

/// The control in front at a point, native ones left out; nullptr where the surface lies bare.
const Control* controlAt(const Form&, float x, float y);

/// The place of a control in pixels, fixed sizes taken into account.
PixelBox pixelsOf(const Control&, const PixelGrid&);

/// The drawn and visible controls, from back to front. Those never raised keep their order.
std::vector<const Control*> drawnControls(const Form&);

/// True for what the window system draws itself: buttons, option buttons, text boxes.
bool isNative(const Control&);
