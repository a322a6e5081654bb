// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/FontMetric.h"

#include <QPainterPath>
#include <algorithm>

namespace kelplot {

namespace {

QFont fontOf(const FontFace& face) {
    QFont font(face.family, -1, face.bold ? QFont::Bold : QFont::Normal, face.italic);
    font.setPixelSize(emUnits);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

QRectF outlineBox(const QFont& font, const char* letters) {
    QPainterPath outline;
    outline.addText(0.0, 0.0, font, QString::fromLatin1(letters));
    return outline.boundingRect();
}

/// The height of an H: what fonts state about themselves is not always so.
double capHeightOf(const QFont& font) {
    constexpr double usual = 0.7;
    const double height = -outlineBox(font, "H").top() / emUnits;
    return height > 0.0 ? height : usual;
}

} // namespace

FontMetric::FontMetric(const FontFace& face)
    : m_font(fontOf(face)), m_metrics(m_font), m_raw(QRawFont::fromFont(m_font)), m_capHeight(capHeightOf(m_font)),
      m_depth(std::max(0.0, outlineBox(m_font, "gpqy").bottom() / emUnits)) {
}

double FontMetric::advanceOf(const QString& text) const {
    return m_advances.get(text, [&] { return m_metrics.horizontalAdvance(text) / emUnits; });
}

Box2 FontMetric::inkOf(const QString& text) const {
    return m_inks.get(text, [&] {
        Box2 box;
        const QRectF ink = m_metrics.tightBoundingRect(text);
        if (!ink.isEmpty()) {
            box.add(Vec2{ink.left() / emUnits, -ink.bottom() / emUnits});
            box.add(Vec2{ink.right() / emUnits, -ink.top() / emUnits});
        }
        return box;
    });
}

} // namespace kelplot
