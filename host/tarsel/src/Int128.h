// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tarsel {

/// Products of two grid coordinates, exactly. Doubles would lose the side on which a point of a sliver lies.
__extension__ typedef __int128 Int128; // NOLINT(modernize-use-using): only a typedef may be an extension

} // namespace tarsel
