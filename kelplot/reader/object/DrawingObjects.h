// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/PlanMap.h"

namespace kelplot {

/// For entities, the handles that they are to be sorted by.
using SortHandles = QHash<uint64_t, uint64_t>;

/// The order in which the entities of a block or a space are drawn.
struct DrawOrder {
    std::string block; ///< its name as the file writes it
    SortHandles handles;
};

/// A border that cuts a reference to a block, as the file states it.
struct SpatialFilter {
    std::vector<Vec2> border; ///< in a plane of its own; two points are the corners of a rectangle
    bool on = true;
    bool slices = false; ///< it also cuts off what lies before or behind some distance
    Frame3 toBorder;     ///< from the world of the time when the border was drawn to its plane
    Frame3 toBlock;      ///< from that world to the block
    uint64_t extensionDictionary = 0;
};

/// A group of a record that programs keep their own data in.
struct KeptGroup {
    int code;
    std::string value;
};

/// What a drawing states apart from its entities and tables, by handles, for whoever refers to it.
struct DrawingObjects {
    struct Entry {
        std::string name;
        uint64_t object;
    };

    QHash<uint64_t, std::vector<Entry>> dictionaries;
    QHash<uint64_t, SpatialFilter> spatialFilters;
    QHash<uint64_t, std::vector<KeptGroup>> records;
    std::vector<DrawOrder> drawOrders;

    /// The object that a dictionary lists under a name; 0: none.
    uint64_t find(uint64_t dictionary, std::string_view name) const;
};

} // namespace kelplot
