// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/EntityKinds.h"

namespace kelplot {

std::string unplottedPart(const Entity& entity, const Drawing& drawing, const PatternTable& patterns) {
    if (const auto* const unplotted = std::get_if<Unplotted>(&entity.geometry)) {
        return drawing.unplottedKinds[unplotted->kind];
    }
    const auto* const viewport = std::get_if<Viewport>(&entity.geometry);
    if (viewport && viewport->on && viewport->perspective) {
        return "VIEWPORT in perspective";
    }
    const auto* const hatch = std::get_if<Hatch>(&entity.geometry);
    if (hatch && !hatch->solid && !hatch->gradient && hatch->pattern.lines.empty() &&
        patterns.find(QString::fromStdString(hatch->pattern.name)) == nullptr) {
        return "HATCH with the pattern " + hatch->pattern.name;
    }
    return {};
}

} // namespace kelplot
