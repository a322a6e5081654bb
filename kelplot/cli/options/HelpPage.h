// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// The text for `--help`: examples and the commonest options, on one screen of 80 columns.
QString helpPage();

} // namespace kelplot
