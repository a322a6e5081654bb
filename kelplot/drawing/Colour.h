// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>

namespace kelplot {

/// The colour of an entity or layer as the drawing states it.
struct Colour {
    enum class Kind : uint8_t { byBlock, byLayer, index, trueColour };
    Kind kind = Kind::byLayer;
    uint32_t value = 0; ///< colour number 1 to 255, or 0x00RRGGBB for a true colour
};

/// The same colour with its red and its blue part exchanged: some count red from the lowest byte, some from the third.
constexpr uint32_t redBlueExchanged(uint32_t colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

} // namespace kelplot
