// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

namespace kelplot {

/// Told how far a long piece of work has come, from 0 to 1. Reading and plotting report it alike; empty where nobody
/// looks.
using Progress = std::function<void(double fraction)>;

} // namespace kelplot
