// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QImage>
#include <QPaintDevice>
#include <QPainterPath>
#include <QTransform>

class RecordingEngine;

/// A paint device that draws nothing and writes down what it is asked to draw.
///
/// Point it a `QPainter`, draw, then compare `shapes()` or `plot()` with an expected text.
class PlotRecorder : public QPaintDevice {
public:
    /// One request to the paint engine.
    struct Call {
        std::string shape;    ///< "polyline 0,0 5,0", "path M0,0 L5,0 …", "points 2,7"
        std::string state;    ///< " | pen … | brush …", then what differs from a fresh painter
        QPainterPath path;    ///< of lines, points, paths and the outlines of texts, in logical coordinates
        QTransform transform; ///< from logical to device coordinates
        QImage image;         ///< of an image call; shares the pixels that were drawn
    };

    PlotRecorder();
    ~PlotRecorder() override;

    QPaintEngine* paintEngine() const override;

    const std::vector<Call>& calls() const { return recorded; }
    /// One line a call: what is drawn.
    std::string shapes() const;
    /// One line a call: what is drawn, with pen and brush, and transform, clip and composition where they
    /// are not those of a fresh painter.
    std::string plot() const;
    void clear() { recorded.clear(); }

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    friend class RecordingEngine;

    std::unique_ptr<RecordingEngine> engine;
    std::vector<Call> recorded;
};
