// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/DrawingPlot.h"

#include "plot/entity/EntityKinds.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/LineTypeTexts.h"
#include "plot/entity/ViewportKind.h"
#include "plot/pen/ClipRegion.h"
#include "plot/shape/PointMark.h"

namespace kelplot {

namespace {

/// Each draws the whole model again; sheets of real drawings have a few.
constexpr size_t mostViewports = 100;

/// Collects what the entities that a walk meets leave out of a plot.
class UnplottedFinder : public EntityVisitor {
public:
    UnplottedFinder(const Drawing& drawing, const PatternTable& patterns) : m_drawing(drawing), m_patterns(patterns) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap&) override {
        if (lacksShapes(entity, style, m_drawing)) {
            m_kinds["shapes in line types"].insert(&entity);
        }
        constexpr size_t mostKinds = 100; // the patterns of a damaged drawing may have any number of names
        const std::string kind = unplottedPart(entity, m_drawing, m_patterns);
        if (!kind.empty()) {
            m_kinds[m_kinds.size() < mostKinds ? kind : "other entities"].insert(&entity);
        }
    }
    UnplottedKinds& kinds() { return m_kinds; }

private:
    const Drawing& m_drawing;
    const PatternTable& m_patterns;
    UnplottedKinds m_kinds;
};

/// Tells whether an entity is a viewport through which the model is drawn.
bool showsModel(const Entity& entity) {
    const auto* const viewport = std::get_if<Viewport>(&entity.geometry);
    return viewport != nullptr && viewport->on && !viewport->perspective;
}

class ExtentsFinder : public EntityVisitor {
public:
    ExtentsFinder(const Drawing& drawing, const Typesetter& texts, UnplottedFinder& unplotted)
        : m_texts(texts), m_unplotted(unplotted), m_pointsShow(isPointVisible(drawing.pointMode)) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override {
        if (m_pointsShow || !std::holds_alternative<PointEntity>(entity.geometry)) {
            m_extents.add(boxOf(MeasuredEntity{entity, map, CurveBox::exact, m_texts}));
        }
        m_unplotted.visit(entity, style, map);
        m_seesModel = m_seesModel || showsModel(entity);
    }
    const Box2& extents() const { return m_extents; }
    /// Whether the model shows through a viewport.
    bool seesModel() const { return m_seesModel; }

private:
    const Typesetter& m_texts;
    UnplottedFinder& m_unplotted;
    bool m_pointsShow;
    bool m_seesModel = false;
    Box2 m_extents;
};

/// Draws those of the entities that a walk meets that may show.
class EntityPlotter : public EntityVisitor {
public:
    /// @param isSheet  model space shows through viewports; they mean nothing in model space itself
    EntityPlotter(PlotTools& tools, bool isSheet) : m_tools(tools), m_isSheet(isSheet) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override {
        if (!m_tools.canvas.mayShow(inkBox(entity, style, map), 0.0)) {
            return;
        }
        if (m_isSheet && showsModel(entity)) {
            drawModel(std::get<Viewport>(entity.geometry), map);
        }
        const PlacedEntity place{entity, style, map};
        std::visit([&](const auto& geometry) { draw(geometry, place, m_tools); }, entity.geometry);
        drawLineTypeTexts(m_tools);
    }

    /// Draws entities, carried on by `map`.
    void run(const std::vector<Entity>& entities, const PlanMap& map, std::vector<uint32_t> frozenLayers,
             size_t visitsSpent, const Progress& progress) {
        WalkRules rules;
        rules.visitsSpent = visitsSpent;
        rules.frozenLayers = std::move(frozenLayers);
        rules.visible = VisiblePart{m_tools.target.visibleBox(),
                                    [this](const auto& entity, const auto& style, const auto& entityMap) {
                                        return inkBox(entity, style, entityMap);
                                    }};
        report.add(EntityWalk(m_tools.drawing, std::move(rules), *this).run(entities, map, progress));
        report.tintedHatches += m_tools.tintedHatches;
        report.lostLineTypeTexts = report.lostLineTypeTexts || m_tools.canvas.budget().lostTexts;
    }

