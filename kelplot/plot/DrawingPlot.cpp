// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/DrawingPlot.h"

#include "plot/EntityBox.h"
#include "plot/EntityPlotter.h"
#include "plot/pen/ClipRegion.h"
#include "plot/shape/PointMark.h"
#include "plot/text/Typesetter.h"

namespace kelplot {

namespace {

class ExtentsFinder : public EntityVisitor {
public:
    ExtentsFinder(const Drawing& drawing, const FontTable& fonts)
        : m_texts(drawing, fonts), m_pointsShow(isPointVisible(drawing.pointMode)) {}

    void visit(const Entity& entity, const EntityStyle&, const PlanMap& map) override {
        if (m_pointsShow || !std::holds_alternative<PointEntity>(entity.geometry)) {
            m_extents.add(boxOf(entity, map, CurveBox::exact, m_texts));
        }
    }
    const Box2& extents() const { return m_extents; }

private:
    Typesetter m_texts;
    bool m_pointsShow;
    Box2 m_extents;
};

} // namespace

Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities, WalkReport* report,
                    const FontTable& fonts) {
    ExtentsFinder finder(drawing, fonts);
    WalkRules rules;
    rules.copies = ArrayCopies::corners;
    WalkReport found = EntityWalk(drawing, rules, finder).run(entities, PlanMap(), {});
    if (report) {
        *report = std::move(found);
    }
    return finder.extents();
}

PlotReport plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                        const PlotStyleOptions& style, HT_Renderer& renderer, const Progress& progress) {
    renderer.SetClipRgn(commonRegion(target.pageBox, target.limits).get());
    EntityPlotter plotter(drawing, target, style, renderer);
    WalkRules rules;
    rules.visible =
        VisiblePart{target.visibleBox(), [&plotter](const auto& entity, const auto& entityStyle, const auto& map) {
                        return plotter.inkBox(entity, entityStyle, map);
                    }};
    WalkReport walked = EntityWalk(drawing, rules, plotter).run(entities, PlanMap(target.toDevice), progress);
    return {std::move(walked), plotter.missingPictures()};
}

} // namespace kelplot
