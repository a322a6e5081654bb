// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Entity.h"
#include "reader/object/DrawingObjects.h"

namespace kelplot {

/// A layer and the dictionary that lists what programs know of it.
struct LayerExtension {
    uint32_t layer;
    uint64_t dictionary;
};

/// How layers look in viewports, by the handles of these.
QHash<uint64_t, std::vector<LayerOverride>> layerOverrides(const std::vector<LayerExtension>& extensions,
                                                           const DrawingObjects& objects,
                                                           const QHash<uint64_t, uint32_t>& lineTypes);

} // namespace kelplot
