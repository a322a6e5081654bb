// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "reader/groups/GroupSource.h"

namespace kelplot {

/// Throws `DrawingFault` where `group`, in a record of `type`, announces more items than the
/// `groupsLeft` of the file can state. A count that is wrong by less does no harm: records are
/// built from the items that come.
void checkCount(std::string_view type, const Group& group, std::uintmax_t groupsLeft);

} // namespace kelplot
