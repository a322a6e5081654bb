// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/OutlineGroups.h"

#include <algorithm>
#include <utility>

namespace kelplot {
namespace {

using Coordinate = int (QPoint::*)() const;

std::pair<int, int> rangeOf(const PlotterOutline& outline, Coordinate coordinate) {
    std::pair<int, int> range((outline[0].*coordinate)(), (outline[0].*coordinate)());
    for (const QPoint& point : outline) {
        range = {std::min(range.first, (point.*coordinate)()), std::max(range.second, (point.*coordinate)())};
    }
    return range;
}

/// Parts outlines wherever a line across the axis of the coordinate meets none of them.
std::vector<std::vector<PlotterOutline>> cutAlong(Coordinate coordinate, std::vector<PlotterOutline> outlines) {
    std::vector<std::pair<std::pair<int, int>, size_t>> order;
    for (size_t i = 0; i < outlines.size(); ++i) {
        order.emplace_back(rangeOf(outlines[i], coordinate), i);
    }
    std::sort(order.begin(), order.end());
    std::vector<std::vector<PlotterOutline>> groups;
    int end = 0;
    for (const auto& [range, index] : order) {
        if (groups.empty() || range.first > end) {
            groups.emplace_back();
            end = range.second;
        }
        end = std::max(end, range.second);
        groups.back().push_back(std::move(outlines[index]));
    }
    return groups;
}

} // namespace

std::vector<std::vector<PlotterOutline>> separateGroups(std::vector<PlotterOutline> outlines) {
    std::vector<std::vector<PlotterOutline>> separate;
    if (outlines.empty()) {
        return separate;
    }
    constexpr int mostFailures = 2; // in a row, once along each axis
    struct Open {
        std::vector<PlotterOutline> outlines;
        bool alongY;
        int failures;
    };
    std::vector<Open> open;
    open.push_back({std::move(outlines), false, 0});
    while (!open.empty()) {
        Open group = std::move(open.back());
        open.pop_back();
        if (group.failures == mostFailures || group.outlines.size() == 1) {
            separate.push_back(std::move(group.outlines));
            continue;
        }
        auto parts = cutAlong(group.alongY ? &QPoint::y : &QPoint::x, std::move(group.outlines));
        const int failures = parts.size() == 1 ? group.failures + 1 : 1;
        for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
            open.push_back({std::move(*part), !group.alongY, failures});
        }
    }
    return separate;
}

} // namespace kelplot
