// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/Canvas.h"

#include "base/Angles.h"

#include <optional>

#include "geometry/BoxClip.h"

namespace kelplot {

namespace {

constexpr double sixteenthOfDegree = turn / 5760.0;

/// The visible box with margins wide enough to hide the ends of what is cut off there, and their line widths.
Box2 surroundingsOf(const Box2& visible) {
    constexpr double leastMargin = 1000.0;
    return visible.inflated(std::max({leastMargin, visible.width(), visible.height()}));
}

/// Where the lengths of curves are measured well. It goes by the page, whatever part of it shows, so that dashes lie in
/// the same places in a window as on the whole page.
Box2 dashedSurroundingsOf(const PlotTarget& target) {
    constexpr double pages = 20.0;
    return target.pageBox.inflated(pages * std::max(target.pageBox.width(), target.pageBox.height()));
}

/// The visible box with room for the edge of an area that is cut off there: for rounding, the unit or two by which
/// the renderer widens its clip, and the hairline that stands for an area of no size.
Box2 areaBoxFor(const PlotTarget& target, const Box2& visible) {
    constexpr double slack = 4.0;
    return visible.inflated(target.hairlineWidth + slack);
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

std::optional<Box2> Canvas::finiteBoxOf(const std::vector<Vec2>& points) {
    Box2 box;
    for (const Vec2 point : points) {
        if (!point.isFinite()) {
            return std::nullopt;
        }
        box.add(point);
    }
    return box;
}

Canvas::Canvas(HT_Renderer& renderer, const PlotTarget& target, PenControl& pens)
    : m_renderer(renderer), m_pens(pens), m_visible(target.visibleBox()), m_drawn(target.drawnBox()),
      m_areas(areaBoxFor(target, m_visible)), m_flattening{target.flatteningError, surroundingsOf(m_visible)},
      m_dashedFlattening{target.flatteningError, dashedSurroundingsOf(target)}, m_cutter(m_visible) {
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
    if (m_pens.isDashed() || !m_flattening.interest.contains(box)) {
        drawPolyline({from, to});
        return;
    }
    const HT_Double_Point points[] = {sent(from), sent(to)};
    m_renderer.DrawPolyline(points, 2);
}

void Canvas::drawPolyline(const std::vector<Vec2>& points, const std::vector<size_t>& corners, DashStart start) {
    const std::optional<Box2> box = finiteBoxOf(points);
    if (!box || box->isEmpty() || !mayShow(*box, m_pens.reach())) {
        return;
    }
    if (m_pens.isDashed()) {
        drawDashed(points, *box, corners, start);
    } else {
        drawContinuous(points, *box);
    }
}

void Canvas::drawContinuous(const std::vector<Vec2>& points, const Box2& box) {
    if (m_flattening.interest.contains(box)) {
        drawNearPolyline(points, box);
        return;
    }
    for (const auto& piece : clipPolyline(points, m_flattening.interest)) {
        drawNearPolyline(piece, *finiteBoxOf(piece));
    }
}

void Canvas::drawOutline(std::vector<Vec2> corners) {
    if (!corners.empty()) {
        const Vec2 first = corners.front();
        corners.push_back(first);
        drawPolyline(corners);
    }
}

void Canvas::drawNearPolyline(const std::vector<Vec2>& points, const Box2& box) {
    constexpr size_t fewPoints = 32; // a line of so few is quicker to draw than to cut
    send(points);
    const bool worthCutting = points.size() > fewPoints && !m_visible.contains(box);
    if (!worthCutting || !drawPieces()) {
        m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
    }
}

/// Draws the visible pieces of the line in `m_sent`; false when it cannot be cut.
bool Canvas::drawPieces() {
    LinePieces pieces;
    if (!m_cutter.isAvailable() || !m_cutter.cut(m_sent, m_pens.reach(), pieces)) {
        return false;
    }
    for (int i = 0; i < pieces.count(); ++i) {
        pieces.copyPiece(i, m_sent);
        if (!m_sent.empty()) {
            m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
        }
    }
    return true;
}

/// A whole ellipse or an arc goes to the renderer as it is where that is as exact as a polyline.
void Canvas::drawArc(const EllipticArc& arc) {
    constexpr double leastRadius = 1.0; // device units; the renderer rounds radii, and a flat arc vanishes
    const PageArc page = pageArcOf(arc);
    // Dashes run from the start to the end; clockwise means as seen on a page with y downwards.
    const bool runsOtherWay = m_pens.isDashed() && cross(arc.u, arc.v) > 0.0;
    const Box2& interest = m_flattening.interest;
    const bool isNear = interest.contains(arc.hull()) || interest.contains(arc.box());
    if (!runsOtherWay && page.minorRadius >= leastRadius && isNear &&
        (arc.isWhole() ? drawWhole(page) : drawPart(page))) {
        return;
    }
    m_flattened.clear();
    arc.flatten(flattening(), m_flattened);
    drawPolyline(m_flattened, {}, arc.isWhole() ? DashStart::plain : DashStart::aligned);
}

/// Draws an ellipse, its dashes from where its angles begin. False where the renderer cannot.
bool Canvas::drawWhole(const PageArc& page) {
    if (m_pens.isDashed() &&
        (page.majorRadius != page.minorRadius || !useDashesOn(page.majorRadius * turn, DashStart::plain))) {
        return false;
    }
    m_renderer.DrawEllipse(sent(page.center), page.majorRadius, page.minorRadius, page.rotation);
    return true;
}

/// Draws a part of an ellipse. False where the renderer cannot do that exactly.
bool Canvas::drawPart(const PageArc& page) {
    const auto part = inSixteenths(page);
    if (!part) {
        return false;
    }
    if (m_pens.isDashed() && (page.majorRadius != page.minorRadius ||
                              !useDashesOn(page.majorRadius * (page.end - page.start), DashStart::aligned))) {
        return false;
    }
    m_renderer.DrawArc(sent(part->center), part->majorRadius, part->minorRadius, part->rotation, part->start,
                       part->end);
    return true;
}

std::vector<Vec2> Canvas::visiblePart(const std::vector<Vec2>& polygon) const {
    const std::optional<Box2> box = finiteBoxOf(polygon);
    if (!box) {
        return {};
    }
    return m_areas.contains(*box) ? polygon : clipPolygon(polygon, m_areas);
}

void Canvas::fillPolygon(const std::vector<Vec2>& points) {
    send(visiblePart(points));
    if (!m_sent.empty()) {
        m_renderer.FillPolygon(m_sent.data(), static_cast<int>(m_sent.size()));
    }
}

} // namespace kelplot
