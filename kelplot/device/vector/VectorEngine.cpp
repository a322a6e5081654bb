// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/vector/VectorEngine.h"

#include <QPainterPathStroker>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace kelplot {
namespace {

constexpr QPaintEngine::PaintEngineFeatures common =
    QPaintEngine::PaintEngineFeatures(QPaintEngine::PrimitiveTransform) | QPaintEngine::PixmapTransform |
    QPaintEngine::AlphaBlend | QPaintEngine::Antialiasing | QPaintEngine::BrushStroke | QPaintEngine::ConstantOpacity |
    QPaintEngine::PaintOutsidePaintEvent | QPaintEngine::PainterPaths;

/// How many times longer a similarity makes everything; nothing for other transforms.
std::optional<double> scaleOf(const QTransform& map) {
    constexpr double tolerance = 1e-6;
    const double along = std::hypot(map.m11(), map.m12());
    const double across = std::hypot(map.m21(), map.m22());
    const double askew = map.m11() * map.m21() + map.m12() * map.m22();
    const bool isSimilar =
        std::abs(along - across) <= tolerance * along && std::abs(askew) <= tolerance * along * across;
    return isSimilar && along > 0.0 && map.isAffine() ? std::optional(along) : std::nullopt;
}

/// Of the dashes of a line; more would take for ever, and are finer than anything that shows.
constexpr double mostPeriods = 1e5;

/// How long the dashes of a pen are until they begin anew; 0 for a continuous line.
double periodOf(const QPen& pen) {
    const QVector<qreal> entries = pen.style() == Qt::SolidLine ? QVector<qreal>() : pen.dashPattern();
    return std::accumulate(entries.begin(), entries.end(), 0.0) * std::max(pen.widthF(), 1.0);
}

/// No shorter than the path; Qt measures curves of great size without an end.
double longestOf(const QPainterPath& path) {
    double length = 0.0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPointF side = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
        length += std::hypot(side.x(), side.y());
    }
    return length;
}

} // namespace

VectorEngine::VectorEngine(VectorSink& sink) : QPaintEngine(common | sink.features()), m_sink(sink) {
}

bool VectorEngine::begin(QPaintDevice* /*device*/) {
    return true;
}

bool VectorEngine::end() {
    return true;
}

void VectorEngine::beginPage() {
    m_clipsSent.clear();
    m_sink.setClips(m_clipsSent);
    m_clipChanged = true;
}

void VectorEngine::updateState(const QPaintEngineState& change) {
    const DirtyFlags dirty = change.state();
    if (dirty & DirtyTransform) {
        m_transform = change.transform();
    }
    if (dirty & DirtyPen) {
        m_pen = change.pen();
    }
    if (dirty & (DirtyPen | DirtyTransform)) {
        updatePen();
    }
    if (dirty & DirtyBrush) {
        m_brush = change.brush();
    }
    if (dirty & DirtyBrushOrigin) {
        m_brushOrigin = change.brushOrigin();
    }
    if (dirty & DirtyOpacity) {
        m_blend.opacity = change.opacity();
    }
    if (dirty & DirtyCompositionMode) {
        m_blend.mode = change.compositionMode();
    }
    if (dirty & DirtyHints) {
        m_smooth = change.renderHints().testFlag(QPainter::SmoothPixmapTransform);
    }
    if (dirty & (DirtyClipPath | DirtyClipRegion | DirtyClipEnabled)) {
        updateClip(change);
    }
}

void VectorEngine::updateClip(const QPaintEngineState& change) {
    m_clipChanged = true;
    if (change.state() & DirtyClipEnabled) {
        m_hasClip = change.isClipEnabled();
    }
    if (change.state() & DirtyClipPath) {
        combineClip(change.clipOperation(), change.clipPath());
    } else if (change.state() & DirtyClipRegion) {
        QPainterPath path;
        path.addRegion(change.clipRegion());
        combineClip(change.clipOperation(), path);
    }
}

