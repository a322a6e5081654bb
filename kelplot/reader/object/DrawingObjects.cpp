// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/DrawingObjects.h"

#include <algorithm>

namespace kelplot {

uint64_t DrawingObjects::find(uint64_t dictionary, std::string_view name) const {
    const auto entries = dictionaries.constFind(dictionary);
    if (entries == dictionaries.constEnd()) {
        return 0;
    }
    const auto found =
        std::find_if(entries->begin(), entries->end(), [&](const Entry& entry) { return entry.name == name; });
    return found == entries->end() ? 0 : found->object;
}

} // namespace kelplot
