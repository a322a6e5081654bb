// SPDX-License-Identifier: GPL-2.0-or-later
#include "geometry/BoxClip.h"

#include "geometry/Interval.h"

namespace kelplot {

namespace {

/// The part of a segment that lies inside, as fractions of its length.
Interval partInside(Vec2 a, Vec2 b, const Box2& box) {
    Interval part{0.0, 1.0};
    narrowToSlab(a.x, b.x - a.x, {box.min.x, box.max.x}, part);
    narrowToSlab(a.y, b.y - a.y, {box.min.y, box.max.y}, part);
    return part;
}

/// One side of a box.
struct Side {
    double Vec2::*axis;
    double at;
    double inward; ///< 1 where the box lies above `at`, -1 where it lies below

    /// How far a point lies inside; negative outside.
    double depth(Vec2 p) const { return (p.*axis - at) * inward; }
    bool isOn(Vec2 p) const { return p.*axis == at; }
    /// Where the way from a point on one side to one on the other crosses.
    Vec2 crossing(Vec2 from, Vec2 to) const {
        Vec2 p = from + (to - from) * (depth(from) / (depth(from) - depth(to)));
        p.*axis = at;
        return p;
    }
};

/// Appends a point. Only the ends of a run of points on the side are kept: otherwise an outline that leaves the box
/// again and again would draw each of its paths along the border.
void append(Vec2 point, const Side& side, std::vector<Vec2>& points) {
    const size_t count = points.size();
    if (count >= 2 && side.isOn(point) && side.isOn(points[count - 1]) && side.isOn(points[count - 2])) {
        points.back() = point;
    } else {
        points.push_back(point);
    }
}

std::vector<Vec2> clipToSide(const std::vector<Vec2>& points, const Side& side) {
    std::vector<Vec2> result;
    result.reserve(points.size() + 4);
    for (size_t i = 0; i < points.size(); ++i) {
        const Vec2 from = points[i];
        const Vec2 to = points[(i + 1) % points.size()];
        const bool fromInside = side.depth(from) >= 0.0;
        if (fromInside) {
            append(from, side, result);
        }
        if (fromInside != (side.depth(to) >= 0.0)) {
            append(side.crossing(from, to), side, result);
        }
    }
    return result;
}

/// Tells, judging by its bounding box, whether an outline that lies in `box` leaves the border anywhere.
bool entersInside(const std::vector<Vec2>& points, const Box2& box) {
    Box2 own;
    for (const Vec2 point : points) {
        own.add(point);
    }
    return own.min.x < box.max.x && box.min.x < own.max.x && own.min.y < box.max.y && box.min.y < own.max.y;
}

} // namespace

std::vector<std::vector<Vec2>> clipPolyline(const std::vector<Vec2>& points, const Box2& box) {
    std::vector<std::vector<Vec2>> pieces;
    bool running = false;
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        const Vec2 from = points[i];
        const Vec2 delta = points[i + 1] - from;
        const Interval part = partInside(from, points[i + 1], box);
        if (part.isEmpty()) {
            running = false;
            continue;
        }
        if (!running || part.low > 0.0) {
            pieces.push_back({from + delta * part.low});
        }
        running = part.high >= 1.0;
        pieces.back().push_back(running ? points[i + 1] : from + delta * part.high);
    }
    return pieces;
}

std::vector<Vec2> clipPolygon(const std::vector<Vec2>& points, const Box2& box) {
    const Side sides[] = {{&Vec2::x, box.min.x, 1.0},
                          {&Vec2::x, box.max.x, -1.0},
                          {&Vec2::y, box.min.y, 1.0},
                          {&Vec2::y, box.max.y, -1.0}};
    std::vector<Vec2> result = points;
    for (const Side& side : sides) {
        result = clipToSide(result, side);
    }
    return entersInside(result, box) ? result : std::vector<Vec2>();
}

} // namespace kelplot
