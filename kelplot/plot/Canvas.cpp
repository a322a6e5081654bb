#include "plot/Canvas.h"

#include <optional>

#include "geometry/BoxClip.h"

namespace kelplot {

namespace {

constexpr double sixteenthOfDegree = 3.141592653589793 / 2880.0;

/// The page with margins so wide that the ends of what is cut off there, and their line widths, do not show.
Box2 surroundingsOf(const Box2& page) {
    constexpr double leastMargin = 1000.0;
    return page.inflated(std::max({leastMargin, page.width(), page.height()}));
}

HT_Double_Point sent(Vec2 p) {
    return {p.x, p.y};
}

/// The renderer cuts arc angles down to whole sixteenths of a degree. This is `arc` with the angles that
/// come out nearest, or nothing when an end would leave its place: a long arc then misses the line it joins.
std::optional<PageArc> inSixteenths(const PageArc& arc) {
    constexpr double mostError = 0.5;    // device units
    constexpr double safelyAbove = 0.25; // of a sixteenth, so that cutting down gives the one meant
    const double start = std::round(arc.start / sixteenthOfDegree);
    const double span = std::round((arc.end - arc.start) / sixteenthOfDegree);
    const double startError = std::abs(start * sixteenthOfDegree - arc.start);
    const double endError = std::abs((start + span) * sixteenthOfDegree - arc.end);
    if (span < 1.0 || std::max(startError, endError) * arc.majorRadius > mostError) {
        return std::nullopt;
    }
    PageArc result = arc;
    result.start = (start + safelyAbove) * sixteenthOfDegree;
    result.end = result.start + (span + safelyAbove) * sixteenthOfDegree;
    return result;
}

} // namespace

Canvas::Canvas(HT_Renderer& renderer, const PlotTarget& target)
    : m_renderer(renderer), m_flattening{target.flatteningError, surroundingsOf(target.pageBox)} {
}

void Canvas::send(const std::vector<Vec2>& points) {
    m_sent.clear();
    for (const Vec2 point : points) {
        m_sent.push_back(sent(point));
    }
}

void Canvas::drawDot(Vec2 at) {
    Box2 box;
    box.add(at);
    if (m_flattening.interest.contains(box)) {
        m_renderer.DrawPoint(sent(at));
    }
}

void Canvas::drawSegment(Vec2 from, Vec2 to) {
    Box2 box;
    box.add(from);
    box.add(to);
    if (!m_flattening.interest.contains(box)) {
        drawPolyline({from, to});
        return;
    }
    const HT_Double_Point points[] = {sent(from), sent(to)};
    m_renderer.DrawPolyline(points, 2);
}

void Canvas::drawPolyline(const std::vector<Vec2>& points) {
    Box2 box;
    for (const Vec2 point : points) {
        if (!point.isFinite()) {
            return;
        }
        box.add(point);
    }
    if (points.empty()) {
        return;
    }
    if (m_flattening.interest.contains(box)) {
        send(points);
        m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
        return;
    }
    for (const auto& piece : clipPolyline(points, m_flattening.interest)) {
        send(piece);
        m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
    }
}

/// A whole ellipse or an arc goes to the renderer as such where that is as exact as a polyline.
void Canvas::drawArc(const EllipticArc& arc, bool directed) {
    constexpr double leastRadius = 1.0; // device units; the renderer rounds radii, and a flat arc vanishes
    const PageArc page = pageArcOf(arc);
    const bool runsOtherWay = directed && cross(arc.u, arc.v) > 0.0; // clockwise on a page with y downwards
    if (!runsOtherWay && page.minorRadius >= leastRadius && m_flattening.interest.contains(arc.box())) {
        if (arc.isWhole()) {
            m_renderer.DrawEllipse(sent(page.center), page.majorRadius, page.minorRadius, page.rotation);
            return;
        }
        if (const auto part = inSixteenths(page)) {
            m_renderer.DrawArc(sent(part->center), part->majorRadius, part->minorRadius, part->rotation, part->start,
                               part->end);
            return;
        }
    }
    m_flattened.clear();
    arc.flatten(m_flattening, m_flattened);
    drawPolyline(m_flattened);
}

std::vector<Vec2> Canvas::nearPage(const std::vector<Vec2>& polygon) const {
    Box2 box;
    for (const Vec2 point : polygon) {
        if (!point.isFinite()) {
            return {};
        }
        box.add(point);
    }
    return m_flattening.interest.contains(box) ? polygon : clipPolygon(polygon, m_flattening.interest);
}

void Canvas::fillPolygon(const std::vector<Vec2>& points) {
    send(nearPage(points));
    if (!m_sent.empty()) {
        m_renderer.FillPolygon(m_sent.data(), static_cast<int>(m_sent.size()));
    }
}

} // namespace kelplot
