// SPDX-License-Identifier: BSD-3-Clause
#include "CountingDevice.h"

#include <QPaintEngine>
#include <QPainterPath>

class CountingEngine : public QPaintEngine {
public:
    CountingEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath& path) override { elements += path.elementCount(); }
    void drawPoints(const QPointF*, int count) override { elements += count; }
    void drawPoints(const QPoint*, int count) override { elements += count; }
    void drawLines(const QLineF*, int count) override { elements += 2 * int64_t{count}; }
    void drawPolygon(const QPointF*, int count, PolygonDrawMode) override { elements += count; }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { ++elements; }
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override { ++elements; }

    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;

    int64_t elements = 0;
};

CountingDevice::CountingDevice() : engine(std::make_unique<CountingEngine>()) {
}

CountingDevice::~CountingDevice() = default;

QPaintEngine* CountingDevice::paintEngine() const {
    return engine.get();
}

int64_t CountingDevice::elements() const {
    return engine->elements;
}

int CountingDevice::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return 1000;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    default:
        return 96;
    }
}
