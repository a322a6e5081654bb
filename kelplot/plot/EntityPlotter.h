// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include "plot/EntityWalk.h"
#include "plot/PlotOptions.h"
#include "plot/pen/Canvas.h"
#include "plot/pen/Ink.h"
#include "plot/pen/PenControl.h"
#include "plot/picture/PicturePlotter.h"
#include "plot/text/TextPlotter.h"
#include "plot/text/Typesetter.h"

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

    /// The pictures that could not be loaded.
    const PictureFaults& missingPictures() const { return m_pictures.missing(); }

private:
    /// The entity in hand.
    struct Current {
        const Entity& entity;
        const EntityStyle& style;
        const PlanMap& map;
    };

    HT_Color inkOf(const EntityStyle& style, InkUse use) const;
    Pen linePen(const EntityStyle& style) const;
    EntityStyle styleOf(const std::optional<Colour>& colour, const Current& current) const;
    void useLinePen(const Current& current) { m_pens.setPen(linePen(current.style)); }
    void useFill(const Current& current);

    void draw(const PointEntity& point, const Current& current);
    void draw(const Line& line, const Current& current);
    void draw(const ConstructionLine& line, const Current& current);
    void draw(const Circle& circle, const Current& current);
    void draw(const Arc& arc, const Current& current);
    void draw(const Ellipse& ellipse, const Current& current);
    void draw(const Polyline& polyline, const Current& current);
    void draw(const Spline& spline, const Current& current);
    void draw(const Solid& solid, const Current& current);
    void draw(const Face3d& face, const Current& current);
    void draw(const Hatch& hatch, const Current& current);
    void draw(const Text& text, const Current& current) { draw(m_typesetter.place(text), current); }
    void draw(const MText& text, const Current& current) { draw(m_typesetter.place(text), current); }
    void draw(const PlacedText& text, const Current& current);
    void draw(const Image& image, const Current& current);
    void draw(const Wipeout& wipeout, const Current& current);
    void draw(const Insert&, const Current&) {} // the walk goes into blocks itself

    void strokeArc(const std::optional<EllipticArc>& arc, const Current& current);
    /// Of a polyline's lines: that of its entity, or one that the polyline states.
    enum class LineWidth { ofEntity, own };
    void strokeSegments(const Polyline& polyline, const std::vector<PolylineSegment>& segments, LineWidth width,
                        const PlanMap& map);
    void drawVaryingWidth(const std::vector<PolylineSegment>& segments, bool closed, const Current& current);

    void frame(const Image& image, const std::vector<Vec2>& pixels, const Current& current);
    void frame(const std::vector<Vec3>& corners, const Current& current);

    const Drawing& m_drawing;
    const PlotTarget& m_target;
    const PlotStyleOptions& m_options;
    PenControl m_pens;
    Canvas m_canvas;
    PicturePlotter m_pictures;
    Typesetter m_typesetter;
    TextPlotter m_texts;
    double m_unitSize;  ///< device units in a drawing unit
    double m_pointSize; ///< device units
    std::vector<Vec2> m_path;
};

} // namespace kelplot
