// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/LoopNesting.h"

namespace kelplot {

namespace {

double areaOf(const std::vector<Vec2>& points) {
    double twice = 0.0;
    for (size_t i = 0; i < points.size(); ++i) {
        twice += cross(points[i] - points[0], points[(i + 1) % points.size()] - points[0]);
    }
    return std::abs(twice) / 2.0;
}

} // namespace

void dropNested(std::vector<AreaLoop>& loops, size_t mostDepth) {
    const LoopIndex index(loops);
    std::vector<double> areas;
    areas.reserve(loops.size());
    for (const AreaLoop& loop : loops) {
        areas.push_back(areaOf(loop.points));
    }
    // Of two loops that are the same, the first counts as the outer one.
    const auto isLarger = [&](size_t other, size_t loop) {
        return areas[other] > areas[loop] || (areas[other] == areas[loop] && other < loop);
    };
    std::vector<size_t> kept;
    for (size_t loop = 0; loop < loops.size(); ++loop) {
        const Vec2 inner = index.innerPoint(loop); // loops may share whole stretches of their borders
        size_t depth = 0;
        index.search({inner, inner}, [&](size_t other) {
            const bool around = !loops[other].alwaysHole && isLarger(other, loop) &&
                                index.box(other).contains(index.box(loop)) && index.surrounds(other, inner);
            depth += around ? 1 : 0;
        });
        if (loops[loop].alwaysHole || depth <= mostDepth) {
            kept.push_back(loop);
        }
    }
    for (size_t i = 0; i < kept.size(); ++i) {
        std::swap(loops[i], loops[kept[i]]);
    }
    loops.resize(kept.size());
}

} // namespace kelplot
