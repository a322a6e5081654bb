// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/pen/Canvas.h"

#include <algorithm>

#include "geometry/BoxClip.h"

// What a canvas does with pens that draw dashes.

namespace kelplot {

namespace {

constexpr size_t mostInGroup = 16; ///< dashes; painters take no more from a pattern

/// The dashes on the part of a path near the page, which begin anew at the corners. Nothing where they would be more
/// than `most`.
std::optional<std::vector<LineSpan>> dashesOn(const MeasuredPath& path, const LineSpan& near,
                                              const std::vector<size_t>& corners, const DashPattern& pattern,
                                              DashStart start, double most) {
    std::vector<LineSpan> dashes;
    double count = 0.0;
    double from = 0.0;
    for (size_t i = 0; i <= corners.size(); ++i) {
        const double to = i < corners.size() ? path.distanceOf(corners[i]) : path.length();
        const LineSpan part{std::max(near.from, from) - from, std::min(near.to, to) - from};
        if (part.from <= part.to) {
            const DashLayout layout(pattern, to - from, start);
            count += layout.dashCount(part);
            if (!(count <= most)) {
                return std::nullopt;
            }
            layout.addDashes(part, from, dashes);
        }
        from = to;
    }
    return dashes;
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
    const double most = std::min(mostOnLine + static_cast<double>(points.size()), m_dashesLeft);
    const auto dashes = dashesOn(path, *near, corners, m_pens.dashes(), start, most);
    m_dashesLeft -= dashes ? static_cast<double>(dashes->size()) : 0.0;
    if (!dashes) {
        m_pens.useDashes(dashEntries(m_pens.dashes().strokes, m_pens.width()));
        for (const auto& piece : clipPolyline(points, m_flattening.interest)) {
            send(piece);
            m_renderer.DrawPolyline(m_sent.data(), static_cast<int>(m_sent.size()));
        }
    } else if (dashes->size() == 1 && dashes->front().from <= near->from && dashes->front().to >= near->to) {
        m_pens.useSolid();
        drawContinuous(points, box);
    } else {
        drawDashes(path, *dashes);
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

/// Has the renderer draw the next line, of this length, with its dashes. False where that takes more of them than fit
/// into one pattern.
bool Canvas::useDashesOn(double length, DashStart start) {
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
