// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/shape/PolylinePath.h"

namespace kelplot {

namespace {

/// A cut through a wide piece: the middle, and the way from there to the left border.
struct Station {
    Vec2 middle;
    Vec2 toLeft;
};

bool isFinite(const PolylineVertex& vertex) {
    return std::isfinite(vertex.position.x) && std::isfinite(vertex.position.y) && std::isfinite(vertex.position.z);
}

Vec2 unit(Vec2 v) {
    return v * (1.0 / v.length());
}

std::vector<Station> stationsOf(const PolylineSegment& segment, const PlanMap& map, const Flattening& rules) {
    const double startHalf = segment.from.startWidth / 2.0;
    const double endHalf = segment.from.endWidth / 2.0;
    const auto arc = segment.arc();
    if (!arc) {
        const Vec2 left = unit(leftNormal(segment.end() - segment.start()));
        return {{segment.start(), left * startHalf}, {segment.end(), left * endHalf}};
    }
    constexpr double mostSteps = 1000.0;
    const double scale = std::max(map.x.length(), map.y.length());
    const double radius = (arc->u.length() + std::max(startHalf, endHalf)) * scale;
    const double step = std::sqrt(8.0 * rules.tolerance / radius);
    const double side = cross(arc->u, arc->v) > 0.0 ? -1.0 : 1.0; // the centre is to the left of a left turn
    const double steps = std::ceil(arc->end / step);
    const int count = steps > 2.0 ? static_cast<int>(std::min(steps, mostSteps)) : 2; // of an arc without size, too
    std::vector<Station> stations;
    for (int i = 0; i <= count; ++i) {
        const double part = static_cast<double>(i) / count;
        const Vec2 middle = arc->pointAt(arc->end * part);
        const Vec2 outwards = unit(middle - arc->center);
        stations.push_back({middle, outwards * (side * (startHalf + (endHalf - startHalf) * part))});
    }
    return stations;
}

/// Turns the cuts at a vertex where two pieces of one width meet into the common cut of a mitre. Very sharp
/// corners keep their square ends.
void mitre(Station& arriving, Station& leaving) {
    constexpr double sharpest = 0.5; // a mitre at most twice as long as the piece is wide
    const double square = dot(arriving.toLeft, arriving.toLeft);
    const double likeness = dot(arriving.toLeft, leaving.toLeft);
    const double leavingSquare = dot(leaving.toLeft, leaving.toLeft);
    const bool oneWidth = std::abs(square - leavingSquare) <= 1e-9 * square;
    if (!oneWidth || square + likeness < sharpest * square || square == 0.0) {
        return;
    }
    const Vec2 cut = (arriving.toLeft + leaving.toLeft) * (square / (square + likeness));
    arriving.toLeft = cut;
    leaving.toLeft = cut;
}

/// Tells whether pieces meet along a line, where a seam may show. At other vertices they cross each other.
bool meetAlongLine(const Station& arriving, const Station& leaving) {
    constexpr double nearlyParallel = 0.99;
    const double parallel = arriving.toLeft.length() * leaving.toLeft.length();
    return parallel > 0.0 && dot(arriving.toLeft, leaving.toLeft) >= nearlyParallel * parallel;
}

/// Appends the cuts of a piece that follow `station`, up to one at the distance `reach`.
template <typename Iterator>
void addNear(Iterator station, Iterator end, double reach, std::vector<Station>& out) {
    for (Iterator next = std::next(station); next != end; station = next++) {
        const Vec2 way = next->middle - station->middle;
        const double length = way.length();
        if (length >= reach) {
            const double part = reach / length;
            out.push_back({station->middle + way * part, station->toLeft + (next->toLeft - station->toLeft) * part});
            return;
        }
        out.push_back(*next);
        reach -= length;
    }
}

/// The cuts of two pieces that are near the vertex where they meet.
std::vector<Station> stationsNearSeam(const std::vector<Station>& arriving, const std::vector<Station>& leaving,
                                      double reach) {
    std::vector<Station> stations;
    addNear(arriving.rbegin(), arriving.rend(), reach, stations);
    std::reverse(stations.begin(), stations.end());
    stations.push_back(arriving.back());
    stations.push_back(leaving.front());
    addNear(leaving.begin(), leaving.end(), reach, stations);
    return stations;
}

std::vector<Vec2> outlineOf(const std::vector<Station>& stations, double elevation, const PlanMap& map) {
    std::vector<Vec2> outline;
    outline.reserve(2 * stations.size());
    const auto add = [&](Vec2 p) {
        outline.push_back(map.mapPoint({p.x, p.y, elevation}));
    };
    for (const Station& station : stations) {
        add(station.middle + station.toLeft);
    }
    for (auto station = stations.rbegin(); station != stations.rend(); ++station) {
        add(station->middle - station->toLeft);
    }
    return outline;
}

} // namespace

std::optional<EllipticArc> PolylineSegment::arc() const {
    constexpr double flattest = 1e-9;
    if (!(std::abs(from.bulge) > flattest) || !std::isfinite(from.bulge)) {
        return std::nullopt;
    }
    return bulgeArc(start(), end(), from.bulge);
}

std::vector<PolylineSegment> segmentsOf(const std::vector<PolylineVertex>& vertices, bool closed) {
    std::vector<PolylineSegment> segments;
    segments.reserve(vertices.size());
    const PolylineVertex* first = nullptr;
    const PolylineVertex* last = nullptr;
    const auto addUpTo = [&](const PolylineVertex& vertex) {
        if (last && !(last->position == vertex.position)) {
            segments.push_back({*last, vertex});
        }
    };
    for (const PolylineVertex& vertex : vertices) {
        if (isFinite(vertex)) {
            addUpTo(vertex);
            first = first ? first : &vertex;
            last = &vertex;
        }
    }
    if (closed && first) {
        addUpTo(*first);
    }
    return segments;
}

void flattenSegment(const PolylineSegment& segment, const PlanMap& map, const Flattening& rules,
                    std::vector<Vec2>& out) {
    const auto arc = segment.arc();
    if (!arc) {
        if (out.empty()) {
            out.push_back(map.mapPoint(segment.from.position));
        }
        out.push_back(map.mapPoint(segment.to.position));
        return;
    }
    const size_t before = out.size();
    const double radius = arc->u.length();
    const double halfWidth = segment.from.startWidth / 2.0;
    const Flattening middleRules{rules.tolerance * (radius / (radius + halfWidth)), rules.interest};
    mapArc(*arc, segment.from.position.z, map).flatten(middleRules, out);
    if (before > 0) {
        out.erase(out.begin() + static_cast<std::ptrdiff_t>(before));
    }
    out.back() = map.mapPoint(segment.to.position);
}

std::optional<double> commonWidth(const std::vector<PolylineSegment>& segments) {
    const double width = segments.empty() ? 0.0 : segments.front().from.startWidth;
    for (const PolylineSegment& segment : segments) {
        if (segment.from.startWidth != width || segment.from.endWidth != width) {
            return std::nullopt;
        }
    }
    return width;
}

std::vector<std::vector<Vec2>> wideOutlines(const std::vector<PolylineSegment>& segments, bool closed,
                                            const PlanMap& map, const Flattening& rules, double overlap) {
    std::vector<std::vector<Station>> pieces;
    pieces.reserve(segments.size());
    for (const PolylineSegment& segment : segments) {
        pieces.push_back(stationsOf(segment, map, rules));
    }
    const size_t count = pieces.size();
    const size_t vertices = closed && count > 1 ? count : count - std::min<size_t>(count, 1); // between two pieces
    for (size_t i = 0; i < vertices; ++i) {
        mitre(pieces[i].back(), pieces[(i + 1) % count].front());
    }
    std::vector<std::vector<Vec2>> outlines;
    for (size_t i = 0; i < count; ++i) {
        if (segments[i].isWide()) {
            outlines.push_back(outlineOf(pieces[i], segments[i].from.position.z, map));
        }
    }
    const double reach = overlap / std::min(map.x.length(), map.y.length());
    for (size_t i = 0; overlap > 0.0 && i < vertices; ++i) {
        const std::vector<Station>& next = pieces[(i + 1) % count];
        if (meetAlongLine(pieces[i].back(), next.front())) {
            const auto seam = stationsNearSeam(pieces[i], next, reach);
            outlines.push_back(outlineOf(seam, segments[i].from.position.z, map));
        }
    }
    return outlines;
}

} // namespace kelplot
