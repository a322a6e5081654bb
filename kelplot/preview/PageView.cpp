// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PageView.h"

#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace kelplot {
namespace {

const QColor groundColour(112, 117, 124);
constexpr double zoomStep = 1.25;

void drawPicture(QPainter& painter, const PagePicture& picture, const ViewFrame& frame) {
    const QRectF target = frame.placeOf(picture.order);
    if (target.size() == QSizeF(picture.image.size())) {
        painter.drawImage(target.topLeft(), picture.image);
    } else {
        painter.drawImage(target, picture.image);
    }
}

} // namespace

PageView::PageView() {
    constexpr int restAfter = 120; // milliseconds
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 150);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfter);
    m_rest.callOnTimeout([this] {
        if (onRest && m_hasSheet) {
            onRest();
        }
    });
}

void PageView::showSheet(const SheetSize& sheet, bool isOther) {
    m_frame.setSheet(sheet);
    m_hasSheet = true;
    if (isOther) {
        m_picture = {};
        m_overview = {};
    }
    if (isOther || m_isFitted) {
        m_isFitted = true;
        m_frame.fit();
    }
    m_notice.clear();
    setCursor(Qt::OpenHandCursor);
    moved();
}

void PageView::showNotice(const QString& notice) {
    m_notice = notice;
    update();
}

void PageView::setPicture(const PagePicture& picture) {
    m_picture = picture;
    update();
}

void PageView::setOverview(const PagePicture& overview) {
    m_overview = overview;
    update();
}

void PageView::fit() {
    m_isFitted = true;
    m_frame.fit();
    moved();
}

void PageView::zoomBy(double factor, QPointF about) {
    m_isFitted = false;
    m_frame.setScale(m_frame.scale() * factor, about);
    moved();
}

void PageView::setScale(double pixelsPerMillimetre) {
    m_isFitted = false;
    m_frame.setScale(pixelsPerMillimetre, m_frame.center());
    moved();
}

void PageView::pan(QPoint by) {
    m_isFitted = false;
    m_frame.pan(by);
    moved();
}

void PageView::moved() {
    m_rest.start();
    update();
    if (onMove) {
        onMove();
    }
}

void PageView::drawGround(QPainter& painter) const {
    constexpr int shadowWidth = 7;
    constexpr int shadowOffset = 3;
    const QRect page = m_frame.page();
    const QRegion ground = QRegion(rect()) - (m_hasSheet ? page : QRect());
    painter.setClipRegion(ground);
    painter.fillRect(rect(), groundColour);
    if (m_hasSheet) {
        // Each frame lies on those outside it, so that the shadow is darkest at the page.
        for (int width = shadowWidth; width > 0; --width) {
            painter.fillRect(page.translated(shadowOffset, shadowOffset).adjusted(-width, -width, width, width),
                             QColor(0, 0, 0, 14));
        }
    }
    painter.setClipping(false);
}

void PageView::drawPictures(QPainter& painter) const {
    const QRect page = m_frame.page().intersected(rect());
    QRegion bare = page;
    if (!m_picture.image.isNull()) {
        bare -= m_frame.placeOf(m_picture.order).toAlignedRect();
    }
    if (!bare.isEmpty()) {
        painter.setClipRegion(bare);
        painter.fillRect(page, Qt::white);
        if (!m_overview.image.isNull()) {
            drawPicture(painter, m_overview, m_frame);
        }
    }
    if (!m_picture.image.isNull()) {
        painter.setClipRect(page);
        drawPicture(painter, m_picture, m_frame);
    }
    painter.setClipping(false);
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawGround(painter);
    if (m_hasSheet) {
        drawPictures(painter);
    }
    if (!m_notice.isEmpty()) {
        const QRect box =
            painter.fontMetrics()
                .boundingRect(rect().adjusted(40, 40, -40, -40), Qt::AlignCenter | Qt::TextWordWrap, m_notice)
                .adjusted(-16, -10, 16, 10);
        painter.fillRect(box, QColor(40, 43, 48, 220));
        painter.setPen(Qt::white);
        painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, m_notice);
    }
}

void PageView::resizeEvent(QResizeEvent* /*event*/) {
    m_frame.setWindow(size());
    if (m_isFitted) {
        m_frame.fit();
    }
    moved();
}

void PageView::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 120.0;
    zoomBy(std::pow(zoomStep, event->angleDelta().y() / notch), event->position());
    event->accept();
}

void PageView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        m_dragged = event->pos();
        setCursor(Qt::ClosedHandCursor);
    }
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) {
        pan(event->pos() - m_dragged);
        m_dragged = event->pos();
    }
    if (onPointer && m_hasSheet) {
        onPointer(m_frame.toSheet(event->localPos()));
    }
}

void PageView::mouseReleaseEvent(QMouseEvent* /*event*/) {
    setCursor(Qt::OpenHandCursor);
}

void PageView::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    fit();
}

void PageView::leaveEvent(QEvent* /*event*/) {
    if (onPointer) {
        onPointer(std::nullopt);
    }
}

void PageView::keyPressEvent(QKeyEvent* event) {
    constexpr int panStep = 60;
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomBy(zoomStep);
    case Qt::Key_Minus:
        return zoomBy(1.0 / zoomStep);
    case Qt::Key_0:
        return fit();
    case Qt::Key_Left:
        return pan({panStep, 0});
    case Qt::Key_Right:
        return pan({-panStep, 0});
    case Qt::Key_Up:
        return pan({0, panStep});
    case Qt::Key_Down:
        return pan({0, -panStep});
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace kelplot
