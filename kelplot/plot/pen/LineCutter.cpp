// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/LineCutter.h"

#include <cstdint>
#include <cstring>

#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"

namespace kelplot {

namespace {

/// Rounding of the cuts, and the unit or two by which the renderer widens its clip.
constexpr double slack = 4.0;

bool hasModule() {
    const ClipRegion region = regionOf({{0.0, 0.0}, {10.0, 10.0}});
    const HT_Double_Point across[] = {{-5.0, 5.0}, {15.0, 5.0}};
    LinePieces pieces;
    return HT_ClipLine(region.get(), across, 2, &pieces.records()) == 1;
}

} // namespace

LinePieces::LinePieces() : m_records(0, nullptr, HT_Free) {
}

/// A record is the number of points followed directly by the points, so they are not aligned.
void LinePieces::copyPiece(int index, std::vector<HT_Double_Point>& points) {
    points.clear();
    const auto* const record = static_cast<const char*>(m_records.GetData(index));
    int32_t pointCount = 0;
    if (record != nullptr) {
        std::memcpy(&pointCount, record, sizeof pointCount);
    }
    if (pointCount > 0) {
        points.resize(static_cast<size_t>(pointCount));
        std::memcpy(points.data(), record + sizeof pointCount, points.size() * sizeof(HT_Double_Point));
    }
}

LineCutter::LineCutter(const Box2& visible) : m_visible(visible), m_available(hasModule()) {
}

bool LineCutter::cut(const std::vector<HT_Double_Point>& line, double reach, LinePieces& pieces) {
    if (reach != m_reach) {
        m_region = regionOf(m_visible.inflated(reach + slack));
        m_reach = reach;
    }
    return HT_ClipLine(m_region.get(), line.data(), static_cast<int>(line.size()), &pieces.records()) >= 0;
}

} // namespace kelplot
