// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// The signs of geometric tolerances that stand in the place of letters in the fonts for them.
QString toleranceSignsFor(const QString& letters);

} // namespace kelplot
