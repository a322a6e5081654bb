// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QColor>
#include <QPen>
#include <QTransform>
#include <vector>

#include "device/pdf/PdfBytes.h"
#include "device/pdf/PdfState.h"
#include "device/pdf/PdfTexts.h"
#include "device/vector/PageShape.h"

namespace kelplot {

/// The operators of a page. State is set where it changes; clips and texts are begun and ended as they are needed.
class PdfContent {
public:
    /// The operators so far; they may be taken away at any time.
    PdfBytes& bytes() { return m_bytes; }

    /// Begins a page on which coordinates are mapped by `base` to what the file counts in.
    void beginPage(const QTransform& base);
    void endPage();

    void setClips(const std::vector<PageShape>& clips);
    /// What is drawn from here on belongs to a layer, by the name of its resource; empty: to none.
    void setLayer(const std::string& layer) { m_layer = layer; }

    /// Ends a text, if one was begun, and brings clip and layer up to date, for other operators than those below.
    PdfBytes& drawing();
    /// These are set for the next operator of the kind.
    void setFill(QRgb colour);
    void setPen(const QPen& pen);
    void setBlend(int blend);

    void fill(const PageShape& shape);
    void stroke(const PageShape& shape);
    /// Shows a text; its outlines are left to the caller.
    ///
    /// @param place  from em squares, y upwards, to page units
    void show(const QString& text, const PreparedText& prepared, const QTransform& place);
    /// Maps what follows.
    void concatenate(const QTransform& map);

private:
    void update();
    void updateClips();
    void endText();
    void endLayer();
    void show(const TextPiece& piece, const QTransform& place);
    void setDashes(const QPen& pen);

    PdfBytes m_bytes;
    PdfState m_state;
    std::vector<PdfState> m_outer;      ///< the states around each clip in force
    std::vector<PageShape> m_clips;     ///< those in force
    std::vector<PageShape> m_nextClips; ///< those for what is drawn next
    bool m_clipsChange = false;
    QPen m_pen;
    bool m_penIsSet = false;
    bool m_isInText = false;
    std::string m_layer;
    std::string m_openLayer;
};

} // namespace kelplot
