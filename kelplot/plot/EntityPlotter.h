#pragma once

#include <optional>

#include "plot/Canvas.h"
#include "plot/EntityWalk.h"
#include "plot/Ink.h"
#include "plot/PenControl.h"

namespace kelplot {

struct PolylineSegment;

/// Draws the entities that a walk meets, in device coordinates.
class EntityPlotter : public EntityVisitor {
public:
    EntityPlotter(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& options,
                  HT_Renderer& renderer);

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override;

    /// What the entity may cover, with the width of its lines, in device coordinates.
    Box2 inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const;

private:
    /// The entity in hand.
    struct Current {
        const Entity& entity;
        const EntityStyle& style;
        const PlanMap& map;
    };

    HT_Color inkOf(const EntityStyle& style, InkUse use) const;
    Pen linePen(const EntityStyle& style) const;
    void useLinePen(const Current& current) { m_pens.setPen(linePen(current.style)); }
    void useFill(const Current& current);

    void draw(const PointEntity& point, const Current& current);
    void draw(const Line& line, const Current& current);
    void draw(const Circle& circle, const Current& current);
    void draw(const Arc& arc, const Current& current);
    void draw(const Ellipse& ellipse, const Current& current);
    void draw(const Polyline& polyline, const Current& current);
    void draw(const Spline& spline, const Current& current);
    void draw(const Solid& solid, const Current& current);
    void draw(const Face3d& face, const Current& current);
    void draw(const Hatch& hatch, const Current& current);
    void draw(const Insert&, const Current&) {} // the walk goes into blocks itself

    void strokeArc(const std::optional<EllipticArc>& arc, const Current& current);
    void strokeSegments(const std::vector<PolylineSegment>& segments, bool closed, bool wide, bool unbroken,
                        const PlanMap& map);
    void drawVaryingWidth(const std::vector<PolylineSegment>& segments, bool closed, const Current& current);

    const Drawing& m_drawing;
    const PlotTarget& m_target;
    const PlotStyleOptions& m_options;
    PenControl m_pens;
    Canvas m_canvas;
    double m_unitSize;  ///< device units in a drawing unit
    double m_pointSize; ///< device units
    std::vector<Vec2> m_path;
};

} // namespace kelplot
