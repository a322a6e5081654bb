// SPDX-License-Identifier: GPL-2.0-or-later
#include "page/LayoutPage.h"

#include <algorithm>

namespace kelplot {

namespace {

/// The margins as they lie about the drawing, which is turned to the left on the paper.
Margins turnedMargins(const PlotSettings& settings) {
    Margins margins{settings.leftMargin, settings.topMargin, settings.rightMargin, settings.bottomMargin};
    for (int i = 0; i < settings.quarterTurns; ++i) {
        margins = {margins.bottom, margins.left, margins.top, margins.right};
    }
    return margins;
}

/// Places what is plotted as the settings say.
void place(const PlotSettings& settings, const Box2& extents, PageOptions& page) {
    Vec2 corner; // of what is plotted, in the sheet's coordinates
    if (settings.area == PlotSettings::Area::window && settings.window.width() > 0.0 &&
        settings.window.height() > 0.0) {
        page.window = settings.window;
        corner = settings.window.min;
    } else if (settings.area == PlotSettings::Area::extents && !extents.isEmpty()) {
        corner = extents.min;
    }
    page.centred = settings.centred;
    page.anchor = PageAnchor{corner, settings.origin};
    page.scale = settings.fitted ? std::nullopt : std::optional<double>(settings.scale);
}

} // namespace

std::optional<PageOptions> pageOfLayout(const PlotSettings& settings, const Box2& extents, const PageOptions& asked,
                                        const StatedPage& stated) {
    PageOptions page = asked;
    const bool statesPaper = settings.paperWidth != 0.0 || settings.paperHeight != 0.0;
    if (!statesPaper) {
        return page;
    }
    if (!stated.paper) {
        const SheetSize size{settings.paperWidth, settings.paperHeight};
        page.paper = {settings.quarterTurns % 2 == 1 ? size.turned() : size, true};
        page.margins = stated.margins ? asked.margins : turnedMargins(settings);
    }
    if (!stated.placement) {
        place(settings, extents, page);
    }
    const Margins& margins = page.margins;
    const bool marginsAreSound = std::min({margins.left, margins.top, margins.right, margins.bottom}) >= 0.0;
    return isSheet(page.paper.size) && marginsAreSound && leavesRoom(page) ? std::optional(page) : std::nullopt;
}

} // namespace kelplot
