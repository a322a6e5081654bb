// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "preview/PagePicture.h"
#include "preview/ViewFrame.h"

namespace kelplot {

/// Shows a page on grey ground, and is zoomed and moved. While it moves it shows the pictures that there are; when it
/// comes to rest it asks for a new one.
class PageView final : public QWidget {
public:
    PageView();

    std::function<void()> onRest;                                  ///< the view needs a picture
    std::function<void()> onMove;                                  ///< size or place have changed
    std::function<void(std::optional<QPointF> onSheet)> onPointer; ///< millimetres; none: the pointer is elsewhere

    /// Shows a page, of which the pictures are to come.
    ///
    /// @param isOther  than that shown so far: it is shown whole, and its pictures are not kept
    void showSheet(const SheetSize& sheet, bool isOther);
    /// Shows a text in place of a page; empty: the page.
    void showNotice(const QString& notice);
    /// Takes the picture that was asked for.
    void setPicture(const PagePicture& picture);
    /// Takes a picture of the whole page, for what the other does not show.
    void setOverview(const PagePicture& overview);
    bool hasOverview() const { return !m_overview.image.isNull(); }
    bool hasPicture() const { return !m_picture.image.isNull(); }

    /// Whether no further picture is going to be asked for.
    bool isAtRest() const { return !m_rest.isActive(); }

    const ViewFrame& frame() const { return m_frame; }
    /// Pixels of the screen in one of the window's.
    double pixelRatio() const { return devicePixelRatioF(); }

    void fit();
    void zoomBy(double factor, QPointF about);
    void zoomBy(double factor) { zoomBy(factor, m_frame.center()); }
    void setScale(double pixelsPerMillimetre);
    void pan(QPoint by);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moved();
    void drawGround(QPainter& painter) const;
    void drawPictures(QPainter& painter) const;

    ViewFrame m_frame;
    bool m_hasSheet = false;
    bool m_isFitted = true; ///< the page is to stay whole when the window changes
    QString m_notice;
    PagePicture m_picture;
    PagePicture m_overview;
    QPoint m_dragged; ///< where the pointer was last
    QTimer m_rest;
};

} // namespace kelplot
