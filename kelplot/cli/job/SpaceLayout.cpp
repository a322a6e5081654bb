// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/SpaceLayout.h"

#include "cli/job/PlotMessages.h"

namespace kelplot {

SpaceLayout layOutSpace(const Drawing& drawing, const DrawingPlot& plot, const Space& space, const PlotPlan& plan) {
    SpaceLayout found;
    const Box2 extents = plot.extents(space.entities, &found.extents);
    found.warnings << missingParts(drawing, found.extents);
    PageOptions page = plan.page;
    double millimetresPerUnit = plan.millimetresPerUnit.value_or(drawing.millimetresPerUnit);
    if (space.layout) {
        const auto own = pageOfLayout(space.layout->settings, extents, page, plan.statedPage);
        if (own) {
            page = *own;
        } else {
            found.warnings << QStringLiteral(
                "the paper and margins of the layout leave no room; it is fitted to the usual paper");
        }
        millimetresPerUnit = space.layout->settings.millimetresPerUnit;
    }
    found.page = layOutPage(extents, millimetresPerUnit, page);
    if (extents.isEmpty()) {
        found.warnings << QStringLiteral("nothing to plot");
    } else if (page.window && !page.window->intersects(extents)) {
        found.warnings << QStringLiteral("nothing to plot in the window");
    } else if (!found.page.drawingFits) {
        found.warnings << tooLarge(page.window.value_or(extents), millimetresPerUnit, found.page,
                                   page.window.has_value());
    }
    return found;
}

} // namespace kelplot
