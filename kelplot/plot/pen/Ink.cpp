// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/Ink.h"

#include "keldriver/Dib.h"

namespace kelplot {

namespace {

constexpr uint32_t black = 0x000000;
constexpr uint32_t white = 0xFFFFFF;
constexpr uint32_t contrastColour = 7;

uint32_t rgbOf(const Colour& colour) {
    if (colour.kind == Colour::Kind::trueColour) {
        return colour.value & 0xFFFFFF;
    }
    const bool inPalette = colour.kind == Colour::Kind::index && colour.value >= 1 && colour.value <= 255;
    if (!inPalette || colour.value == contrastColour) {
        return black;
    }
    return HT_GetPaletteColors(static_cast<int32_t>(colour.value) - 1) & 0xFFFFFF;
}

HT_Color drawnInk(const Colour& colour, InkUse use) {
    const uint32_t rgb = rgbOf(colour);
    if (rgb == white) {
        return use == InkUse::fill ? white : black;
    }
    return redBlueExchanged(rgb);
}

/// The grey that is as light as the ink.
HT_Color greyOf(HT_Color ink) {
    const uint32_t red = ink & 0xFF;
    const uint32_t green = ink >> 8 & 0xFF;
    const uint32_t blue = ink >> 16 & 0xFF;
    return (299 * red + 587 * green + 114 * blue + 500) / 1000 * 0x010101;
}

/// The ink with the part of the paper's white that screening lets through.
HT_Color screened(HT_Color ink, int screening) {
    constexpr int half = fullInk / 2;
    HT_Color result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int darkness = 255 - static_cast<int>(ink >> shift & 0xFF);
        result |= static_cast<HT_Color>(255 - (darkness * screening + half) / fullInk) << shift;
    }
    return result;
}

} // namespace

HT_Color inkFor(const Colour& colour, InkUse use, const PenRule& rule, bool monochrome) {
    const HT_Color drawn = drawnInk(colour, use);
    if (drawn == white) {
        return white;
    }
    HT_Color ink = rule.ink.value_or(drawn);
    if (rule.grey) {
        ink = greyOf(ink);
    }
    if (monochrome && ink != white) {
        ink = black;
    }
    return screened(ink, rule.screening);
}

QColor colourOf(HT_Color ink, uint8_t opacity) {
    const auto part = [ink](int shift) {
        return static_cast<int>(ink >> shift & 0xFF);
    };
    return {part(0), part(8), part(16), opacity};
}

} // namespace kelplot
