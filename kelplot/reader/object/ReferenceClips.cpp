// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/object/ReferenceClips.h"

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

ReferenceClip clipOf(uint64_t extensionDictionary, const DrawingObjects& objects) {
    ReferenceClip clip;
    const uint64_t filters = objects.find(extensionDictionary, objectNames::filters);
    const auto found = objects.spatialFilters.constFind(objects.find(filters, objectNames::spatialFilter));
    if (found == objects.spatialFilters.constEnd() || !found->on) {
        return clip;
    }
    const std::vector<Vec2> inverted = invertedBorder(*found, objects);
    clip.inverted = inverted.size() > 1;
    const std::optional<Frame3> fromBorder = inverseOf(found->toBorder);
    const std::vector<Vec2> corners = cornersOf(clip.inverted ? inverted : found->border);
    clip.slices = found->slices || !fromBorder;
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
