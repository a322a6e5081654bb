// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "reader/GroupReader.h"

namespace kelplot {

/// Throws `DrawingFault` where `group`, in a record of `type`, announces more items than the
/// `remaining` bytes of the file can hold. A count that is wrong by less does no harm: records are
/// built from the items that come.
void checkCount(std::string_view type, const Group& group, std::uintmax_t remaining);

} // namespace kelplot
