// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>

namespace kelplot {

/// The few of `names` most like `wanted`, the best first. Names are compared in the form that `plain` gives them.
QStringList nearestNames(const QString& wanted, const QStringList& names, int most, QString (*plain)(const QString&));

} // namespace kelplot
