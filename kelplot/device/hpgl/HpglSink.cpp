// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/HpglSink.h"

#include <algorithm>
#include <cmath>

#include "device/hpgl/DashCutter.h"
#include "device/hpgl/OutlineGroups.h"

namespace kelplot {
namespace {

constexpr double unitsPerMillimetre = 40.0;

int endsOf(Qt::PenCapStyle cap) {
    constexpr int butt = 1;
    constexpr int square = 2;
    constexpr int round = 4;
    return cap == Qt::FlatCap ? butt : cap == Qt::SquareCap ? square : round;
}

int joinsOf(Qt::PenJoinStyle join) {
    constexpr int mitred = 1;
    constexpr int round = 4;
    constexpr int bevelled = 5;
    return join == Qt::RoundJoin ? round : join == Qt::BevelJoin ? bevelled : mitred;
}

} // namespace

QPaintEngine::PaintEngineFeatures HpglSink::features() const {
    return QPaintEngine::LinearGradientFill | QPaintEngine::RadialGradientFill | QPaintEngine::ConicalGradientFill |
           QPaintEngine::PatternBrush | QPaintEngine::PatternTransform | QPaintEngine::BlendModes;
}

void HpglSink::setClips(const std::vector<PageShape>& clips) {
    m_clip = PlotterClip(clips);
    const std::optional<QRectF>& window = m_clip.window();
    m_writer.setWindow(window ? QRect(onPlotter(window->bottomLeft()), onPlotter(window->topRight())) : QRect());
}

QPoint HpglSink::onPlotter(const QPointF& point) const {
    return {static_cast<int>(std::lround(point.x())), static_cast<int>(m_page.height() - std::lround(point.y()))};
}

/// What a colour looks like on white paper.
QRgb HpglSink::inkOf(const QColor& colour, const PageBlend& blend) {
    const double opacity = colour.alphaF() * blend.opacity;
    if (opacity < 1.0) {
        ++m_shortcomings[QStringLiteral("translucent parts drawn opaque")];
    }
    const auto onWhite = [&](int part) {
        return static_cast<int>(std::lround(255.0 - opacity * (255 - part)));
    };
    return qRgb(onWhite(colour.red()), onWhite(colour.green()), onWhite(colour.blue()));
}

QRgb HpglSink::inkOf(const PageBrush& brush, const PageBlend& blend) {
    const QGradient* const gradient = brush.brush.gradient();
    if (gradient == nullptr) {
        return inkOf(brush.brush.color(), blend);
    }
    ++m_shortcomings[QStringLiteral("gradients drawn in one colour")];
    const QGradientStops stops = gradient->stops();
    return stops.isEmpty() ? qRgb(0, 0, 0) : inkOf(stops[stops.size() / 2].second, blend);
}

void HpglSink::fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) {
    const QPainterPath path = pathOf(shape);
    if (!m_clip.mayShow(path.boundingRect())) {
        return;
    }
    const QRgb ink = inkOf(brush, blend);
    if (m_clip.hasBorders()) {
        fillOutlines(m_clip.partInside(evenOddOutlines(shape)), true, ink);
    } else {
        const QList<QPolygonF> outlines = path.toSubpathPolygons();
        fillOutlines({outlines.begin(), outlines.end()}, shape.rule == Qt::OddEvenFill, ink);
    }
}

void HpglSink::fillOutlines(const std::vector<QPolygonF>& polygons, bool evenOdd, QRgb colour) {
    std::vector<PlotterOutline> outlines;
    for (const QPolygonF& polygon : polygons) {
        PlotterOutline outline;
        for (const QPointF& point : polygon) {
            const QPoint next = onPlotter(point);
            if (outline.empty() || outline.back() != next) {
                outline.push_back(next);
            }
        }
        if (outline.size() > 2) {
            outlines.push_back(std::move(outline));
        }
    }
    for (const std::vector<PlotterOutline>& group : separateGroups(std::move(outlines))) {
        m_writer.fill(group, evenOdd, colour);
    }
}

void HpglSink::stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) {
    const double reach = std::max(pen.widthF(), 1.0) * (pen.joinStyle() == Qt::MiterJoin ? pen.miterLimit() : 1.0);
    const HpglWriter::Pen style{inkOf(pen.color(), blend), std::max(pen.widthF(), 1.0) / unitsPerMillimetre,
                                endsOf(pen.capStyle()), joinsOf(pen.joinStyle())};
    for (const QPolygonF& line : pathOf(shape).toSubpathPolygons()) {
        if (!m_clip.mayShow(line.boundingRect().adjusted(-reach, -reach, reach, reach))) {
            continue;
        }
        forEachDash({line.begin(), line.end()}, pen, [&](const std::vector<QPointF>& dash) {
            if (!m_clip.hasBorders()) {
                drawLine(dash, style);
                return;
            }
            if (m_clip.mayShow(QPolygonF(QVector<QPointF>(dash.begin(), dash.end())).boundingRect())) {
                for (const std::vector<QPointF>& part : m_clip.partsInside(dash)) {
                    drawLine(part, style);
                }
            }
        });
    }
}

void HpglSink::drawLine(const std::vector<QPointF>& points, const HpglWriter::Pen& pen) {
    std::vector<QPoint> onPaper;
    onPaper.reserve(points.size());
    std::transform(points.begin(), points.end(), std::back_inserter(onPaper),
                   [&](const QPointF& point) { return onPlotter(point); });
    m_writer.drawPolyline(onPaper, pen);
}

void HpglSink::drawImage(const PagePicture& /*picture*/, const PageBlend& /*blend*/) {
    ++m_shortcomings[QStringLiteral("pictures left out")];
}

} // namespace kelplot
