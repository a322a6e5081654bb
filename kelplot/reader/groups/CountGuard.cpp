// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/groups/CountGuard.h"

#include <string>

#include "reader/DrawingReader.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

struct Count {
    std::string_view type;
    int code;
    unsigned groupsPerItem;
    std::string_view items;
};

constexpr Count counts[] = {
    {"LWPOLYLINE", 90, 2, "vertices"},
    {"SPLINE", 72, 1, "knots"},
    {"SPLINE", 73, 2, "control points"},
    {"SPLINE", 74, 2, "fit points"},
    {"HATCH", 91, 2, "boundaries"},
    {"HATCH", 93, 2, "edges or vertices"},
    {"HATCH", 95, 1, "knots"},
    {"HATCH", 96, 2, "control points"},
    {"HATCH", 97, 1, "fit points or sources"},
    {"MPOLYGON", 91, 2, "boundaries"},
    {"MPOLYGON", 93, 2, "edges or vertices"},
    {"LEADER", 76, 2, "vertices"},
    {"LTYPE", 73, 1, "dashes"},
};

} // namespace

void checkCount(std::string_view type, const Group& group, std::uintmax_t groupsLeft) {
    for (const Count& count : counts) {
        if (count.code != group.code || count.type != type) {
            continue;
        }
        const int announced = toInteger(group.value);
        if (announced > 0 && static_cast<std::uintmax_t>(announced) > groupsLeft / count.groupsPerItem) {
            throw DrawingFault(group.place, std::string(type) + " announces " + std::to_string(announced) + " " +
                                                std::string(count.items) + ", more than the file holds");
        }
        return;
    }
}

} // namespace kelplot
