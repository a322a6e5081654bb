// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/PatternLines.h"

#include <algorithm>
#include <cmath>

namespace kelplot {

namespace {

/// Where a line of a family passes the border of an area.
struct Crossing {
    int64_t number; ///< of the line
    double at;      ///< along it
    bool ofHole;

    friend bool operator<(const Crossing& a, const Crossing& b) {
        return a.number != b.number ? a.number < b.number : a.at < b.at;
    }
};

/// A point by the number of the line that it lies on, with a fraction between two, and its place along the line.
Vec2 inFamily(Vec2 point, const LineFamily& family) {
    const Vec2 fromBase = point - family.base;
    return {dot(fromBase, family.along), cross(family.along, fromBase) / family.spacing};
}

/// An edge crosses the lines from its lower end on and stops short of its upper one, so that a corner counts once.
void addCrossings(Vec2 a, Vec2 b, bool ofHole, std::vector<Crossing>& crossings) {
    if (a.y > b.y) {
        std::swap(a, b);
    }
    for (auto number = static_cast<int64_t>(std::ceil(a.y)); static_cast<double>(number) < b.y; ++number) {
        const double part = (static_cast<double>(number) - a.y) / (b.y - a.y);
        crossings.push_back({number, a.x + part * (b.x - a.x), ofHole});
    }
}

/// Calls `visit` with the ends of each edge, as `inFamily` gives them, and whether it belongs to a hole.
template <typename Visit>
void forEachEdge(const std::vector<AreaLoop>& loops, const LineFamily& family, Visit visit) {
    for (const AreaLoop& loop : loops) {
        Vec2 before = inFamily(loop.points.back(), family);
        for (const Vec2 point : loop.points) {
            const Vec2 here = inFamily(point, family);
            visit(before, here, loop.alwaysHole);
            before = here;
        }
    }
}

/// How often the lines cross the edges, at most; infinite where their numbers are too large to be told apart.
double crossingCount(const std::vector<AreaLoop>& loops, const LineFamily& family) {
    constexpr double farthest = 1e15; // whole numbers are exact up to there
    double count = 0.0;
    forEachEdge(loops, family, [&](Vec2 a, Vec2 b, bool) {
        const bool exact = std::abs(a.y) < farthest && std::abs(b.y) < farthest;
        count += exact ? std::abs(b.y - a.y) + 1.0 : HUGE_VAL;
    });
    return count;
}

std::vector<LineStretch> insideOf(const std::vector<Crossing>& crossings) {
    std::vector<LineStretch> stretches;
    bool inArea = false;
    bool inHole = false;
    for (size_t i = 0; i < crossings.size(); ++i) {
        const Crossing& here = crossings[i];
        if (i > 0 && here.number != crossings[i - 1].number) {
            inArea = false;
            inHole = false;
        }
        (here.ofHole ? inHole : inArea) = !(here.ofHole ? inHole : inArea);
        const bool goesOn = i + 1 < crossings.size() && crossings[i + 1].number == here.number;
        if (inArea && !inHole && goesOn && crossings[i + 1].at > here.at) {
            stretches.push_back({here.number, here.at, crossings[i + 1].at});
        }
    }
    return stretches;
}

} // namespace

double LineFamily::density(double penWidth) const {
    if (period == 0.0) {
        return 1.0;
    }
    double drawn = 0.0;
    for (const double dash : dashes) {
        drawn += dash == 0.0 ? penWidth : std::max(dash, 0.0);
    }
    return std::min(drawn / period, 1.0);
}

std::optional<LineFamily> familyOf(const PatternLine& line, const PlanMap& map) {
    const Vec2 direction = map.mapDirection(Vec2{std::cos(line.angle), std::sin(line.angle)});
    const double stretch = direction.length();
    const Vec2 offset = map.mapDirection(line.offset);
    LineFamily family;
    family.along = direction * (1.0 / stretch);
    family.base = map.mapPoint(line.base);
    family.spacing = cross(family.along, offset);
    family.shift = dot(family.along, offset);
    if (family.spacing < 0.0) { // counted the other way
        family.spacing = -family.spacing;
        family.shift = -family.shift;
    }
    for (const double dash : line.dashes) {
        family.dashes.push_back(dash * stretch);
        family.period += std::abs(dash * stretch);
    }
    const bool finite = family.base.isFinite() && std::isfinite(family.shift) && std::isfinite(family.period);
    const bool usable = finite && std::isnormal(stretch) && std::isnormal(family.spacing);
    return usable ? std::optional<LineFamily>(std::move(family)) : std::nullopt;
}

std::optional<std::vector<LineStretch>> stretchesIn(const std::vector<AreaLoop>& loops, const LineFamily& family,
                                                    double most) {
    if (!(crossingCount(loops, family) <= most)) {
        return std::nullopt;
    }
    std::vector<Crossing> crossings;
    forEachEdge(loops, family, [&](Vec2 a, Vec2 b, bool ofHole) { addCrossings(a, b, ofHole, crossings); });
    std::sort(crossings.begin(), crossings.end());
    return insideOf(crossings);
}

double dashCount(const std::vector<LineStretch>& stretches, const LineFamily& family) {
    const double perUnit = family.period > 0.0 ? static_cast<double>(family.dashes.size()) / family.period : 0.0;
    double count = 0.0;
    for (const LineStretch& stretch : stretches) {
        count += 1.0 + static_cast<double>(family.dashes.size()) + (stretch.end - stretch.start) * perUnit;
    }
    return count;
}

void forEachDash(const std::vector<LineStretch>& stretches, const LineFamily& family,
                 const std::function<void(Vec2 from, Vec2 to)>& draw) {
    for (const LineStretch& stretch : stretches) {
        const Vec2 onLine =
            family.base + leftNormal(family.along) * (static_cast<double>(stretch.number) * family.spacing);
        const auto place = [&](double at) {
            return onLine + family.along * at;
        };
        constexpr double mostPeriods = 1e15; // whole numbers are exact up to there
        const bool tellsDashes = std::abs(stretch.start) < mostPeriods * family.period;
        if (family.period == 0.0 || !tellsDashes) {
            draw(place(stretch.start), place(stretch.end));
            continue;
        }
        const double begin = std::fmod(static_cast<double>(stretch.number) * family.shift, family.period);
        const double first = std::floor((stretch.start - begin) / family.period);
        const auto periods = static_cast<int64_t>((stretch.end - stretch.start) / family.period) + 2;
        for (int64_t i = 0; i < periods; ++i) {
            double at = begin + (first + static_cast<double>(i)) * family.period;
            for (const double dash : family.dashes) {
                const double next = at + std::abs(dash);
                const double from = std::max(at, stretch.start);
                const double to = std::min(next, stretch.end);
                if (dash > 0.0 ? from < to : dash == 0.0 && from == to) {
                    draw(place(from), place(to));
                }
                at = next;
            }
        }
    }
}

} // namespace kelplot
