// SPDX-License-Identifier: BSD-3-Clause
#include "render/TextShape.h"

#include <algorithm>
#include <string_view>

#include <QFontMetrics>
#include <QString>

#include "geometry/Numeric.h"
#include "render/LogFont.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

/// The number of UTF-16 units that the first `length` characters take up.
int utf16Length(std::wstring_view text, int length) {
    return toQString(text.substr(0, static_cast<size_t>(std::max(length, 0)))).size();
}

/// Gives the font the size at which the text's natural width is `target`, in whole points, where there is one.
void fitWidth(QFont& font, const QString& text, int measuredUnits, int32_t target) {
    const int natural = QFontMetrics(font).horizontalAdvance(text, measuredUnits);
    if (natural < 1) {
        return;
    }
    const int32_t points = truncateToInt32(font.pointSizeF() * target / natural);
    if (points > 0) {
        font.setPointSize(points);
    }
}

} // namespace

QFont fontOf(const TextShape& shape) {
    QFont font = fontFor(shape.font);
    font.setStyleStrategy(QFont::PreferAntialias);
    if (shape.width >= 1) {
        fitWidth(font, toQString(shape.text), utf16Length(shape.text, shape.measured), shape.width);
    }
    return font;
}

QPainterPath outlineOf(const TextShape& shape) {
    QPainterPath outline;
    outline.addText(0, 0, fontOf(shape), toQString(shape.text));
    return outline;
}

} // namespace KelDriver::Internal
