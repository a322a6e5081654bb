// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "keldriver/Dib.h"

namespace {

TEST(Palette, NamedColoursGreysAndOutside) {
    const struct {
        int32_t index;
        uint32_t colour;
    } cases[] = {
        {0, 0xFFFF0000},   {1, 0xFFFFFF00},   {2, 0xFF00FF00},   {3, 0xFF00FFFF},   {4, 0xFF0000FF},
        {5, 0xFFFF00FF},   {6, 0xFFFFFFFF},   {7, 0xFF808080},   {8, 0xFFC0C0C0},   {249, 0xFF333333},
        {250, 0xFF5B5B5B}, {251, 0xFF848484}, {252, 0xFFADADAD}, {253, 0xFFD6D6D6}, {254, 0xFFFFFFFF},
        {255, 0},          {256, 0},          {-1, 0},           {INT32_MAX, 0},    {INT32_MIN, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HT_GetPaletteColors(c.index), c.colour) << "index " << c.index;
    }
}

// How far a primary at `primaryHue` shows in a pure hue, in quarters. Hues count in steps of 15 degrees.
uint32_t quarters(int hue, int primaryHue) {
    const int apart = std::abs(hue - primaryHue);
    return static_cast<uint32_t>(std::clamp(8 - std::min(apart, 24 - apart), 0, 4));
}

TEST(Palette, HuesComeInTenShades) {
    int32_t index = 9;
    for (int hue = 0; hue < 24; ++hue) {
        for (const uint32_t level : {255U, 204U, 153U, 127U, 76U}) {
            uint32_t full = 0xFF;
            uint32_t half = 0xFF; // half saturation: half way from the hue to the grey of the level
            for (const int primaryHue : {0, 8, 16}) {
                full = full << 8 | level * quarters(hue, primaryHue) / 4;
                half = half << 8 | level * (4 + quarters(hue, primaryHue)) / 8;
            }
            EXPECT_EQ(HT_GetPaletteColors(index), full) << "index " << index;
            EXPECT_EQ(HT_GetPaletteColors(index + 1), half) << "index " << index + 1;
            index += 2;
        }
    }
    EXPECT_EQ(index, 249);
}

} // namespace
