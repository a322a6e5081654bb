// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/ReferenceClips.h"

#include "geometry/Crossings.h"
#include "reader/GroupValue.h"
#include "reader/object/ObjectNames.h"

namespace kelplot {

namespace {

/// The border of the part that an inverted clip leaves out; empty for other clips.
std::vector<Vec2> invertedBorder(const SpatialFilter& filter, const DrawingObjects& objects) {
    std::vector<Vec2> border;
    const uint64_t record = objects.find(filter.extensionDictionary, objectNames::invertedBorder);
    for (const KeptGroup& group : objects.records.value(record)) {
        if (group.code == 10) {
            border.push_back({toReal(group.value), 0.0});
        } else if (group.code == 20 && !border.empty()) {
            border.back().y = toReal(group.value);
        }
    }
    return border;
}

std::vector<Vec2> cornersOf(const std::vector<Vec2>& border) {
    if (border.size() != 2) {
        return border;
    }
    return {border[0], {border[1].x, border[0].y}, border[1], {border[0].x, border[1].y}};
}

} // namespace

uint64_t filterOf(uint64_t extensionDictionary, const DrawingObjects& objects) {
    const uint64_t filters = objects.find(extensionDictionary, objectNames::filters);
    const uint64_t filter = objects.find(filters, objectNames::spatialFilter);
    const auto found = objects.spatialFilters.constFind(filter);
    return found != objects.spatialFilters.constEnd() && found->on ? filter : 0;
}

ReferenceClip clipOf(uint64_t filter, const DrawingObjects& objects) {
    ReferenceClip clip;
    const auto found = objects.spatialFilters.constFind(filter);
    if (found == objects.spatialFilters.constEnd()) {
        return clip;
    }
    const std::vector<Vec2> inverted = invertedBorder(*found, objects);
    clip.inverted = inverted.size() > 1;
    const std::optional<Frame3> fromBorder = inverseOf(found->toBorder);
    std::vector<Vec2> corners = cornersOf(clip.inverted ? inverted : found->border);
    clip.crossings = crossingsIn(corners);
    const bool isTangle = clip.crossings > mostCrossings;
    clip.slices = found->slices || !fromBorder || isTangle;
    if (isTangle) {
        clip.crossings = 0;
        corners = clip.inverted ? std::vector<Vec2>() : boxAround(corners);
    }
    if (!fromBorder || corners.size() < 3) {
        return clip;
    }
    clip.depth = found->toBlock.mapDirection(fromBorder->z);
    for (const Vec2 corner : corners) {
        clip.border.push_back(found->toBlock.mapPoint(fromBorder->mapPoint({corner.x, corner.y, 0.0})));
    }
    return clip;
}

} // namespace kelplot
