// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"
#include "reader/object/DrawingObjects.h"

namespace kelplot {

/// The handle of the spatial filter that an extension dictionary leads to; 0: none that cuts.
uint64_t filterOf(uint64_t extensionDictionary, const DrawingObjects& objects);

/// What a reference with such a filter shows.
ReferenceClip clipOf(uint64_t filter, const DrawingObjects& objects);

} // namespace kelplot
