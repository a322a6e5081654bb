// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

#include "page/SheetSize.h"
#include "preview/PagePicture.h"

namespace kelplot {

/// How large a page is shown in a window, and where. All lengths are the window's pixels but for those of the sheet,
/// which are millimetres from its upper left corner.
class ViewFrame {
public:
    /// Keeps the scale and the place of what is shown.
    void setSheet(const SheetSize& sheet);
    void setWindow(const QSize& window);

    /// Shows the whole page, with some ground around it.
    void fit();
    /// Shows the page in another size; what lies at `about` stays there.
    void setScale(double pixelsPerMillimetre, QPointF about);
    void pan(QPoint by);

    double scale() const { return m_scale; }
    QPoint center() const { return {m_window.width() / 2, m_window.height() / 2}; }
    /// Where the page lies.
    QRect page() const;
    /// What of the page can be seen.
    PictureOrder visiblePart() const;
    bool showsWholePage() const { return QRect(QPoint(0, 0), m_window).contains(page()); }
    /// Where a picture of the page is to be drawn.
    QRectF placeOf(const PictureOrder& picture) const;
    QPointF toSheet(QPointF point) const { return (point - m_corner) / m_scale; }

private:
    void keepInReach();

    SheetSize m_sheet{1.0, 1.0};
    QSize m_window{1, 1};
    double m_scale = 1.0; ///< pixels per millimetre
    QPoint m_corner;      ///< of the page, the upper left one
};

} // namespace kelplot
