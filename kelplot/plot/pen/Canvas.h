// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "geometry/EllipticArc.h"
#include "keldriver/Renderer.h"
#include "page/PlotTarget.h"
#include "plot/pen/LineCutter.h"
#include "plot/pen/MeasuredPath.h"
#include "plot/pen/PenControl.h"

namespace kelplot {

/// A place where a text of a line type is to stand.
struct LineTypeMark {
    const LineTypeText* text = nullptr;
    Vec2 at;
    Vec2 along;         ///< the way of the line, of length 1
    double scale = 1.0; ///< device units in a unit of the line type
    HT_Color ink = 0;   ///< of the line
    uint8_t opacity = opaque;
};

/// What may still be drawn of lines with dashes.
struct DashBudget {
    double dashes = 2e6;  ///< that are laid out one by one; lines of more are left to the renderer
    double letters = 5e4; ///< of texts in line types; the pages of real drawings have no room for so many
    bool lostTexts = false;
};

/// Draws shapes in device coordinates, of any size and anywhere, through a renderer, with the pen in force.
///
/// What lies far off the visible part of the page is cut away before the renderer sees it, because that works in 32-bit
/// integers. Areas and long lines are cut closely, which keeps plots of a window small. Shapes that are not finite are
/// left out.
class Canvas {
public:
    /// @param pens  sets its pens on the same renderer; outlives this
    Canvas(HT_Renderer& renderer, const PlotTarget& target, PenControl& pens);

    void drawDot(Vec2 at);
    void drawSegment(Vec2 from, Vec2 to);
    /// @param corners  the numbers of points between the ends, in their order, at which dashes begin anew
    void drawPolyline(const std::vector<Vec2>& points, const std::vector<size_t>& corners = {},
                      DashStart start = DashStart::aligned);
    /// Draws a polygon's sides; nothing without points.
    void drawOutline(std::vector<Vec2> corners);
    void drawArc(const EllipticArc& arc);
    /// Fills by the even-odd rule.
    void fillPolygon(const std::vector<Vec2>& points);
    /// The visible part of a polygon and a little around it; empty if it is not finite.
    std::vector<Vec2> visiblePart(const std::vector<Vec2>& polygon) const;

    /// How curves become polylines for the pen in force: where that draws dashes, lengths count far beyond the page.
    const Flattening& flattening() const { return m_pens.isDashed() ? m_dashedFlattening : m_flattening; }
    /// Tells whether anything in `box` may show, lines in it being `width` wide.
    bool mayShow(const Box2& box, double width) const { return box.inflated(width).intersects(m_drawn); }

    /// The places of texts on the lines that were drawn since this was asked last.
    std::vector<LineTypeMark> takeMarks() { return std::exchange(m_marks, {}); }

    const DashBudget& budget() const { return m_budget; }
    void setBudget(const DashBudget& budget) { m_budget = budget; }

private:
    /// Nothing when a point is not finite.
    static std::optional<Box2> finiteBoxOf(const std::vector<Vec2>& points);
    void send(const std::vector<Vec2>& points);
    void drawContinuous(const std::vector<Vec2>& points, const Box2& box);
    void drawNearPolyline(const std::vector<Vec2>& points, const Box2& box);
    bool drawPieces();
    void drawDashed(const std::vector<Vec2>& points, const Box2& box, const std::vector<size_t>& corners,
                    DashStart start);
    void addMarks(const MeasuredPath& path, const DashLayout& layout, const LineSpan& part, double from);
    void drawDashes(const MeasuredPath& path, const std::vector<LineSpan>& dashes);
    bool drawWhole(const PageArc& page);
    bool drawPart(const PageArc& page);
    bool useDashesOn(double length, DashStart start);

    HT_Renderer& m_renderer;
    PenControl& m_pens;
    Box2 m_visible;
    Box2 m_drawn;            ///< the part of that which is to be drawn; the rest is passed over
    Box2 m_areas;            ///< what areas are cut to
    Flattening m_flattening; ///< its box of interest is the visible part of the page with a margin all round
    Flattening m_dashedFlattening;
    LineCutter m_cutter;
    DashBudget m_budget;
    std::vector<LineTypeMark> m_marks;
    std::vector<HT_Double_Point> m_sent;
    std::vector<Vec2> m_flattened;
};

} // namespace kelplot
