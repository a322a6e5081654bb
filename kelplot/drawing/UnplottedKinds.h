// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "drawing/Drawing.h"

namespace kelplot {

/// The index into Drawing::unplottedKinds of a kind, which is added where it is new. A drawing names so many kinds at
/// most; those beyond have one index together.
uint32_t unplottedKind(std::string_view kind, Drawing& drawing);

} // namespace kelplot
