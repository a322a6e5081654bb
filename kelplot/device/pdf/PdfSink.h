// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QFont>

#include "device/pdf/PdfBrushes.h"
#include "device/pdf/PdfContent.h"
#include "device/pdf/PdfDocument.h"
#include "device/pdf/PdfTexts.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// Writes what a painter draws to the pages of a PDF document.
class PdfSink final : public VectorSink {
public:
    /// @param document      borrowed
    /// @param pointsPerUnit of a page coordinate
    PdfSink(PdfDocument& document, double pointsPerUnit);

    QPaintEngine::PaintEngineFeatures features() const override;
    void setClips(const std::vector<PageShape>& clips) override { m_content.setClips(clips); }
    void fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) override;
    void stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) override;
    void drawImage(const PagePicture& picture, const PageBlend& blend) override;

    /// Draws a text as characters of its font.
    ///
    /// @param place  from the font's units, y downwards and the origin at the start of the base line, to page units
    void drawText(const QString& text, const QFont& font, const QTransform& place, const QColor& ink,
                  const PageBlend& blend);
    using VectorSink::drawText;

    /// What is drawn from here on belongs to a layer; an empty name: to none.
    void setLayer(const QString& name);

    void beginPage(const SheetSize& sheet, const QString& name);
    /// Ends the page and the document.
    void finish();

private:
    void endPage();
    void setBlend(const QColor& ink, const PageBlend& blend);
    void fillGradient(const PageShape& shape, const PageBrush& brush, const PageBlend& blend);
    void fillTile(const PageShape& shape, const PageBrush& brush, const PageBlend& blend);
    void fillOutlines(const QPainterPath& outlines, const QTransform& place, const QColor& ink, const PageBlend& blend);
    void passOn(size_t most);

    PdfDocument& m_document;
    double m_pointsPerUnit;
    bool m_hasPage = false;
    QTransform m_base; ///< of the page, from page units to points
    PdfContent m_content;
    PdfTexts m_texts;
    PdfImages m_images;
    PdfBrushes m_brushes;
    PageShape m_outlines; ///< kept for its memory
};

} // namespace kelplot