    PlotReport report;

private:
    /// What the entity may cover, with the width of its lines, in device units.
    Box2 inkBox(const Entity& entity, const EntityStyle& style, const PlanMap& map) const {
        const bool isPoint = std::holds_alternative<PointEntity>(entity.geometry);
        const double margin = m_tools.linePen(style).width + (isPoint ? m_tools.pointSize() : 0.0);
        return boxOf(MeasuredEntity{entity, map, CurveBox::hull, m_tools.typesetter}).inflated(margin);
    }

    /// Draws model space as a viewport shows it, cut off at its border.
    void drawModel(const Viewport& viewport, const PlanMap& sheetMap) {
        const PlanMap view = viewOf(viewport).then(sheetMap);
        const std::vector<Vec2> border = borderOf(viewport, sheetMap, m_tools.canvas.flattening());
        const double scale = scaleOf(viewport);
        if (!(scale > 0.0) || border.size() < 3) {
            return;
        }
        if (report.viewports == mostViewports) {
            report.tooManyViewports = true;
            return;
        }
        PlotTarget target = m_tools.target;
        target.toDevice =
            target.toDevice.after(Affine2::scaling(scale, scale)); // for lengths alone: views may be askew
        target.limits.push_back(boxOfPoints(border));
        target.border = border;
        HT_Renderer& renderer = m_tools.surface.renderer;
        renderer.SetClipRgn(visibleRegion(target).get());
        const auto lineTypeUnits =
            m_tools.drawing.paperLineTypes ? std::optional<double>(m_tools.lineTypeUnits()) : std::nullopt;
        PlotTools tools(m_tools.drawing, target, m_tools.options, m_tools.typesetter, m_tools.pictures.store(),
                        m_tools.surface, lineTypeUnits);
        tools.patternDashesLeft = m_tools.patternDashesLeft;
        tools.canvas.setBudget(m_tools.canvas.budget());
        EntityPlotter plotter(tools, false);
        plotter.run(m_tools.drawing.modelSpace, view, viewport.frozenLayers, report.visitsInBlocks, {});
        m_tools.patternDashesLeft = tools.patternDashesLeft;
        m_tools.canvas.setBudget(tools.canvas.budget());
        report.add(plotter.report);
        ++report.viewports;
        renderer.SetClipRgn(visibleRegion(m_tools.target).get());
        m_tools.pens.forget();
    }

    PlotTools& m_tools;
    bool m_isSheet;
};

} // namespace

void PlotReport::add(const PlotReport& other) {
    WalkReport::add(other);
    tintedHatches += other.tintedHatches;
    viewports += other.viewports;
    lostLineTypeTexts = lostLineTypeTexts || other.lostLineTypeTexts;
    tooManyViewports = tooManyViewports || other.tooManyViewports;
}

Box2 DrawingPlot::extents(const std::vector<Entity>& entities, ExtentsReport* report) const {
    UnplottedFinder unplotted(m_drawing, m_style.patterns);
    ExtentsFinder finder(m_drawing, m_texts, unplotted);
    const auto walk = [&](EntityVisitor& visitor, const std::vector<Entity>& walked) {
        WalkRules rules;
        rules.copies = ArrayCopies::corners;
        return EntityWalk(m_drawing, std::move(rules), visitor).run(walked, PlanMap(), {});
    };
    WalkReport found = walk(finder, entities);
    if (finder.seesModel() && &entities != &m_drawing.modelSpace) {
        found.add(walk(unplotted, m_drawing.modelSpace));
    }
    if (report) {
        *report = {std::move(found), std::move(unplotted.kinds())};
    }
    return finder.extents();
}

PlotReport DrawingPlot::draw(const std::vector<Entity>& entities, const PlotTarget& target, const PlotSurface& surface,
                             const Progress& progress) const {
    surface.renderer.SetClipRgn(visibleRegion(target).get());
    PictureStore pictures(m_drawing);
    PlotTools tools(m_drawing, target, m_style, m_texts, pictures, surface);
    EntityPlotter plotter(tools, &entities != &m_drawing.modelSpace);
    plotter.run(entities, PlanMap(target.toDevice), {}, 0, progress);
    plotter.report.missingPictures = pictures.missing();
    return std::move(plotter.report);
}

} // namespace kelplot
