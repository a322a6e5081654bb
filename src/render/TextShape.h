// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <string>

#include <QFont>
#include <QPainterPath>

#include "keldriver/Win32Types.h"

namespace KelDriver::Internal {

/// A text with all that its outline depends on.
struct TextShape {
    std::wstring text;
    tagLOGFONTW font; ///< never underlined or struck out
    int32_t width;    ///< that the text is fitted to, in pixels of the primary screen; below 1: it is not
    int measured;     ///< how many of its characters are to have that width
    int dotsPerInch;  ///< of the primary screen
};

/// The font that the text is drawn in, as large as its width asks for.
QFont fontOf(const TextShape& shape);

/// The outline of the text, from the origin to the right.
QPainterPath outlineOf(const TextShape& shape);

} // namespace KelDriver::Internal
