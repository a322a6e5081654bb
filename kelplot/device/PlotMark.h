// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// A text that every format carries among its first bytes, by which a plot of kelplot's is known.
constexpr char plotMark[] = "Plotted with kelplot";

/// Tells whether a file may be replaced unasked: it is a plot of kelplot's, or empty, or no regular file.
bool isReplaceable(const QString& path);

} // namespace kelplot
