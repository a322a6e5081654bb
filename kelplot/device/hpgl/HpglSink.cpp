// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/hpgl/HpglSink.h"

#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>

#include "device/hpgl/DashCutter.h"
#include "device/hpgl/OutlineGroups.h"

namespace kelplot {
namespace {

constexpr double unitsPerMillimetre = 40.0;

QPainterPath pathOf(const PageShape& shape) {
    QPainterPath path;
    path.setFillRule(shape.rule);
    for (size_t i = 0; i < shape.elements.size(); ++i) {
        const PageShape::Element& element = shape.elements[i];
        switch (element.type) {
        case QPainterPath::MoveToElement:
            path.moveTo(element.x, element.y);
            break;
        case QPainterPath::CurveToElement:
            path.cubicTo(element, shape.elements[i + 1], shape.elements[i + 2]);
            i += 2;
            break;
        default:
            path.lineTo(element.x, element.y);
        }
    }
    return path;
}

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

/// The area that a line without dashes covers.
QPainterPath areaOf(const QPolygonF& line, const QPen& pen) {
    QPainterPathStroker stroker;
    stroker.setWidth(std::max(pen.widthF(), 1.0));
    stroker.setCapStyle(pen.capStyle());
    stroker.setJoinStyle(pen.joinStyle());
    stroker.setMiterLimit(pen.miterLimit());
    QPainterPath path;
    path.addPolygon(line);
    return stroker.createStroke(path);
}

} // namespace

QPaintEngine::PaintEngineFeatures HpglSink::features() const {
    return QPaintEngine::LinearGradientFill | QPaintEngine::RadialGradientFill | QPaintEngine::ConicalGradientFill |
           QPaintEngine::PatternBrush | QPaintEngine::PatternTransform | QPaintEngine::BlendModes;
}

void HpglSink::setClips(const std::vector<PageShape>& clips) {
    m_clip.reset();
    m_clipInside = QRectF();
    for (const PageShape& clip : clips) {
        m_clip = m_clip ? m_clip->intersected(pathOf(clip)) : pathOf(clip);
    }
    if (clips.size() == 1) {
        clips[0].isRectangle(m_clipInside);
    }
}

HpglSink::Visibility HpglSink::visibilityOf(const QRectF& box) const {
    if (!m_clip || m_clipInside.contains(box)) {
        return Visibility::whole;
    }
    if (!m_clip->boundingRect().intersects(box)) {
        return Visibility::none;
    }
    return m_clipInside.isEmpty() && m_clip->contains(box) ? Visibility::whole : Visibility::part;
}

QPoint HpglSink::onPlotter(const QPointF& point) const {
    return {static_cast<int>(std::lround(point.x())), static_cast<int>(m_page.height() - std::lround(point.y()))};
}

/// What a colour looks like on white paper.
QRgb HpglSink::inkOf(QColor colour, const PageBlend& blend) {
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
    const Visibility visibility = visibilityOf(path.boundingRect());
    if (visibility != Visibility::none) {
        fillPath(visibility == Visibility::part ? path.intersected(*m_clip) : path, inkOf(brush, blend));
    }
}

void HpglSink::fillPath(const QPainterPath& path, QRgb colour) {
    std::vector<PlotterOutline> outlines;
    for (const QPolygonF& polygon : path.toSubpathPolygons()) {
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
        m_writer.fill(group, path.fillRule() == Qt::OddEvenFill, colour);
    }
}

void HpglSink::stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) {
    const double reach = std::max(pen.widthF(), 1.0) * (pen.joinStyle() == Qt::MiterJoin ? pen.miterLimit() : 1.0);
    const HpglWriter::Pen style{inkOf(pen.color(), blend), std::max(pen.widthF(), 1.0) / unitsPerMillimetre,
                                endsOf(pen.capStyle()), joinsOf(pen.joinStyle())};
    for (const QPolygonF& line : pathOf(shape).toSubpathPolygons()) {
        forEachDash({line.begin(), line.end()}, pen, [&](const std::vector<QPointF>& dash) {
            const QPolygonF points(QVector<QPointF>(dash.begin(), dash.end()));
            const Visibility visibility = visibilityOf(points.boundingRect().adjusted(-reach, -reach, reach, reach));
            if (visibility == Visibility::part) {
                fillPath(areaOf(points, pen).intersected(*m_clip), style.colour);
            } else if (visibility == Visibility::whole) {
                std::vector<QPoint> onPaper;
                std::transform(dash.begin(), dash.end(), std::back_inserter(onPaper),
                               [&](const QPointF& point) { return onPlotter(point); });
                m_writer.drawPolyline(onPaper, style);
            }
        });
    }
}

void HpglSink::drawImage(const PagePicture& /*picture*/, const PageBlend& /*blend*/) {
    ++m_shortcomings[QStringLiteral("pictures left out")];
}

} // namespace kelplot
