// SPDX-License-Identifier: BSD-3-Clause
#include "support/PlotRecorder.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>

#include "support/PlotText.h"

/// Claims every feature, so that the painter hands each call on as it came instead of emulating it.
class RecordingEngine : public QPaintEngine {
public:
    explicit RecordingEngine(PlotRecorder& owner) : QPaintEngine(AllFeatures), recorder(owner) {}

    bool begin(QPaintDevice*) override {
        clip.clear();
        return true;
    }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& newState) override {
        if (newState.state() & DirtyClipPath) {
            changeClip(newState.clipOperation(), "path " + plotText::path(newState.clipPath()));
        }
        if (newState.state() & DirtyClipRegion) {
            changeClip(newState.clipOperation(), regionText(newState.clipRegion()));
        }
    }

    void drawRects(const QRectF* rects, int count) override {
        for (int i = 0; i < count; ++i) {
            record("rect " + plotText::rectangle(rects[i]));
        }
    }
    void drawLines(const QLineF* lines, int count) override {
        for (int i = 0; i < count; ++i) {
            const QPointF ends[] = {lines[i].p1(), lines[i].p2()};
            record("line " + plotText::points(ends, 2), pathThrough(ends, 2));
        }
    }
    void drawEllipse(const QRectF& rect) override { record("ellipse " + plotText::rectangle(rect)); }
    void drawPath(const QPainterPath& path) override { record("path " + plotText::path(path), path); }
    void drawPoints(const QPointF* points, int count) override {
        record("points " + plotText::points(points, count), pathThrough(points, count));
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        record((mode == PolylineMode ? "polyline " : "polygon ") + plotText::points(points, count),
               pathThrough(points, count));
    }
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override {
        drawImage(target, pixmap.toImage(), source, Qt::AutoColor);
    }
    void drawImage(const QRectF& target, const QImage& image, const QRectF& source, Qt::ImageConversionFlags) override {
        record("image " + plotText::rectangle(target) + " from " + plotText::rectangle(source) + " of " +
               std::to_string(image.width()) + "x" + std::to_string(image.height()));
        recorder.recorded.back().image = image;
    }
    void drawTextItem(const QPointF& position, const QTextItem& item) override {
        QPainterPath outline;
        outline.addText(position, item.font(), item.text());
        record("text " + plotText::point(position) + " " + item.text().toStdString(), outline);
    }

    // The integer forms reach the ones above through the base class.
    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPoints;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

private:
    static QPainterPath pathThrough(const QPointF* points, int count) {
        QPainterPath path(points[0]);
        for (int i = 1; i < count; ++i) {
            path.lineTo(points[i]);
        }
        return path;
    }

    static std::string regionText(const QRegion& region) {
        std::string text = "rect";
        for (const QRect& rect : region) {
            text += " " + plotText::rectangle(rect);
        }
        return text;
    }

    void changeClip(Qt::ClipOperation operation, const std::string& text) {
        if (operation == Qt::IntersectClip && !clip.empty()) {
            clip += " and " + text;
        } else {
            clip = operation == Qt::NoClip ? std::string() : text;
        }
    }

    std::string stateText() const {
        const QPainter& source = *painter();
        std::string text = " | pen " + plotText::pen(source.pen()) + " | brush " + plotText::brush(source.brush());
        if (!source.combinedTransform().isIdentity()) {
            text += " | transform " + plotText::transform(source.combinedTransform());
        }
        if (!clip.empty()) {
            text += " | clip " + clip;
        }
        if (source.compositionMode() != QPainter::CompositionMode_SourceOver) {
            text += " | " + plotText::composition(source.compositionMode());
        }
        return text;
    }

    void record(std::string shape, const QPainterPath& path = {}) {
        recorder.recorded.push_back({std::move(shape), stateText(), path, painter()->combinedTransform(), {}});
    }

    PlotRecorder& recorder;
    std::string clip; ///< empty: none
};

PlotRecorder::PlotRecorder() : engine(std::make_unique<RecordingEngine>(*this)) {
}

PlotRecorder::~PlotRecorder() = default;

QPaintEngine* PlotRecorder::paintEngine() const {
    return engine.get();
}

std::string PlotRecorder::shapes() const {
    std::string text;
    for (const Call& call : recorded) {
        text += call.shape + '\n';
    }
    return text;
}

std::string PlotRecorder::plot() const {
    std::string text;
    for (const Call& call : recorded) {
        text += call.shape + call.state + '\n';
    }
    return text;
}

int PlotRecorder::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return 1000;
    case PdmNumColors:
        return INT32_MAX;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    default:
        return 96; // dots per inch, and sizes in millimetres that no test reads
    }
}
