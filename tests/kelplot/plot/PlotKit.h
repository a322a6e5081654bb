// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "plot/DrawingPlot.h"

namespace kelplot {

/// Keeps what is drawn on it, with the style in force at the time.
class RecordingRenderer : public HT_Renderer {
public:
    struct Shape {
        std::string kind; ///< "point", "line", "area", "arc", or "text" and the text
        std::vector<Vec2> points;
        double radiusX = 0.0, radiusY = 0.0, rotation = 0.0, start = 0.0, end = 0.0; ///< of an arc
        HT_Color color = 0;
        int alpha = 255;
        double weight = 0.0;
        int ends = -1, joins = -1;
        std::vector<double> pattern;

        /// The point of an arc at an eccentric angle, counter-clockwise on a page with y downwards.
        Vec2 arcPoint(double t) const;
        /// Kind and rounded coordinates in one line.
        std::string text() const;
    };

    std::vector<Shape> shapes;
    int styleCalls = 0;

    uint32_t Features() const override { return 31; }
    void AttachDriver(void*, const HT_Int_Size&, bool) override {}
    void DetachDriver() override {}
    bool StartRender() override { return true; }
    void FinishRender() override {}
    void DrawPoint(const HT_Double_Point& point) override { add("point", &point, 1); }
    void DrawEllipse(const HT_Double_Point& center, double radiusX, double radiusY, double rotation) override {
        DrawArc(center, radiusX, radiusY, rotation, 0.0, 6.283185307179586);
    }
    void DrawArc(const HT_Double_Point& center, double radiusX, double radiusY, double rotation, double startParam,
                 double endParam) override;
    void DrawPolyline(const HT_Double_Point* points, int count) override { add("line", points, count); }
    void FillPolygon(const HT_Double_Point* points, int count) override { add("area", points, count); }
    void DrawBezier(const HT_Double_Point* points, int count) override { add("line", points, count); }
    void DrawText(wchar_t* text, int length, const HT_Font& font, const HT_Double_Point& position, double, double,
                  double*) override;
    void DrawImage(HT_RasterImage_Record*) override {}
    void SetLineWeight(double weight) override { set(m_style.weight, weight); }
    void SetLineEndStyle(HT_PlotStyle::LineEndStyle style) override { set(m_style.ends, style); }
    void SetLineJoinStyle(HT_PlotStyle::LineJoinStyle style) override { set(m_style.joins, style); }
    void SetLineType(HT_PlotStyle::LineType type, double* pattern, unsigned int count) override;
    void SetFillStyle(HT_PlotStyle::FillStyle) override { ++styleCalls; }
    void SetColor(HT_Color color) override;
    void SetAlpha(unsigned char alpha) override { set(m_style.alpha, alpha); }
    void SetFillMode(HT_PlotStyle::FillMode) override { ++styleCalls; }
    void SetMergeControlType(HT_PlotStyle::MergeControlType) override { ++styleCalls; }
    void SetClipRgn(const HT_ClipRgn*) override {}

private:
    template <typename Field, typename Value>
    void set(Field& field, Value value) {
        ++styleCalls;
        field = value;
    }
    void add(const char* kind, const HT_Double_Point* points, int count);

    Shape m_style;
};

/// A drawing with nothing in it but layer "0" and the continuous line type.
Drawing emptyDrawing();

/// An entity with ordinary attributes.
Entity entityOf(Geometry geometry, Vec3 extrusion = {0.0, 0.0, 1.0});

/// A reference to a block, in its place and size.
Insert referenceTo(uint32_t block);

/// A drawing of one entity.
Drawing drawingOf(Entity entity);

/// A drawing of one reference to a block of one entity.
Drawing drawingOf(Entity content, Entity reference);

Polyline polylineOf(std::vector<PolylineVertex> vertices, bool closed = false);

Hatch solidHatch(std::vector<HatchLoop> loops, HatchStyle style = HatchStyle::normal);

/// A page of 1000 by 1000 device units for 100 by 100 drawing units, 10 device units a millimetre.
PlotTarget tenfoldTarget();

/// The extents of some entities, and what a plot of them leaves out.
Box2 visibleExtents(const Drawing& drawing, const std::vector<Entity>& entities, WalkReport* report = nullptr);
PlotReport plotEntities(const Drawing& drawing, const std::vector<Entity>& entities, const PlotTarget& target,
                        const PlotStyleOptions& style, const PlotSurface& surface, const Progress& progress);

/// What is drawn for the entities in model space.
std::vector<RecordingRenderer::Shape> shapesOf(const Drawing& drawing, const PlotTarget& target = tenfoldTarget(),
                                               const PlotStyleOptions& style = {});
std::vector<RecordingRenderer::Shape> shapesOf(const Entity& entity);

/// The page of a target as a device paints it, a pixel for each of its units.
QImage paintedPage(const Drawing& drawing, const PlotTarget& target = tenfoldTarget(),
                   const PlotStyleOptions& style = {}, PlotReport* report = nullptr);

/// As text, one line a shape.
std::string textOf(const std::vector<RecordingRenderer::Shape>& shapes);

/// The distance from a point to a path, and to the nearest of all shapes as paths.
double distanceToPath(Vec2 point, const std::vector<Vec2>& path);
double distanceToLines(Vec2 point, const std::vector<RecordingRenderer::Shape>& shapes);

/// Tells whether the polygons, each filled by itself by the even-odd rule, cover a point.
bool isCovered(const std::vector<RecordingRenderer::Shape>& shapes, Vec2 point);

} // namespace kelplot
