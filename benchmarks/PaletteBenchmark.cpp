// SPDX-License-Identifier: BSD-3-Clause

// The nearest palette colour: `HT_GetNearestIndex` ("ours") against the search through all entries ("hand"), on the
// same random colours.

#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "keldriver/Dib.h"

namespace {

constexpr size_t colorCount = 1 << 16;

std::vector<unsigned> randomColors() {
    std::mt19937 random(7);
    std::vector<unsigned> colors(colorCount);
    for (unsigned& color : colors) {
        color = static_cast<unsigned>(random()) & 0xFFFFFF;
    }
    return colors;
}

struct Entry {
    int red;
    int green;
    int blue;
};

std::array<Entry, 255> paletteEntries() {
    std::array<Entry, 255> entries{};
    for (size_t i = 0; i < entries.size(); ++i) {
        const uint32_t argb = HT_GetPaletteColors(static_cast<int32_t>(i));
        entries[i] = {static_cast<int>(argb >> 16 & 0xFF), static_cast<int>(argb >> 8 & 0xFF),
                      static_cast<int>(argb & 0xFF)};
    }
    return entries;
}

int searchAll(const std::array<Entry, 255>& entries, unsigned color) {
    const Entry wanted{static_cast<int>(color & 0xFF), static_cast<int>(color >> 16 & 0xFF),
                       static_cast<int>(color >> 8 & 0xFF)};
    int best = 0;
    int bestDistance = 0x0FFFFFFF;
    for (size_t i = 0; i < entries.size(); ++i) {
        const int red = entries[i].red - wanted.red;
        const int green = entries[i].green - wanted.green;
        const int blue = entries[i].blue - wanted.blue;
        const int distance = red * red + green * green + blue * blue;
        if (distance == 0) {
            return static_cast<int>(i);
        }
        if (distance < bestDistance) {
            best = static_cast<int>(i);
            bestDistance = distance;
        }
    }
    return best;
}

void nearestOurs(benchmark::State& state) {
    const std::vector<unsigned> colors = randomColors();
    for (auto _ : state) {
        for (const unsigned color : colors) {
            benchmark::DoNotOptimize(HT_GetNearestIndex(color));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(colorCount));
}

void nearestByHand(benchmark::State& state) {
    const std::vector<unsigned> colors = randomColors();
    const auto entries = paletteEntries();
    for (auto _ : state) {
        for (const unsigned color : colors) {
            benchmark::DoNotOptimize(searchAll(entries, color));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(colorCount));
}

} // namespace

BENCHMARK(nearestOurs)->Name("BM_NearestIndex/ours");
BENCHMARK(nearestByHand)->Name("BM_NearestIndex/hand");
BENCHMARK_MAIN();
