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

void stackViewports(std::vector<Entity>& entities) {
    std::vector<size_t> places;
    for (size_t i = 0; i < entities.size(); ++i) {
        if (geometryAs<Viewport>(entities[i]) != nullptr) {
            places.push_back(i);
        }
    }
    const auto liesBelow = [&](size_t left, size_t right) {
        const int below = geometryAs<Viewport>(entities[left])->stackNumber;
        const int above = geometryAs<Viewport>(entities[right])->stackNumber;
        return above != 0 && (below == 0 || below > above);
    };
    std::vector<size_t> order = places;
    std::stable_sort(order.begin(), order.end(), liesBelow);
    if (order == places) {
        return;
    }
    std::vector<Entity> sorted;
    sorted.reserve(order.size());
    for (const size_t place : order) {
        sorted.push_back(std::move(entities[place]));
    }
    for (size_t i = 0; i < places.size(); ++i) {
        entities[places[i]] = std::move(sorted[i]);
    }
}

} // namespace kelplot
