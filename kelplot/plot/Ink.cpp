#include "plot/Ink.h"

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

} // namespace

HT_Color inkFor(const Colour& colour, InkUse use, bool monochrome) {
    const uint32_t rgb = rgbOf(colour);
    if (rgb == white && use == InkUse::fill) {
        return white;
    }
    if (rgb == white || monochrome) {
        return black;
    }
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

} // namespace kelplot
