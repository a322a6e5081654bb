// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>

namespace kelplot {

/// Tells whether a document finds each glyph of a font in the compact font format (CFF) by the number that it has
/// among the glyphs. Fonts for large character sets may number them apart from that.
///
/// @param table  that the font has of this format; empty: none
bool numbersGlyphsInOrder(const QByteArray& table);

} // namespace kelplot
