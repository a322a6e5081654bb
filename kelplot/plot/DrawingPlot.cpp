// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/DrawingPlot.h"

#include <algorithm>

#include "plot/entity/EntityKinds.h"
#include "plot/entity/KindBoxes.h"
#include "plot/entity/LineTypeTexts.h"
#include "plot/entity/ViewportKind.h"
#include "plot/pen/ClipStack.h"
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
        if (hasLines(entity) && style.lineType < m_drawing.lineTypes.size()) {
            visitLine(entity, style.lineType);
        }
        constexpr size_t mostKinds = 100; // the patterns of a damaged drawing may have any number of names
        const std::string kind = unplottedPart(entity, m_drawing, m_patterns);
        if (!kind.empty()) {
            m_kinds[m_kinds.size() < mostKinds ? kind : "other entities"].insert(&entity);
        }
    }
    UnplottedKinds& kinds() { return m_kinds; }
    std::set<uint32_t>& undefinedLineTypes() { return m_undefinedLineTypes; }

private:
    void visitLine(const Entity& entity, uint32_t lineType) {
        if (m_drawing.lineTypes[lineType].lacksShapes) {
            m_kinds["shapes in line types"].insert(&entity);
        }
        if (!m_drawing.lineTypes[lineType].defined) {
            m_undefinedLineTypes.insert(lineType);
        }
    }

    const Drawing& m_drawing;
    const PatternTable& m_patterns;
    UnplottedKinds m_kinds;
    std::set<uint32_t> m_undefinedLineTypes;
};

/// Tells whether a polygon is a rectangle with sides along the axes.
bool isUprightRectangle(const std::vector<Vec2>& polygon) {
    const auto isUpright = [&](size_t from) {
        const Vec2 side = polygon[(from + 1) % 4] - polygon[from];
        const Vec2 opposite = polygon[(from + 2) % 4] - polygon[(from + 3) % 4];
        return side == opposite && (side.x == 0.0 || side.y == 0.0);
    };
    return polygon.size() == 4 && isUpright(0) && isUpright(1);
}

/// Tells whether an entity is a viewport through which the model is drawn.
bool showsModel(const Entity& entity) {
    const auto* const viewport = geometryAs<Viewport>(entity);
    return viewport != nullptr && viewport->on && !viewport->perspective;
}

class ExtentsFinder : public EntityVisitor {
public:
    ExtentsFinder(const Drawing& drawing, const Typesetter& texts, UnplottedFinder& unplotted)
        : m_texts(texts), m_unplotted(unplotted), m_pointsShow(isPointVisible(drawing.pointMode)) {}

    void visit(const Entity& entity, const EntityStyle& style, const PlanMap& map) override {
        if (m_pointsShow || !std::holds_alternative<PointEntity>(entity.geometry)) {
            add(entity, map);
        }
        m_unplotted.visit(entity, style, map);
        m_seesModel = m_seesModel || showsModel(entity);
    }
    void beginClip(const WalkClip& clip) override {
        if (clip.frame != nullptr) {
            m_extents.add(visiblePart(boxOfPoints(clip.border)));
        }
        m_clips.push_back(clip);
    }
    void endClip() override { m_clips.pop_back(); }

    const Box2& extents() const { return m_extents; }
    /// Whether the model shows through a viewport.
    bool seesModel() const { return m_seesModel; }

private:
    /// Most entities lie within what has been seen before, which is quick to tell.
    void add(const Entity& entity, const PlanMap& map) {
        if (!m_extents.contains(boxOf(MeasuredEntity{entity, map, CurveBox::hull, m_texts}))) {
            m_extents.add(visiblePart(boxOf(MeasuredEntity{entity, map, CurveBox::exact, m_texts})));
        }
    }

    /// What the clips leave of a box, or a little more; empty where that is nothing.
    Box2 visiblePart(Box2 box) const {
        for (const WalkClip& clip : m_clips) {
            const Box2 border = boxOfPoints(clip.border);
            if (!clip.inverted) {
                box = box.intersected(border);
            } else if (isUprightRectangle(clip.border) && border.contains(box)) {
                return {};
            }
        }
        return box;
    }

