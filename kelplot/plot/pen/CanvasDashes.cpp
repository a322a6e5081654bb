// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/Canvas.h"

#include <algorithm>

#include "geometry/BoxClip.h"

// What a canvas does with pens that draw dashes.

namespace kelplot {

namespace {

constexpr size_t mostInGroup = 16; ///< dashes; painters take no more from a pattern

/// Calls `visit` for each side of a path, from corner to corner, of which a part is near the page: with the layout of
/// its dashes, that part, and where on the path the side begins. Stops where `visit` gives false.
template <typename Visit>
void forEachSide(const MeasuredPath& path, const LineSpan& near, const std::vector<size_t>& corners,
                 const DashPattern& pattern, DashStart start, Visit visit) {
    double from = 0.0;
    for (size_t i = 0; i <= corners.size(); ++i) {
        const double to = i < corners.size() ? path.distanceOf(corners[i]) : path.length();
        const LineSpan part{std::max(near.from, from) - from, std::min(near.to, to) - from};
        if (part.from <= part.to && !visit(DashLayout(pattern, to - from, start), part, from)) {
            return;
        }
        from = to;
    }
}

/// Makes a closed path begin behind its first dash, which becomes one with the last: the corner where the path closes
/// is joined like the others.
std::vector<Vec2> turnedPast(double place, const MeasuredPath& path, std::vector<LineSpan>& dashes) {
    std::vector<Vec2> points = path.part({place, path.length()});
    const std::vector<Vec2> first = path.part({0.0, place});
    points.insert(points.end(), first.begin() + 1, first.end());
    dashes.erase(dashes.begin());
    for (LineSpan& dash : dashes) {
        dash = {dash.from - place, dash.to - place};
    }
    dashes.back().to += place;
    return points;
}

} // namespace

/// Lays dashes along a line. One of too many is left to the renderer as a whole, which begins with the pattern and
/// cannot fit it to the end.
void Canvas::drawDashed(const std::vector<Vec2>& points, const Box2& box, const std::vector<size_t>& corners,
                        DashStart start) {
    const MeasuredPath path(points);
    const auto near = path.partIn(m_flattening.interest);
    if (!near) {
        return;
    }
    constexpr double mostOnLine = 1e5;
    const double most = std::min(mostOnLine + static_cast<double>(points.size()), m_budget.dashes);
    std::vector<LineSpan> dashes;
    double count = 0.0;
    forEachSide(path, *near, corners, m_pens.dashes(), start,
                [&](const DashLayout& layout, const LineSpan& part, double from) {
                    count += layout.dashCount(part);
                    if (count <= most) {
                        layout.addDashes(part, from, dashes);
                        addMarks(path, layout, part, from);
                    }
                    return count <= most;
                });
    m_budget.dashes -= static_cast<double>(dashes.size());
    if (!(count <= most)) {
        m_pens.useDashes(dashEntries(m_pens.dashes().strokes, m_pens.width()));
        for (const auto& piece : clipPolyline(points, m_flattening.interest)) {
            send(piece);
            m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
        }
    } else if (dashes.size() == 1 && dashes[0].from <= near->from && dashes[0].to >= near->to) {
        m_pens.useSolid();
        drawContinuous(points, box);
    } else if (points.front() == points.back() && dashes.size() > 1 && dashes.front().from <= 0.0 &&
               dashes.back().to >= path.length()) {
        const std::vector<Vec2> turned = turnedPast(dashes.front().to, path, dashes);
        drawDashes(MeasuredPath(turned), dashes);
    } else {
        drawDashes(path, dashes);
    }
}

/// Keeps the places of texts on one side of a path.
void Canvas::addMarks(const MeasuredPath& path, const DashLayout& layout, const LineSpan& part, double from) {
    const Pen& pen = m_pens.pen();
    std::vector<double> places;
    for (const LineTypeText& text : pen.lineType->texts) {
        places.clear();
        layout.addPlaces(text.at * pen.patternScale, part, from, places);
        for (const double place : places) {
            m_budget.letters -= static_cast<double>(text.text.stretches.front().text.size());
            if (m_budget.letters < 0.0) {
                m_budget.lostTexts = true;
                return;
            }
            m_marks.push_back(
                {&text, path.pointAt(place), path.directionAt(place), pen.patternScale, pen.ink, pen.opacity});
        }
    }
}

/// Sends dashes to the renderer in groups, each as a line with a pattern that is never repeated.
void Canvas::drawDashes(const MeasuredPath& path, const std::vector<LineSpan>& dashes) {
    for (size_t first = 0; first < dashes.size(); first += mostInGroup) {
        const size_t end = std::min(first + mostInGroup, dashes.size());
        const std::vector<Vec2> points = path.part({dashes[first].from, dashes[end - 1].to});
        const Box2 box = *finiteBoxOf(points);
        if (!mayShow(box, m_pens.reach())) {
            continue;
        }
        if (m_flattening.interest.contains(box) && end - first > 1) {
            const std::vector<LineSpan> group(&dashes[first], &dashes[first] + (end - first));
            m_pens.useDashes(dashEntries(group, m_pens.width()));
            send(points);
            m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
            continue;
        }
        m_pens.useSolid(true);
        for (size_t i = first; i < end; ++i) {
            const std::vector<Vec2> dash = path.part(dashes[i]);
            drawContinuous(dash, *finiteBoxOf(dash));
        }
    }
}

/// Has the renderer draw the next line, of this length, with its dashes. False where there are texts between them, or
/// more dashes than fit into one pattern.
bool Canvas::useDashesOn(double length, DashStart start) {
    if (!m_pens.pen().lineType->texts.empty()) {
        return false;
    }
    const DashLayout layout(m_pens.dashes(), length, start);
    if (layout.isContinuous()) {
        m_pens.useSolid();
        return true;
    }
    if (start == DashStart::plain) {
        m_pens.useDashes(dashEntries(m_pens.dashes().strokes, m_pens.width()));
        return true;
    }
    const LineSpan whole{0.0, length};
    std::vector<LineSpan> dashes;
    if (layout.dashCount(whole) <= 2.0 * mostInGroup) {
        layout.addDashes(whole, 0.0, dashes);
    }
    if (dashes.empty() || dashes.size() > mostInGroup) {
        return false;
    }
    m_pens.useDashes(dashEntries(dashes, m_pens.width()));
    return true;
}

} // namespace kelplot
