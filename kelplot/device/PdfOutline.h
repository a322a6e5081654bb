// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFileDevice>
#include <QStringList>

#include "device/OutputFile.h"

namespace kelplot {

/// Copies a finished PDF document with an outline that names its pages, in their order.
///
/// @param document  open for reading
/// @param target    receives the copy; still to be committed
/// Throws `std::exception` with the reason where the document cannot be read.
void copyWithOutline(QFileDevice& document, const QStringList& pageNames, OutputFile& target);

} // namespace kelplot
