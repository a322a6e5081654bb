// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

namespace kelplot {

/// What the program tells its caller; of several drawings, the highest counts.
enum class ExitStatus {
    done = 0,
    usage = 1,
    cannotOpen = 2, ///< a drawing or a file of settings
    notADrawing = 3,
    outputFailed = 4,
    printFailed = 5,
};

} // namespace kelplot
