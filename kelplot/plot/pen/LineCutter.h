// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include "keldriver/PointerArray.h"
#include "keldriver/Types.h"
#include "plot/pen/ClipRegion.h"

namespace kelplot {

/// The pieces that a polyline was cut into, in their order along it.
class LinePieces {
public:
    LinePieces();
    ~LinePieces() { m_records.Clear(); }
    LinePieces(const LinePieces&) = delete;
    LinePieces& operator=(const LinePieces&) = delete;

    I_HT_PointerArray& records() { return m_records; }
    int count() const { return m_records.GetCount(); }
    /// Puts the points of a piece into `points`.
    void copyPiece(int index, std::vector<HT_Double_Point>& points);

private:
    HT_PointerArray m_records;
};

/// Cuts polylines to a box with the host's geometry module. Its pieces have whole device coordinates.
class LineCutter {
public:
    explicit LineCutter(const Box2& visible);

    /// Tells whether there is a module at all: without one, "nothing is left" and "cannot cut" look the same.
    bool isAvailable() const { return m_available; }

    /// Cuts a polyline whose ink reaches `reach` to either side so that the cuts do not show in the box.
    /// False when the module failed, and then `pieces` tells nothing.
    bool cut(const std::vector<HT_Double_Point>& line, double reach, LinePieces& pieces);

private:
    Box2 m_visible;
    bool m_available;
    double m_reach = -1.0; ///< for which `m_region` was made
    ClipRegion m_region;
};

} // namespace kelplot
