// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Dib.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

constexpr int entryCount = 255; // the last entry of the palette is no colour
constexpr int cellBits = 4;     // of each channel: the cube of colours has 16 cells a side
constexpr int cellSide = 1 << (8 - cellBits);
constexpr int cellCount = 1 << (3 * cellBits);

struct Color {
    int red;
    int green;
    int blue;
};

Color paletteColor(int index) {
    const uint32_t argb = HT_GetPaletteColors(index);
    return {static_cast<int>(argb >> 16 & 0xFF), static_cast<int>(argb >> 8 & 0xFF), static_cast<int>(argb & 0xFF)};
}

int square(int value) {
    return value * value;
}

int distance(const Color& a, const Color& b) {
    return square(a.red - b.red) + square(a.green - b.green) + square(a.blue - b.blue);
}

struct Reach {
    int nearest;
    int farthest;
};

// Squared distances along one axis from `value` to a cell that starts at `first`.
Reach reachAlongAxis(int first, int value) {
    const int last = first + cellSide - 1;
    return {square(std::clamp(value, first, last) - value),
            square(std::max(std::abs(value - first), std::abs(last - value)))};
}

Reach reachOfCell(const Color& first, const Color& color) {
    const Reach red = reachAlongAxis(first.red, color.red);
    const Reach green = reachAlongAxis(first.green, color.green);
    const Reach blue = reachAlongAxis(first.blue, color.blue);
    return {red.nearest + green.nearest + blue.nearest, red.farthest + green.farthest + blue.farthest};
}

size_t cellOf(const Color& color) {
    return static_cast<size_t>((color.red / cellSide << (2 * cellBits)) | (color.green / cellSide << cellBits) |
                               color.blue / cellSide);
}

/// For each cell of the cube of colours, the palette entries that are nearest to some colour in it: few, so that a
/// search need not look at the others.
class CandidateCells {
public:
    CandidateCells() {
        for (int index = 0; index < entryCount; ++index) {
            m_colors[static_cast<size_t>(index)] = paletteColor(index);
        }
        for (int red = 0; red < 256; red += cellSide) {
            for (int green = 0; green < 256; green += cellSide) {
                for (int blue = 0; blue < 256; blue += cellSide) {
                    addCell({red, green, blue});
                }
            }
        }
    }

    /// The nearest entry; ties go to the lower index, for candidates come in the order of the palette.
    int nearest(const Color& color) const {
        const size_t cell = cellOf(color);
        int best = m_candidates[m_starts[cell]];
        int bestDistance = INT32_MAX;
        for (size_t i = m_starts[cell]; i < m_starts[cell + 1]; ++i) {
            const int candidateDistance = distance(color, m_colors[m_candidates[i]]);
            if (candidateDistance < bestDistance) {
                best = m_candidates[i];
                bestDistance = candidateDistance;
            }
        }
        return best;
    }

private:
    // Leaves out the entries that are farther from the whole cell than another entry is at most.
    void addCell(const Color& first) {
        std::array<int, entryCount> nearestDistances{};
        int limit = INT32_MAX;
        for (size_t i = 0; i < entryCount; ++i) {
            const Reach reach = reachOfCell(first, m_colors[i]);
            nearestDistances[i] = reach.nearest;
            limit = std::min(limit, reach.farthest);
        }
        for (size_t i = 0; i < entryCount; ++i) {
            if (nearestDistances[i] <= limit) {
                m_candidates.push_back(static_cast<uint8_t>(i));
            }
        }
        m_starts[cellOf(first) + 1] = m_candidates.size();
    }

    std::array<Color, entryCount> m_colors{};
    std::vector<uint8_t> m_candidates;            ///< palette indices, cell after cell
    std::array<size_t, cellCount + 1> m_starts{}; ///< of each cell's candidates, and their end
};

} // namespace

int HT_GetNearestIndex(unsigned int color) {
    static const CandidateCells cells;
    // Blue before green, as part of the interface: byte 1 goes with the entry's blue, byte 2 with its green.
    return cells.nearest(
        {static_cast<int>(color & 0xFF), static_cast<int>(color >> 16 & 0xFF), static_cast<int>(color >> 8 & 0xFF)});
}
