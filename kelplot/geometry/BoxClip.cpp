#include "geometry/BoxClip.h"

namespace kelplot {

namespace {

/// A part of a segment, as fractions of its length.
struct Part {
    double from = 0.0;
    double to = 1.0;
};

/// Narrows `part` to where `start` + t·`delta` lies between `low` and `high`; false when nowhere.
bool narrow(double start, double delta, double low, double high, Part& part) {
    if (delta == 0.0) {
        return low <= start && start <= high;
    }
    const double a = (low - start) / delta;
    const double b = (high - start) / delta;
    part = {std::max(part.from, std::min(a, b)), std::min(part.to, std::max(a, b))};
    return part.from <= part.to;
}

bool partInside(Vec2 a, Vec2 b, const Box2& box, Part& part) {
    return narrow(a.x, b.x - a.x, box.min.x, box.max.x, part) && narrow(a.y, b.y - a.y, box.min.y, box.max.y, part);
}

/// How far a point lies inside one side of a box; negative outside.
struct Side {
    Vec2 inward;
    double offset;

    double depth(Vec2 p) const { return dot(inward, p) - offset; }
};

std::vector<Vec2> clipToSide(const std::vector<Vec2>& points, const Side& side) {
    std::vector<Vec2> result;
    result.reserve(points.size() + 4);
    for (size_t i = 0; i < points.size(); ++i) {
        const Vec2 from = points[i];
        const Vec2 to = points[(i + 1) % points.size()];
        const double fromDepth = side.depth(from);
        const double toDepth = side.depth(to);
        if (fromDepth >= 0.0) {
            result.push_back(from);
        }
        if ((fromDepth >= 0.0) != (toDepth >= 0.0)) {
            result.push_back(from + (to - from) * (fromDepth / (fromDepth - toDepth)));
        }
    }
    return result;
}

} // namespace

std::vector<std::vector<Vec2>> clipPolyline(const std::vector<Vec2>& points, const Box2& box) {
    std::vector<std::vector<Vec2>> pieces;
    bool running = false;
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        const Vec2 from = points[i];
        const Vec2 delta = points[i + 1] - from;
        Part part;
        if (!partInside(from, points[i + 1], box, part)) {
            running = false;
            continue;
        }
        if (!running || part.from > 0.0) {
            pieces.push_back({from + delta * part.from});
        }
        running = part.to >= 1.0;
        pieces.back().push_back(running ? points[i + 1] : from + delta * part.to);
    }
    return pieces;
}

std::vector<Vec2> clipPolygon(const std::vector<Vec2>& points, const Box2& box) {
    const Side sides[] = {
        {{1.0, 0.0}, box.min.x}, {{-1.0, 0.0}, -box.max.x}, {{0.0, 1.0}, box.min.y}, {{0.0, -1.0}, -box.max.y}};
    std::vector<Vec2> result = points;
    for (const Side& side : sides) {
        result = clipToSide(result, side);
    }
    return result;
}

} // namespace kelplot