void VectorEngine::combineClip(Qt::ClipOperation operation, const QPainterPath& path) {
    m_hasClip = operation != Qt::NoClip;
    if (operation != Qt::IntersectClip) {
        m_clips.clear();
    }
    if (operation != Qt::NoClip) {
        PageShape clip;
        mapPath(path, clip);
        m_clips.push_back(std::move(clip));
    }
}

void VectorEngine::updatePen() {
    m_pagePen.reset();
    const bool isPlain = m_pen.brush().style() == Qt::SolidPattern;
    const std::optional<double> scale = scaleOf(m_transform);
    const bool isThinnest = m_pen.widthF() == 0.0;
    if (!isPlain || !(scale || m_pen.isCosmetic() || isThinnest)) {
        return;
    }
    m_pagePen = m_pen;
    if (!m_pen.isCosmetic() && scale && *scale != 1.0) {
        m_pagePen->setWidthF(m_pen.widthF() * *scale);
    }
}

/// Tells the sink the clip for what is drawn next; false: nothing of it would show.
bool VectorEngine::prepare() {
    if (m_clipChanged) {
        m_clipChanged = false;
        static const std::vector<PageShape> none;
        const std::vector<PageShape>& clips = m_hasClip ? m_clips : none;
        if (clips != m_clipsSent) {
            m_clipsSent = clips;
            m_sink.setClips(m_clipsSent);
        }
    }
    return std::none_of(m_clipsSent.begin(), m_clipsSent.end(),
                        [](const PageShape& clip) { return clip.elements.empty() || !clip.isFinite(); }) &&
           m_blend.opacity > 0.0;
}

void VectorEngine::mapPath(const QPainterPath& path, PageShape& shape) const {
    shape.clear();
    shape.rule = path.fillRule();
    const int count = path.elementCount();
    shape.elements.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF point = m_transform.map(QPointF(element.x, element.y));
        shape.add(point.x(), point.y(), element.type);
    }
}

void VectorEngine::add(const QPointF& point, QPainterPath::ElementType type) {
    const QPointF mapped = m_transform.map(point);
    m_shape.add(mapped.x(), mapped.y(), type);
}

void VectorEngine::addRectangle(const QRectF& rectangle) {
    add(rectangle.topLeft(), QPainterPath::MoveToElement);
    add(rectangle.topRight(), QPainterPath::LineToElement);
    add(rectangle.bottomRight(), QPainterPath::LineToElement);
    add(rectangle.bottomLeft(), QPainterPath::LineToElement);
    add(rectangle.topLeft(), QPainterPath::LineToElement);
}

QTransform VectorEngine::placeOf(const QBrush& brush) const {
    return brush.transform() * QTransform::fromTranslate(m_brushOrigin.x(), m_brushOrigin.y()) * m_transform;
}

void VectorEngine::fillShape() {
    fillShape(m_brush);
}

void VectorEngine::fillShape(const QBrush& brush) {
    if (brush.style() == Qt::NoBrush || m_shape.elements.empty() || !m_shape.isFinite()) {
        return;
    }
    m_sink.fill(m_shape, {brush, brush.style() == Qt::SolidPattern ? QTransform() : placeOf(brush)}, m_blend);
}

void VectorEngine::strokeShape() {
    if (m_pen.style() == Qt::NoPen || m_shape.elements.empty() || !m_shape.isFinite()) {
        return;
    }
    if (m_pagePen) {
        m_sink.stroke(m_shape, *m_pagePen, m_blend);
    }
}

/// Draws a line as the area that it covers, where the format's pens cannot.
void VectorEngine::strokeOutline(const QPainterPath& line) {
    if (m_pen.style() == Qt::NoPen) {
        return;
    }
    QPainterPathStroker stroker(m_pen);
    if (!(longestOf(line) <= mostPeriods * periodOf(m_pen))) {
        stroker.setDashPattern(Qt::SolidLine);
    }
    mapPath(stroker.createStroke(line), m_shape);
    fillShape(m_pen.brush());
}

void VectorEngine::drawPath(const QPainterPath& path) {
    if (!prepare()) {
        return;
    }
    mapPath(path, m_shape);
    fillShape();
    if (penKeepsShape()) {
        strokeShape();
    } else {
        strokeOutline(path);
    }
}

void VectorEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) {
    if (count < 1 || !prepare()) {
        return;
    }
    if (!penKeepsShape() && m_pen.style() != Qt::NoPen) {
        QPainterPath path(points[0]);
        for (int i = 1; i < count; ++i) {
            path.lineTo(points[i]);
        }
        if (mode != PolylineMode) {
            path.closeSubpath();
        }
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        if (mode == PolylineMode) {
            strokeOutline(path);
        } else {
            drawPath(path);
        }
        return;
    }
    m_shape.clear();
    m_shape.rule = mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill;
    m_shape.elements.reserve(static_cast<size_t>(count) + 1);
    add(points[0], QPainterPath::MoveToElement);
    for (int i = 1; i < count; ++i) {
        add(points[i], QPainterPath::LineToElement);
    }
    if (mode != PolylineMode) {
        if (points[0] != points[count - 1]) {
            add(points[0], QPainterPath::LineToElement);
        }
        fillShape();
    }
    strokeShape();
}

void VectorEngine::drawLines(const QLineF* lines, int count) {
    for (int i = 0; i < count; ++i) {
        const QPointF ends[] = {lines[i].p1(), lines[i].p2()};
        drawPolygon(ends, 2, PolylineMode);
    }
}

void VectorEngine::drawRects(const QRectF* rects, int count) {
    for (int i = 0; i < count; ++i) {
        QPainterPath path;
        path.addRect(rects[i]);
        drawPath(path);
    }
}

/// A point is a dot or a square as wide as the pen, whatever its cap is.
void VectorEngine::drawPoints(const QPointF* points, int count) {
    if (m_pen.style() == Qt::NoPen || !prepare()) {
        return;
    }
    const double width = m_pen.widthF() > 0.0 ? m_pen.widthF() : 1.0;
    for (int i = 0; i < count; ++i) {
        const QRectF box(points[i] - QPointF(width, width) / 2.0, QSizeF(width, width));
        if (m_pen.capStyle() == Qt::RoundCap) {
            QPainterPath dot;
            dot.addEllipse(box);
            mapPath(dot, m_shape);
        } else {
            m_shape.clear();
            addRectangle(box);
        }
        fillShape(m_pen.brush());
    }
}

void VectorEngine::drawImage(const QRectF& target, const QImage& image, const QRectF& source,
                             Qt::ImageConversionFlags /*flags*/) {
    const QRect part = source.toAlignedRect().intersected(image.rect());
    if (part.isEmpty() || !prepare()) {
        return;
    }
    const QImage pixels = part == image.rect() ? image : image.copy(part);
    QTransform place = QTransform::fromTranslate(part.x() - source.x(), part.y() - source.y());
    place *= QTransform::fromScale(target.width() / source.width(), target.height() / source.height());
    place *= QTransform::fromTranslate(target.x(), target.y());
    place *= m_transform;
    if (std::isfinite(place.determinant()) && std::isfinite(place.dx()) && std::isfinite(place.dy())) {
        m_sink.drawImage({pixels, place, m_smooth}, m_blend);
    }
}

void VectorEngine::drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) {
    drawImage(target, pixmap.toImage(), source, Qt::AutoColor);
}

void VectorEngine::drawTiledPixmap(const QRectF& target, const QPixmap& pixmap, const QPointF& offset) {
    if (!prepare()) {
        return;
    }
    QBrush brush(pixmap);
    const QPointF origin = target.topLeft() - offset - m_brushOrigin;
    brush.setTransform(QTransform::fromTranslate(origin.x(), origin.y()));
    m_shape.clear();
    addRectangle(target);
    fillShape(brush);
}

void VectorEngine::drawTextItem(const QPointF& at, const QTextItem& item) {
    const bool isDrawn = prepare() && m_sink.drawText({item, at, m_transform, m_pen.color()}, m_blend);
    if (!isDrawn) {
        QPaintEngine::drawTextItem(at, item); // through the painter, as outlines
    }
}

} // namespace kelplot
