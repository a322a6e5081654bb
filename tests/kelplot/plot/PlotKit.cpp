// SPDX-License-Identifier: GPL-2.0-or-later
#include "kelplot/plot/PlotKit.h"

#include <QPainter>
#include <QString>
#include <algorithm>
#include <cmath>
#include <memory>

namespace kelplot {

using Shape = RecordingRenderer::Shape;

Vec2 Shape::arcPoint(double t) const {
    const double x = radiusX * std::cos(t);
    const double y = radiusY * std::sin(t);
    return {points[0].x + x * std::cos(rotation) - y * std::sin(rotation),
            points[0].y - x * std::sin(rotation) - y * std::cos(rotation)};
}

std::string Shape::text() const {
    std::string result = kind;
    for (const Vec2 point : points) {
        result += ' ' + std::to_string(std::lround(point.x)) + ',' + std::to_string(std::lround(point.y));
    }
    if (kind == "arc") {
        result += " r " + std::to_string(std::lround(radiusX)) + ' ' + std::to_string(std::lround(radiusY));
    }
    return result;
}

void RecordingRenderer::add(const char* kind, const HT_Double_Point* points, int count) {
    Shape shape = m_style;
    shape.kind = kind;
    for (int i = 0; i < count; ++i) {
        shape.points.push_back({points[i].x, points[i].y});
    }
    shapes.push_back(shape);
}

void RecordingRenderer::DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation,
                                double startParam, double endParam) {
    add("arc", &center, 1);
    Shape& arc = shapes.back();
    arc.radiusX = radiusX;
    arc.radiusY = radiusY;
    arc.rotation = rotation;
    arc.start = startParam;
    arc.end = endParam;
}

void RecordingRenderer::DrawText(wchar_t* text, int length, const HT_Font&, const HT_Double_Point& position, double,
                                 double, double*) {
    add("text", &position, 1);
    shapes.back().kind += ' ' + QString::fromWCharArray(text, length).toStdString();
}

void RecordingRenderer::SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) {
    ++styleCalls;
    m_style.pattern.clear();
    if (type == HT_PlotStyle::LineTypeCustom) {
        m_style.pattern.assign(pattern, pattern + count);
    }
}

void RecordingRenderer::SetColor(HT_Color color) {
    set(m_style.color, color);
    m_style.alpha = 255;
}

Drawing emptyDrawing() {
    Drawing drawing;
    drawing.layers.push_back({});
    drawing.layers[0].name = "0";
    drawing.lineTypes.push_back({"Continuous", {}});
    return drawing;
}

Entity entityOf(Geometry geometry, Vec3 extrusion) {
    Entity entity;
    entity.extrusion = extrusion;
    entity.geometry = std::move(geometry);
    return entity;
}

Insert referenceTo(uint32_t block) {
    Insert insert;
    insert.block = block;
    return insert;
}

Drawing drawingOf(Entity entity) {
    Drawing drawing = emptyDrawing();
    drawing.modelSpace.push_back(std::move(entity));
    return drawing;
}

Drawing drawingOf(Entity content, Entity reference) {
    Drawing drawing = drawingOf(std::move(reference));
    drawing.blocks.push_back({"block", {}, {std::move(content)}});
    return drawing;
}

Polyline polylineOf(std::vector<PolylineVertex> vertices, bool closed) {
    Polyline polyline;
    polyline.vertices = std::move(vertices);
    polyline.closed = closed;
    return polyline;
}

Hatch solidHatch(std::vector<HatchLoop> loops, HatchStyle style) {
    Hatch hatch;
    hatch.solid = true;
    hatch.style = style;
    hatch.loops = std::move(loops);
    return hatch;
}

PlotTarget tenfoldTarget() {
    PlotTarget target;
    target.toDevice = {10.0, 0.0, 0.0, -10.0, 0.0, 1000.0};
    target.deviceUnitsPerMillimetre = 10.0;
    target.pageBox.add(Vec2{0.0, 0.0});
    target.pageBox.add(Vec2{1000.0, 1000.0});
    return target;
}

Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities, WalkReport* report) {
    return DrawingPlot(drawing, {}).extents(entities, report);
}

PlotReport plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                        const PlotStyleOptions& style, const PlotSurface& surface, const Progress& progress) {
    return DrawingPlot(drawing, style).draw(entities, target, surface, progress);
}

std::vector<Shape> shapesOf(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& style) {
    RecordingRenderer renderer;
    plotEntities(drawing, drawing.modelSpace, target, style, {renderer}, {});
    return renderer.shapes;
}

std::vector<Shape> shapesOf(const Entity& entity) {
    return shapesOf(drawingOf(entity));
}

QImage paintedPage(const Drawing& drawing, const PlotTarget& target, const PlotStyleOptions& style,
                   PlotReport* report) {
    QImage page(1000, 1000, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    const std::unique_ptr<HT_Renderer, void (*)(HT_Renderer*)> renderer(HT_RendererFactory::CreateRenderer(4, 0),
                                                                        HT_RendererFactory::DestroyRenderer);
    renderer->AttachDriver(&painter, {1000, 1000}, false);
    DirectPainter direct(painter);
    renderer->StartRender();
    const PlotReport told = plotEntities(drawing, drawing.modelSpace, target, style, {*renderer, &direct}, {});
    if (report != nullptr) {
        *report = told;
    }
    renderer->FinishRender();
    renderer->DetachDriver();
    return page;
}

std::string textOf(const std::vector<Shape>& shapes) {
    std::string text;
    for (const Shape& shape : shapes) {
        text += shape.text() + '\n';
    }
    return text;
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

double distanceToLines(Vec2 p, const std::vector<Shape>& shapes) {
    double nearest = HUGE_VAL;
    for (const Shape& shape : shapes) {
        nearest = std::min(nearest, distanceToPath(p, shape.points));
    }
    return nearest;
}

bool isCovered(const std::vector<Shape>& shapes, Vec2 p) {
    bool covered = false;
    for (const Shape& shape : shapes) {
        bool inside = false;
        for (size_t i = 0; i < shape.points.size(); ++i) {
            const Vec2 a = shape.points[i];
            const Vec2 b = shape.points[(i + 1) % shape.points.size()];
            if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y)) {
                inside = !inside;
            }
        }
        covered = covered || (shape.kind == "area" && inside);
    }
    return covered;
}

} // namespace kelplot
