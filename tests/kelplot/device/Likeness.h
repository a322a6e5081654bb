// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>

namespace kelplot {

/// Expects two pictures to show the same. Edges that are smoothed otherwise do not count.
///
/// @param allowed  pixels that may differ all the same
/// @param reach    pixels by which one may be off
void expectAlike(const QImage& own, const QImage& other, const char* name, int allowed = 8, int reach = 1);

/// Whether a text is as a pattern says, in which an asterisk stands for any text.
bool isLike(const QString& text, const char* pattern);

} // namespace kelplot
