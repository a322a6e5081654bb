// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <iosfwd>

namespace kelplot {

/// Prints one printer per line, with tabs: the name, its state, whether it accepts or refuses jobs, whether it is the
/// default one, and its description. Throws `PrintError`.
void listPrinters(std::ostream& stream);

} // namespace kelplot
