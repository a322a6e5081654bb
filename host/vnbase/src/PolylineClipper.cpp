// SPDX-License-Identifier: BSD-3-Clause
#include "PolylineClipper.h"

#include <algorithm>
#include <cmath>

namespace vnbase {

namespace {

bool isFinite(const HT_Double_Point& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isSame(const HT_Double_Point& a, const HT_Double_Point& b) {
    return a.x == b.x && a.y == b.y;
}

double magnitudeOf(const HT_Double_Point* points, size_t count) {
    double magnitude = 0.0;
    for (const HT_Double_Point* p = points; p != points + count; ++p) {
        if (isFinite(*p)) {
            magnitude = std::max({magnitude, std::fabs(p->x), std::fabs(p->y)});
        }
    }
    return magnitude;
}

double magnitudeOf(const std::vector<Contour>& contours) {
    double magnitude = 0.0;
    for (const Contour& contour : contours) {
        magnitude = std::max(magnitude, magnitudeOf(contour.points, contour.count));
    }
    return magnitude;
}

/// A stretch of a segment, 0 to 1; empty when the start is not before the end.
struct Range {
    double start;
    double end;
};

/// Cuts off what lies below `low` and above `high` in one direction.
Range narrowed(Range range, double from, double to, double low, double high) {
    if (from == to) {
        return from >= low && from <= high ? range : Range{1.0, 0.0};
    }
    const double atLow = (low - from) / (to - from);
    const double atHigh = (high - from) / (to - from);
    return {std::max(range.start, std::min(atLow, atHigh)), std::min(range.end, std::max(atLow, atHigh))};
}

/// The part of a segment that is in a box.
Range rangeWithin(const Box& box, const Vec& from, const Vec& to) {
    const Range range = narrowed({0.0, 1.0}, from.x, to.x, box.low.x, box.high.x);
    return narrowed(range, from.y, to.y, box.low.y, box.high.y);
}

double blend(double a, double b, double t) {
    const double way = b - a;
    return std::isfinite(way) ? a + t * way : a * (1.0 - t) + b * t;
}

/// Where a segment is cut. An axis-parallel edge gives its exact coordinate, so that the cut rounds as the edge does.
HT_Double_Point pointAt(const Cut& cut, const HT_Double_Point& from, const HT_Double_Point& to) {
    if (cut.edge == nullptr && (cut.t == 0.0 || cut.t == 1.0)) {
        return cut.t == 0.0 ? from : to;
    }
    HT_Double_Point point{blend(from.x, to.x, cut.t), blend(from.y, to.y, cut.t)};
    if (cut.edge != nullptr && cut.edge->source->x == cut.edge->target->x) {
        point.x = cut.edge->source->x;
    }
    if (cut.edge != nullptr && cut.edge->source->y == cut.edge->target->y) {
        point.y = cut.edge->source->y;
    }
    return point;
}

/// A box with a margin: what lies outside of it is clear of what lies in the box.
Box widened(const Box& box) {
    constexpr double margin = 1.0 / 64.0;
    return {{box.low.x - margin, box.low.y - margin}, {box.high.x + margin, box.high.y + margin}};
}

} // namespace

PolylineClipper::PolylineClipper(const Frame& frame, RegionIndex& index)
    : m_frame(frame), m_index(index), m_near(widened(frame.reach())) {
}

void PolylineClipper::clip(const HT_Double_Point* begin, const HT_Double_Point* end) {
    if (end - begin < 2) {
        return;
    }
    if (std::all_of(begin, end, [&](const HT_Double_Point& p) { return isSame(p, *begin); })) {
        return clipDot(*begin);
    }
    for (const HT_Double_Point* p = begin + 1; p != end; ++p) {
        if (!isSame(p[-1], *p)) {
            clipSegment(p[-1], *p);
        }
    }
    m_writer.close();
}

void PolylineClipper::clipDot(const HT_Double_Point& p) {
    if (m_index.holds(m_frame.toFrame(p))) {
        m_writer.add(p);
        m_writer.add(p);
        m_writer.close();
    }
}

void PolylineClipper::collectCuts(const Vec& from, const Vec& to) {
    constexpr double shortest = 16.0; // tolerances: a part shorter than this has no middle clear of its ends
    m_cuts.clear();
    const auto [start, end] = rangeWithin(m_near, from, to);
    if (!(start < end)) {
        return;
    }
    m_cuts.push_back({start, nullptr});
    const Vec first = between(from, to, start);
    const Vec last = between(from, to, end);
    m_index.appendCuts(first, last, m_cuts);
    if (m_cuts.size() > 1) {
        std::sort(m_cuts.begin() + 1, m_cuts.end(), [](const Cut& a, const Cut& b) { return a.t < b.t; });
        const double gap = shortest * m_frame.tolerance() / std::sqrt(dot(last - first, last - first));
        size_t kept = 1;
        double previous = 0.0;
        for (size_t i = 1; i < m_cuts.size(); ++i) {
            if (m_cuts[i].t - previous >= gap && 1.0 - m_cuts[i].t >= gap) {
                previous = m_cuts[i].t;
                m_cuts[kept++] = {start + previous * (end - start), m_cuts[i].edge};
            }
        }
        m_cuts.resize(kept);
    }
    m_cuts.push_back({end, nullptr});
}

void PolylineClipper::clipSegment(const HT_Double_Point& from, const HT_Double_Point& to) {
    const Vec a = m_frame.toFrame(from);
    const Vec b = m_frame.toFrame(to);
    if (m_index.isUndivided(a, b)) {
        m_cuts.assign({{0.0, nullptr}, {1.0, nullptr}});
        return keepInside(a, b, from, to, 1.0);
    }
    // Measured from the end that is near: places close to the far one would be lost to rounding.
    if (m_near.holds(b) && !m_near.holds(a)) {
        collectCuts(b, a);
        std::reverse(m_cuts.begin(), m_cuts.end());
        return keepInside(b, a, to, from, 0.0);
    }
    collectCuts(a, b);
    keepInside(a, b, from, to, 1.0);
}

void PolylineClipper::keepInside(const Vec& a, const Vec& b, const HT_Double_Point& from, const HT_Double_Point& to,
                                 double end) {
    for (size_t i = 0; i + 1 < m_cuts.size(); ++i) {
        const bool inside = m_index.holds(between(a, b, (m_cuts[i].t + m_cuts[i + 1].t) / 2.0));
        if (inside == m_writer.isOpen()) {
            continue;
        }
        if (inside || i > 0) { // at the start of the segment an open piece has that vertex
            m_writer.add(pointAt(m_cuts[i], from, to));
        }
        if (!inside) {
            m_writer.close();
        }
    }
    if (m_writer.isOpen() && !m_cuts.empty()) {
        m_writer.add(pointAt(m_cuts.back(), from, to));
    }
    if (m_cuts.empty() || m_cuts.back().t != end) { // the segment goes on, away from the region
        m_writer.close();
    }
}

Pieces visiblePieces(const HT_Double_Point* points, size_t count, const HT_ClipRgn* region) {
    const std::vector<Contour> contours = decidingContours(region);
    const Box reach = reachOf(contours);
    if (reach.isEmpty()) {
        return {};
    }
    const Frame frame(reach, std::max(magnitudeOf(points, count), magnitudeOf(contours)));
    if (frame.reach().isEmpty()) { // smaller than halves of the smallest doubles can tell
        return {};
    }
    RegionIndex index(contours, frame, count);
    PolylineClipper clipper(frame, index);
    const HT_Double_Point* const end = points + count;
    for (const HT_Double_Point* p = points; p != end;) {
        const HT_Double_Point* const runEnd = std::find_if_not(p, end, isFinite);
        clipper.clip(p, runEnd);
        p = std::find_if(runEnd, end, isFinite);
    }
    return clipper.takePieces();
}

} // namespace vnbase
