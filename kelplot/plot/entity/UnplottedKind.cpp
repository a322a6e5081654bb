// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/entity/EntityKinds.h"

#include <algorithm>
#include <cmath>

#include "plot/entity/ViewportKind.h"

namespace kelplot {

namespace {

/// Tells whether any of the lines have a distance from one to the next.
bool canBeDrawn(const std::vector<PatternLine>& lines) {
    return std::any_of(lines.begin(), lines.end(), [](const PatternLine& line) {
        const Vec2 along{std::cos(line.angle), std::sin(line.angle)};
        return std::isnormal(cross(along, line.offset));
    });
}

bool canBeDrawn(const Hatch& hatch, const PatternTable& patterns) {
    if (hatch.outlined && !hatch.solid && hatch.pattern.lines.empty() && hatch.pattern.name.empty()) {
        return true; // it has no filling
    }
    if (hatch.solid || hatch.gradient || !hatch.pattern.lines.empty()) {
        return hatch.solid || hatch.gradient || canBeDrawn(hatch.pattern.lines);
    }
    const auto* const named = patterns.find(QString::fromStdString(hatch.pattern.name));
    return named != nullptr && hatch.pattern.scale != 0.0 && canBeDrawn(*named);
}

/// A name as a message can show it.
std::string shownName(const std::string& name) {
    constexpr size_t longest = 40;
    std::string result = name.substr(0, longest);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c >= 0 && c < ' '; }, '?');
    return result;
}

} // namespace

std::string unplottedPart(const Entity& entity, const Drawing& drawing, const PatternTable& patterns) {
    if (const auto* const unplotted = geometryAs<Unplotted>(entity)) {
        return drawing.unplottedKinds[unplotted->kind];
    }
    const auto* const viewport = geometryAs<Viewport>(entity);
    if (viewport && viewport->on && viewport->perspective) {
        return "VIEWPORT in perspective";
    }
    if (viewport && viewport->on && !(viewport->viewHeight > 0.0)) {
        return "VIEWPORT without a view";
    }
    if (viewport && viewport->on && losesBorder(*viewport)) {
        return "clip of a VIEWPORT";
    }
    const auto* const image = geometryAs<Image>(entity);
    if (image && image->lostBorder) {
        return "clip of an IMAGE";
    }
    const auto* const hatch = geometryAs<Hatch>(entity);
    return hatch && !canBeDrawn(*hatch, patterns) ? "HATCH with the pattern " + shownName(hatch->pattern.name) : "";
}

bool hasLines(const Entity& entity) {
    return visitGeometry(
        [](const auto& geometry) {
            using Kind = std::decay_t<decltype(geometry)>;
            return !(std::is_same_v<Kind, PointEntity> || std::is_same_v<Kind, Solid> || std::is_same_v<Kind, Hatch> ||
                     std::is_same_v<Kind, Text> || std::is_same_v<Kind, MText> || std::is_same_v<Kind, Image> ||
                     std::is_same_v<Kind, Wipeout> || std::is_same_v<Kind, Unplotted>);
        },
        entity);
}

} // namespace kelplot
