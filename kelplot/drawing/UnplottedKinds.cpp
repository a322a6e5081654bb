// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/UnplottedKinds.h"

#include <algorithm>

namespace kelplot {

namespace {

constexpr size_t mostKinds = 100; // a damaged drawing may hold any number of them
constexpr std::string_view otherKinds = "other entities";

} // namespace

uint32_t unplottedKind(std::string_view kind, Drawing& drawing) {
    std::vector<std::string>& kinds = drawing.unplottedKinds;
    auto found = std::find(kinds.begin(), kinds.end(), kind);
    if (found == kinds.end() && kinds.size() >= mostKinds) {
        kind = otherKinds;
        found = std::find(kinds.begin(), kinds.end(), kind);
    }
    if (found == kinds.end()) {
        found = kinds.emplace(kinds.end(), kind);
    }
    return static_cast<uint32_t>(found - kinds.begin());
}

} // namespace kelplot
