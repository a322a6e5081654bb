#include "plot/FontMetric.h"

#include <QPainterPath>

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
    : m_font(fontOf(face)), m_metrics(m_font), m_capHeight(capHeightOf(m_font)),
      m_depth(std::max(0.0, outlineBox(m_font, "gpqy").bottom() / emUnits)) {
}

FontMetric::Extent FontMetric::extentOf(const QString& text) const {
    constexpr int mostKnown = 20000;
    const auto known = m_known.constFind(text);
    if (known != m_known.constEnd()) {
        return *known;
    }
    Extent extent;
    extent.advance = m_metrics.horizontalAdvance(text) / emUnits;
    const QRectF ink = m_metrics.tightBoundingRect(text);
    if (!ink.isEmpty()) {
        extent.ink.add(Vec2{ink.left() / emUnits, -ink.bottom() / emUnits});
        extent.ink.add(Vec2{ink.right() / emUnits, -ink.top() / emUnits});
    }
    if (m_known.size() >= mostKnown) {
        m_known.clear();
    }
    m_known.insert(text, extent);
    return extent;
}

} // namespace kelplot
