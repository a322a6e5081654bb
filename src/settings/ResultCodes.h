// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace inifile {

/// What the operations of a settings file answer; 0 is success.
enum ResultCode : int {
    noClosingBracket = 2,
    emptySectionName = 3,
    sectionExists = 4,
    noEqualsSign = 5,
    cannotOpen = 6,
    keyMissing = 8,
    sectionMissing = 9,
};

} // namespace inifile
