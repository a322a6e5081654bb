// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"
#include "plot/pen/LineCutter.h"

namespace kelplot {
namespace {

using Shape = RecordingRenderer::Shape;

Box2 box(double minX, double minY, double maxX, double maxY) {
    return {{minX, minY}, {maxX, maxY}};
}

/// The page of the kit, of which only the drawing units from (40, 40) to (60, 60) show.
PlotTarget windowTarget() {
    PlotTarget target = tenfoldTarget();
    target.limits = {box(400, 400, 600, 600)};
    return target;
}

Polyline polylineThrough(const std::vector<Vec2>& points) {
    Polyline polyline;
    for (const Vec2 point : points) {
        polyline.vertices.push_back({{point.x, point.y, 0.0}});
    }
    return polyline;
}

/// A line of 2,000 points that winds across the whole page, some of it in the window.
std::vector<Vec2> windingLine() {
    std::vector<Vec2> points;
    for (int i = 0; i < 2000; ++i) {
        const double t = i / 2000.0;
        points.push_back({100.0 * t, 50.0 + 45.0 * std::sin(t * 40.0)});
    }
    return points;
}

bool hasGeometryModule() {
    return LineCutter(box(0, 0, 1, 1)).isAvailable();
}

TEST(PlotRegion, WhatLiesOutsideIsNotDrawn) {
    const std::pair<const char*, Geometry> cases[] = {
        {"line", Line{{10, 10, 0}, {30, 90, 0}}},
        {"circle", Circle{{20, 50, 0}, 10}},
        {"solid", Solid{{{{70, 10, 0}, {90, 10, 0}, {90, 90, 0}, {70, 90, 0}}}}},
        {"point", PointEntity{{30, 50, 0}}},
        {"triangle whose box meets the window", Solid{{{{0, 0, 0}, {70, 0, 0}, {0, 70, 0}, {0, 70, 0}}}}},
    };
    for (const auto& [name, geometry] : cases) {
        EXPECT_EQ(textOf(shapesOf(drawingOf(entityOf(geometry)), windowTarget())), "") << name;
    }
}

TEST(LongLines, AreCutWhereTheirInkNoLongerShows) {
    ASSERT_TRUE(hasGeometryModule());
    const PlotTarget target = windowTarget();
    const Box2 visible = target.visibleBox();
    for (const bool mitred : {false, true}) {
        Polyline line = polylineThrough(windingLine());
        for (PolylineVertex& vertex : line.vertices) {
            vertex.startWidth = vertex.endWidth = mitred ? 1.0 : 0.0;
        }
        Entity entity = entityOf(line);
        entity.attributes.lineWeight = 100;
        // Ten device units wide: round ends reach half of that from the line, a mitre six times as much.
        const double reach = mitred ? 60.0 : 5.0;
        const auto pieces = shapesOf(drawingOf(entity), target);
        const auto whole = shapesOf(drawingOf(entity));
        EXPECT_GT(pieces.size(), 1U) << "it comes in and goes out more than once";
        // Nothing that shows is lost, and nothing appears: the line and its pieces lie on one another.
        for (size_t i = 0; i + 1 < whole.at(0).points.size(); ++i) {
            const Vec2 middle = (whole[0].points[i] + whole[0].points[i + 1]) * 0.5;
            if (visible.inflated(reach).contains(Box2{middle, middle})) {
                EXPECT_LT(distanceToLines(middle, pieces), 1.0) << middle.x << ',' << middle.y;
            }
        }
        for (const Shape& piece : pieces) {
            for (const Vec2 p : piece.points) {
                EXPECT_LT(distanceToLines(p, whole), 1.0) << p.x << ',' << p.y;
                EXPECT_TRUE(visible.inflated(reach + 6.0).contains(Box2{p, p})) << p.x << ',' << p.y;
            }
            for (const Vec2 p : {piece.points.front(), piece.points.back()}) {
                EXPECT_FALSE(visible.inflated(reach + 2.0).contains(Box2{p, p})) << p.x << ',' << p.y;
            }
        }
    }
}

TEST(LongLines, LeaveNothingWhereTheyPassTheWindowBy) {
    ASSERT_TRUE(hasGeometryModule());
    std::vector<Vec2> points; // round about the window
    points.reserve(500);
    for (int i = 0; i < 500; ++i) {
        points.push_back({50.0 + 40.0 * std::cos(i * 0.0125), 50.0 + 40.0 * std::sin(i * 0.0125)});
    }
    EXPECT_EQ(textOf(shapesOf(drawingOf(entityOf(polylineThrough(points))), windowTarget())), "");
}

TEST(LongLines, StayWholeWhereTheyAreDashed) {
    Drawing drawing = drawingOf(entityOf(polylineThrough(windingLine())));
    drawing.lineTypes.push_back({"Dashed", {5.0, -3.0}});
    drawing.modelSpace[0].attributes.lineType = 1;
    std::get<Polyline>(drawing.modelSpace[0].geometry).continuousPattern = true;
    const auto shapes = shapesOf(drawing, windowTarget());
    ASSERT_EQ(shapes.size(), 1U);
    EXPECT_EQ(shapes[0].points.size(), 2000U);
}

TEST(Areas, AreCutToTheWindow) {
    std::vector<Vec2> star; // most of its 3,000 corners lie outside
    for (int i = 0; i < 3000; ++i) {
        const double radius = i % 2 == 0 ? 60.0 : 9.0;
        star.push_back({50.0 + radius * std::cos(i * 0.0021), 50.0 + radius * std::sin(i * 0.0021)});
    }
    const Hatch hatch = solidHatch({HatchLoop{{}, polylineThrough(star).vertices}});
    const auto shapes = shapesOf(drawingOf(entityOf(hatch)), windowTarget());
    ASSERT_EQ(shapes.size(), 1U);
    for (const Vec2 p : shapes[0].points) {
        EXPECT_TRUE(box(390, 390, 610, 610).contains(Box2{p, p})) << p.x << ',' << p.y;
    }
    EXPECT_TRUE(isCovered(shapes, {500, 500}));
}

} // namespace
} // namespace kelplot
