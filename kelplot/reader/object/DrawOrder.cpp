// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/DrawOrder.h"

#include <algorithm>
#include <utility>

namespace kelplot {

void sortByHandles(std::vector<Entity>& entities, const SortHandles& handles) {
    std::vector<std::pair<uint64_t, size_t>> order;
    order.reserve(entities.size());
    uint64_t sortHandle = 0;
    for (size_t i = 0; i < entities.size(); ++i) {
        const uint64_t own = entities[i].handle;
        sortHandle = own == 0 ? sortHandle : handles.value(own, own);
        order.emplace_back(sortHandle, i);
    }
    if (std::is_sorted(order.begin(), order.end())) {
        return;
    }
    std::sort(order.begin(), order.end());
    std::vector<Entity> sorted;
    sorted.reserve(entities.size());
    for (const auto& place : order) {
        sorted.push_back(std::move(entities[place.second]));
    }
    entities = std::move(sorted);
}

} // namespace kelplot
