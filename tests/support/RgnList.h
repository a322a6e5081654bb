// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>

#include "keldriver/ClipRgn.h"

struct RgnListDeleter {
    void operator()(HT_ClipRgn* rgn) const { KelDriver::HT_DeleteRgn(rgn); }
};

/// A region list that a test owns.
using RgnList = std::unique_ptr<HT_ClipRgn, RgnListDeleter>;
