#pragma once

#include <vector>

#include "geometry/EllipticArc.h"
#include "keldriver/Renderer.h"
#include "plot/DrawingPlot.h"

namespace kelplot {

/// Draws shapes in device coordinates, of any size and anywhere, through a renderer.
///
/// What lies far off the page is cut away before the renderer sees it, for it knows whole numbers of 32
/// bits only. Shapes that are not finite are left out.
class Canvas {
public:
    Canvas(HT_Renderer& renderer, const PlotTarget& target);

    void drawDot(Vec2 at);
    void drawSegment(Vec2 from, Vec2 to);
    void drawPolyline(const std::vector<Vec2>& points);
    /// @param directed  the arc must run from its start to its end, because its dashes do
    void drawArc(const EllipticArc& arc, bool directed);
    /// Fills by the even-odd rule.
    void fillPolygon(const std::vector<Vec2>& points);
    /// What is left of a polygon once all that lies far off the page is cut away; empty if it is not finite.
    std::vector<Vec2> nearPage(const std::vector<Vec2>& polygon) const;

    const Flattening& flattening() const { return m_flattening; }

private:
    void send(const std::vector<Vec2>& points);

    HT_Renderer& m_renderer;
    Flattening m_flattening; ///< its box of interest is the page with a margin all about
    std::vector<HT_Double_Point> m_sent;
    std::vector<Vec2> m_flattened;
};

} // namespace kelplot
