// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Drawing.h"
#include "reader/object/DrawingObjects.h"

namespace kelplot {

/// What a reference shows whose extension dictionary has this handle.
ReferenceClip clipOf(uint64_t extensionDictionary, const DrawingObjects& objects);

} // namespace kelplot
