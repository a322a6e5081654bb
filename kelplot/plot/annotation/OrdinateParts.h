// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "plot/annotation/DimensionDraft.h"

namespace kelplot {

/// Adds the line and text of an ordinate.
void addOrdinateParts(DimensionDraft& draft);

} // namespace kelplot
