// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// The program's page for `man`, made from the table of options.
QString manualPage();

} // namespace kelplot