    const Typesetter& m_texts;
    std::vector<WalkClip> m_clips; ///< that the walk is in
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
        const bool isHidden = std::find(m_hiding.begin(), m_hiding.end(), true) != m_hiding.end();
        if (isHidden || !m_tools.canvas.mayShow(inkBox(entity, style, map), 0.0)) {
            return;
        }
        if (m_isSheet && showsModel(entity)) {
            drawModel(*geometryAs<Viewport>(entity), map);
        }
        m_tools.useLayer(style);
        const PlacedEntity place{entity, style, map};
        const size_t tintedBefore = m_tools.tintedHatches;
        visitGeometry([&](const auto& geometry) { draw(geometry, place, m_tools); }, entity);
        if (m_tools.tintedHatches != tintedBefore) {
            report.tintedHatches.insert(&entity);
        }
        drawLineTypeTexts(m_tools);
    }

    void beginCopy() override {
        if (m_tools.surface.direct != nullptr) {
            m_tools.surface.direct->beginCopy();
        }
    }
    void endCopy() override {
        if (m_tools.surface.direct != nullptr) {
            m_tools.surface.direct->endCopy();
        }
    }

    void beginClip(const WalkClip& clip) override {
        if (clip.frame != nullptr) {
            m_tools.useLayer(*clip.frame);
            m_tools.useLinePen(*clip.frame);
            m_tools.canvas.drawOutline(clip.border);
        }
        const std::vector<Vec2> border = m_tools.canvas.visiblePart(clip.border);
        m_hiding.push_back(!clip.inverted && border.size() < 3);
        m_tools.clips.push(border, clip.inverted ? ClipStack::Keeps::outside : ClipStack::Keeps::inside);
    }
    void endClip() override {
        m_hiding.pop_back();
        m_tools.clips.pop();
    }

    /// Draws entities, carried on by `map`.
    void run(const std::vector<Entity>& entities, const PlanMap& map, LayerView layers, size_t visitsSpent,
             const Progress& progress) {
        WalkRules rules;
        rules.visitsSpent = visitsSpent;
        rules.layers = std::move(layers);
        rules.visible = VisiblePart{m_tools.target.drawnBox(),
                                    [this](const auto& entity, const auto& style, const auto& entityMap) {
                                        return inkBox(entity, style, entityMap);
                                    }};
        const Progress told = [&](double fraction) {
            m_done = fraction;
            progress(fraction);
        };
        m_progress = progress ? &told : nullptr;
        report.add(EntityWalk(m_tools.drawing, std::move(rules), *this).run(entities, map, progress ? told : progress));
        m_progress = nullptr;
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
        m_tools.clips.push(border, ClipStack::Keeps::inside);
        const auto lineTypeUnits =
            m_tools.drawing.paperLineTypes ? std::optional<double>(m_tools.lineTypeUnits()) : std::nullopt;
        PlotTools tools(m_tools.drawing, target, m_tools.options, m_tools.typesetter, m_tools.pictures.store(),
                        m_tools.surface, m_tools.clips, lineTypeUnits);
        tools.patternDashesLeft = m_tools.patternDashesLeft;
        tools.canvas.setBudget(m_tools.canvas.budget());
        EntityPlotter plotter(tools, false);
        plotter.run(m_tools.drawing.modelSpace, view, {viewport.frozenLayers, viewport.overrides},
                    report.visitsInBlocks, progressWithin());
        m_tools.patternDashesLeft = tools.patternDashesLeft;
        m_tools.canvas.setBudget(tools.canvas.budget());
        report.add(plotter.report);
        ++report.viewports;
        m_tools.clips.pop();
        m_tools.pens.forget();
        m_tools.forgetLayer();
    }

    /// For what is drawn as a part of one entity: it tells that the plot goes on, so that it can be ended there too.
    Progress progressWithin() const {
        if (m_progress == nullptr) {
            return {};
        }
        return [this](double) {
            (*m_progress)(m_done);
        };
    }

    PlotTools& m_tools;
    bool m_isSheet;
    const Progress* m_progress = nullptr; ///< of the walk that is under way
    double m_done = 0.0;
    std::vector<bool> m_hiding; ///< for each clip that the walk is in, whether it leaves nothing of the page
};

} // namespace

void PlotReport::add(const PlotReport& other) {
    WalkReport::add(other);
    tintedHatches.insert(other.tintedHatches.begin(), other.tintedHatches.end());
    missingPictures.insert(other.missingPictures.begin(), other.missingPictures.end());
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
        *report = {std::move(found), std::move(unplotted.kinds()), std::move(unplotted.undefinedLineTypes())};
    }
    return finder.extents();
}

PlotReport DrawingPlot::draw(const std::vector<Entity>& entities, const PlotTarget& target, const PlotSurface& surface,
                             const Progress& progress) const {
    ClipStack clips(surface.renderer, target);
    PictureStore pictures(m_drawing);
    PlotTools tools(m_drawing, target, m_style, m_texts, pictures, surface, clips);
    EntityPlotter plotter(tools, &entities != &m_drawing.modelSpace);
    plotter.run(entities, PlanMap(target.toDevice), {}, 0, progress);
    plotter.report.missingPictures = pictures.missing();
    return std::move(plotter.report);
}

} // namespace kelplot
