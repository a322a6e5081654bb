// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QRawFont>
#include <vector>

#include "device/pdf/PdfBytes.h"

namespace kelplot {

/// A font file with only these glyphs, which keep their numbers, and what they are made of.
///
/// @param table  the only table to return, by its four letters; null: the whole file
/// Throws `std::bad_alloc` where there is no memory for it, and `std::runtime_error` where the font is damaged.
PdfBytes fontSubset(const QRawFont& font, const std::vector<uint32_t>& glyphs, const char* table);

} // namespace kelplot
