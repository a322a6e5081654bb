// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/ViewFrame.h"

#include <algorithm>
#include <cmath>

namespace kelplot {
namespace {

/// Beyond these there is nothing to be seen, or the page outgrows what a painter can count.
constexpr double shortestSide = 16.0;
constexpr double longestSide = 4e6;

int roundedPixels(double length) {
    return static_cast<int>(std::lround(length));
}

} // namespace

void ViewFrame::setSheet(const SheetSize& sheet) {
    m_sheet = sheet;
    setScale(m_scale, m_corner);
}

void ViewFrame::setWindow(const QSize& window) {
    m_window = window.expandedTo({1, 1});
    keepInReach();
}

void ViewFrame::fit() {
    constexpr int ground = 24;
    const QSize room = (m_window - QSize(2 * ground, 2 * ground)).expandedTo({1, 1});
    setScale(std::min(room.width() / m_sheet.width, room.height() / m_sheet.height), center());
    const QSize size = page().size();
    m_corner = {(m_window.width() - size.width()) / 2, (m_window.height() - size.height()) / 2};
}

void ViewFrame::setScale(double pixelsPerMillimetre, QPointF about) {
    const QPointF kept = toSheet(about);
    const double longer = std::max(m_sheet.width, m_sheet.height);
    m_scale = std::clamp(pixelsPerMillimetre, shortestSide / longer, longestSide / longer);
    m_corner = (about - kept * m_scale).toPoint();
    keepInReach();
}

void ViewFrame::pan(QPoint by) {
    m_corner += by;
    keepInReach();
}

/// Some of the page always shows.
void ViewFrame::keepInReach() {
    constexpr int shown = 40;
    const QSize size = page().size();
    m_corner.setX(std::clamp(m_corner.x(), std::min(shown - size.width(), 0), std::max(m_window.width() - shown, 0)));
    m_corner.setY(std::clamp(m_corner.y(), std::min(shown - size.height(), 0), std::max(m_window.height() - shown, 0)));
}

QRect ViewFrame::page() const {
    const auto pixels = [&](double length) {
        return std::max(1, roundedPixels(length * m_scale));
    };
    return {m_corner, QSize(pixels(m_sheet.width), pixels(m_sheet.height))};
}

PictureOrder ViewFrame::visiblePart() const {
    const QRect shown = page().intersected(QRect(QPoint(0, 0), m_window));
    return {m_scale, shown.translated(-m_corner)};
}

QRectF ViewFrame::placeOf(const PictureOrder& picture) const {
    const double enlarged = m_scale / picture.pixelsPerMillimetre;
    return {QPointF(m_corner) + QPointF(picture.place.topLeft()) * enlarged, QSizeF(picture.place.size()) * enlarged};
}

} // namespace kelplot
