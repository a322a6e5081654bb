// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

namespace kelplot {

/// Receives the progress of a long piece of work, from 0 to 1. Reading and plotting both report it; empty when nobody
/// is watching.
using Progress = std::function<void(double fraction)>;

} // namespace kelplot
