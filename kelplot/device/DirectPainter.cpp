// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/DirectPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>
#include <cmath>

namespace kelplot {
namespace {

QTransform transformOf(const Affine2& map) {
    return {map.a, map.b, map.c, map.d, map.e, map.f};
}

/// Gives a painter's state back at the end of its life.
class PainterState {
public:
    explicit PainterState(QPainter& painter) : m_painter(painter) { m_painter.save(); }
    ~PainterState() { m_painter.restore(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

private:
    QPainter& m_painter;
};

} // namespace

void DirectPainter::drawText(const QString& text, const QFont& font, const Affine2& place, const QColor& ink) {
    const QTransform transform = transformOf(place);
    if (m_device != nullptr && m_device->drawText({text, font, transform, ink})) {
        return;
    }
    const PainterState state(m_painter);
    m_painter.setWorldTransform(transform, true);
    m_painter.setBackgroundMode(Qt::TransparentMode);
    m_painter.setPen(ink);
    m_painter.setFont(font);
    m_painter.drawText(QPointF(0.0, 0.0), text);
}

void DirectPainter::fill(const QPainterPath& area, const QBrush& brush, double opacity) {
    const double before = m_painter.opacity();
    m_painter.setOpacity(before * opacity);
    m_painter.fillPath(area, brush);
    m_painter.setOpacity(before);
}

void DirectPainter::drawPlaced(const Affine2& place, const std::function<void()>& draw) {
    const PainterState state(m_painter);
    m_painter.setWorldTransform(transformOf(place), true);
    draw();
}

double DirectPainter::dotsAlong(Vec2 vector) const {
    return vector.length() * std::sqrt(std::abs(m_painter.combinedTransform().determinant()));
}

void DirectPainter::mixPixels(bool mix) {
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform, mix);
}

} // namespace kelplot
