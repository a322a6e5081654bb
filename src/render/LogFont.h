// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

#include <QFont>
#include <QString>

#include "keldriver/Renderer.h"
#include "keldriver/Win32Types.h"

namespace KelDriver::Internal {

/// The primary screen's resolution as whole dots; the usual one where there is no screen.
int screenDotsPerInch();

/// The face name of a record, which may fill its field without a terminator.
std::wstring faceNameOf(const tagLOGFONTW& record);

/// Writes a face name, cut to the characters that the record has room for.
void setFaceName(tagLOGFONTW& record, const std::wstring& faceName);

/// The record of a plot's font; never underlined or struck out.
tagLOGFONTW logFontFor(const HT_Font& font);

/// The Qt font that a record asks for, its height taken in pixels of the primary screen.
QFont fontFor(const tagLOGFONTW& record);

/// The same in Qt's usual size. What a font can show does not depend on its size, but Qt gives no glyphs of a huge one.
QFont usualSizeFontFor(tagLOGFONTW record);

} // namespace KelDriver::Internal
