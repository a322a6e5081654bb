// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>

#include "drawing/Drawing.h"
#include "geometry/Box2.h"
#include "geometry/PlanMap.h"

namespace kelplot {

/// The copies of a block in rows and columns, as one reference lays them out.
struct CopyGrid {
    /// Indices from `begin` up to but not including `end`.
    struct Range {
        int begin = 0;
        int end = 0;
    };

    int columns = 1;
    int rows = 1;
    PlanMap first; ///< from the block's coordinates, for the copy in row 0 and column 0
    Vec2 columnStep;
    Vec2 rowStep;

    /// @param map  from the coordinates that the reference is placed in
    CopyGrid(const Insert& insert, const Vec3& basePoint, const PlanMap& map);

    int64_t count() const { return int64_t(rows) * columns; }
    PlanMap mapOf(int column, int row) const;

    /// The columns in `row` whose copies may meet `visible`, where the first copy lies in `ink`. It may be one too
    /// many at either end.
    Range columnsThatMeet(const Box2& visible, const Box2& ink, int row) const;
};

} // namespace kelplot
