// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/plot/PlotKit.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <memory>

#include "support/PlotRecorder.h"

namespace kelplot {
namespace {

constexpr int pageSize = 1000;

/// What a drawing shows: its sheet, if there is anything on it.
const std::vector<Entity>& spaceOf(const Drawing& drawing) {
    return drawing.paperSpace.empty() ? drawing.modelSpace : drawing.paperSpace;
}

PlotReport plotOn(QPaintDevice& device, const DrawingPlot& plot, const std::vector<Entity>& entities,
                  const PlotTarget& target, const Progress& progress) {
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    const std::unique_ptr<HT_Renderer, void (*)(HT_Renderer*)> renderer(HT_RendererFactory::CreateRenderer(4, 0),
                                                                        HT_RendererFactory::DestroyRenderer);
    renderer->AttachDriver(&painter, {pageSize, pageSize}, false);
    DirectPainter direct(painter);
    renderer->StartRender();
    plot.extents(entities); // as the program does, which keeps the layouts of the texts
    PlotReport report = plot.draw(entities, target, {*renderer, &direct}, progress);
    renderer->FinishRender();
    renderer->DetachDriver();
    return report;
}

std::string between(const std::string& text, const std::string& before, const std::string& after) {
    const size_t start = text.find(before) + before.size();
    return text.substr(start, text.find(after, start) - start);
}

Shape shapeOf(const PlotRecorder::Call& call) {
    const std::string pen = between(call.state, "| pen ", " |");
    const std::string word = between(call.shape, "", " ");
    const QPointF origin = call.transform.map(QPointF());
    Shape shape{word, pen, call.transform.map(call.path), {origin.x(), origin.y()}};
    if (call.state.find("| clip ") != std::string::npos) {
        shape.clip = between(call.state, "| clip ", " |");
    }
    if (word == "path") {
        const bool isArea = pen == "none";
        shape.kind = isArea ? "area" : "arc";
        shape.style = isArea ? between(call.state, "| brush ", " |") : pen;
    } else if (word == "text") {
        shape.kind = "text " + call.shape.substr(call.shape.find(' ', word.size() + 1) + 1);
    } else if (word == "polyline" || word == "points") {
        shape.kind = word == "points" ? "point" : "line";
    }
    return shape;
}

std::string text(QPointF p) {
    return ' ' + std::to_string(std::lround(p.x())) + ',' + std::to_string(std::lround(p.y()));
}

} // namespace

std::vector<Vec2> Shape::points() const {
    constexpr double fineness = 100.0; // Qt follows curves to half a unit
    std::vector<Vec2> result;
    for (const QPolygonF& part : path.toSubpathPolygons(QTransform::fromScale(fineness, fineness))) {
        for (const QPointF p : part) {
            result.push_back({p.x() / fineness, p.y() / fineness});
        }
    }
    return result;
}

std::string Shape::text() const {
    constexpr int fewElements = 12;
    if (kind == "arc" || (kind == "line" && path.elementCount() > fewElements)) {
        return (kind == "arc" ? kind : "curve") + kelplot::text(path.pointAtPercent(0)) +
               kelplot::text(path.pointAtPercent(0.5)) + kelplot::text(path.pointAtPercent(1));
    }
    const bool isText = kind.rfind("text", 0) == 0;
    std::string result = kind + (isText ? kelplot::text({origin.x, origin.y}) : "");
    for (int i = 0; !isText && i < path.elementCount(); ++i) {
        result += kelplot::text(path.elementAt(i));
    }
    return result;
}

PlotTarget tenfoldTarget() {
    PlotTarget target;
    target.toDevice = {10.0, 0.0, 0.0, -10.0, 0.0, 1000.0};
    target.deviceUnitsPerMillimetre = 10.0;
    target.pageBox = {{0.0, 0.0}, {pageSize, pageSize}};
    return target;
}

Shapes shapesOf(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& style, PlotReport* report,
                const Progress& progress) {
    return shapesOf(DrawingPlot(drawing, style), spaceOf(drawing), target, report, progress);
}

Shapes shapesOf(const DrawingPlot& plot, const std::vector<Entity>& entities, const PlotTarget& target,
                PlotReport* report, const Progress& progress) {
    PlotRecorder recorder;
    const PlotReport told = plotOn(recorder, plot, entities, target, progress);
    if (report != nullptr) {
        *report = told;
    }
    Shapes shapes;
    std::transform(recorder.calls().begin(), recorder.calls().end(), std::back_inserter(shapes), shapeOf);
    return shapes;
}

QImage paintedPage(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& style,
                   PlotReport* report) {
    QImage page(pageSize, pageSize, QImage::Format_RGB32);
    page.fill(Qt::white);
    const PlotReport told = plotOn(page, DrawingPlot(drawing, style), spaceOf(drawing), target, {});
    if (report != nullptr) {
        *report = told;
    }
    return page;
}

Box2 extentsOf(const Drawing& drawing, ExtentsReport* report) {
    return DrawingPlot(drawing, {}).extents(spaceOf(drawing), report);
}

Drawing withEntities(const std::string& entities) {
    return readGroups(drawingOf(entities));
}

std::string group(int code, double value) {
    return ' ' + std::to_string(code) + '=' + QByteArray::number(value, 'g', 17).toStdString();
}

Vec2 onPage(Vec2 p) {
    return {10.0 * p.x, 1000.0 - 10.0 * p.y};
}

double distanceToPath(Vec2 p, const std::vector<Vec2>& path) {
    double nearest = HUGE_VAL;
    for (size_t i = 0; i + 1 < path.size(); ++i) {
        const Vec2 chord = path[i + 1] - path[i];
        const double square = dot(chord, chord);
        const double along = square > 0.0 ? std::clamp(dot(p - path[i], chord) / square, 0.0, 1.0) : 0.0;
        nearest = std::min(nearest, (p - path[i] - chord * along).length());
    }
    return nearest;
}

double distanceToLines(Vec2 p, const Shapes& shapes) {
    double nearest = HUGE_VAL;
    for (const Shape& shape : shapes) {
        nearest = std::min(nearest, distanceToPath(p, shape.points()));
    }
    return nearest;
}

bool isCovered(const Shapes& shapes, Vec2 p) {
    return std::any_of(shapes.begin(), shapes.end(), [p](const Shape& shape) {
        return shape.kind == "area" && shape.path.contains(QPointF(p.x, p.y));
    });
}

} // namespace kelplot
