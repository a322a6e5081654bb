// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/DrawingPlot.h"

#include "plot/entity/EntityKinds.h"
#include "plot/pen/ClipRegion.h"
#include "plot/shape/PointMark.h"

namespace kelplot {

namespace {

class ExtentsFinder : public EntityVisitor {
public:
    ExtentsFinder(const Drawing& drawing, const Typesetter& texts, const PatternTable& patterns)
        : m_drawing(drawing), m_texts(texts), m_patterns(patterns), m_pointsShow(isPointVisible(drawing.pointMode)) {}

    void visit(const Entity& entity, const EntityStyle&, const PlanMap& map) override {
        if (m_pointsShow || !std::holds_alternative<PointEntity>(entity.geometry)) {
            m_extents.add(boxOf(MeasuredEntity{entity, map, CurveBox::exact, m_texts}));
        }
        if (const std::string kind = unplottedPart(entity, m_drawing, m_patterns); !kind.empty()) {
            m_unplotted[kind].insert(&entity);
        }
    }
    const Box2& extents() const { return m_extents; }
    /// What the entities that were met leave out of a plot.
    std::map<std::string, std::set<const Entity*>>& unplotted() { return m_unplotted; }

private:
    const Drawing& m_drawing;
    const Typesetter& m_texts;
    const PatternTable& m_patterns;
    std::map<std::string, std::set<const Entity*>> m_unplotted;
    bool m_pointsShow;
    Box2 m_extents;
};

/// Draws those of the entities that a walk meets that may show.
class EntityPlotter : public EntityVisitor {
public:
    explicit EntityPlotter(PlotTools& tools) : m_tools(tools) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override {
        if (m_tools.canvas.mayShow(inkBox(entity, style, map), 0.0)) {
            const PlacedEntity place{entity, style, map};
            std::visit([&](const auto& geometry) { draw(geometry, place, m_tools); }, entity.geometry);
        }
    }

    /// What the entity may cover, with the width of its lines, in device units.
    Box2 inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const {
        const bool isPoint = std::holds_alternative<PointEntity>(entity.geometry);
        const double margin = m_tools.linePen(style).width + (isPoint ? m_tools.pointSize() : 0.0);
        return boxOf(MeasuredEntity{entity, map, CurveBox::hull, m_tools.typesetter}).inflated(margin);
    }

private:
    PlotTools& m_tools;
};

} // namespace

Box2 DrawingPlot::extents(const std::vector<Entity>& entities, ExtentsReport* report) const {
    ExtentsFinder finder(m_drawing, m_texts, m_style.patterns);
    WalkRules rules;
    rules.copies = ArrayCopies::corners;
    WalkReport found = EntityWalk(m_drawing, rules, finder).run(entities, PlanMap(), {});
    if (report) {
        *report = {std::move(found), std::move(finder.unplotted())};
    }
    return finder.extents();
}

PlotReport DrawingPlot::draw(const std::vector<Entity>& entities, const PlotTarget& target, const PlotSurface& surface,
                             const Progress& progress) const {
    surface.renderer.SetClipRgn(commonRegion(target.pageBox, target.limits).get());
    PlotTools tools(m_drawing, target, m_style, m_texts, surface);
    EntityPlotter plotter(tools);
    WalkRules rules;
    rules.visible =
        VisiblePart{target.visibleBox(), [&plotter](const auto& entity, const auto& entityStyle, const auto& map) {
                        return plotter.inkBox(entity, entityStyle, map);
                    }};
    WalkReport walked = EntityWalk(m_drawing, rules, plotter).run(entities, PlanMap(target.toDevice), progress);
    return {std::move(walked), tools.pictures.missing(), tools.tintedHatches};
}

} // namespace kelplot
