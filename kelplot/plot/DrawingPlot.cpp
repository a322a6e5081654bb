#include "plot/DrawingPlot.h"

#include "plot/EntityBox.h"
#include "plot/EntityPlotter.h"
#include "plot/PointMark.h"

namespace kelplot {

namespace {

class ExtentsFinder : public EntityVisitor {
public:
    explicit ExtentsFinder(bool pointsShow) : m_pointsShow(pointsShow) {}

    void visit(const Entity& entity, const EntityStyle&, const PlanMap& map) override {
        if (m_pointsShow || !std::holds_alternative<PointEntity>(entity.geometry)) {
            m_extents.add(boxOf(entity, map, CurveBox::exact));
        }
    }
    const Box2& extents() const { return m_extents; }

private:
    bool m_pointsShow;
    Box2 m_extents;
};

} // namespace

Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities) {
    ExtentsFinder finder(isPointVisible(drawing.pointMode));
    EntityWalk(drawing, ArrayCopies::corners, finder).run(entities, PlanMap(), {});
    return finder.extents();
}

void plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                  const PlotStyleOptions& style, HT_Renderer& renderer, const Progress& progress) {
    EntityPlotter plotter(drawing, target, style, renderer);
    EntityWalk(drawing, ArrayCopies::all, plotter).run(entities, PlanMap(target.toDevice), progress);
}

} // namespace kelplot
