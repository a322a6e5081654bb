// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;

TEST(Extents, AreThoseOfTheInk) {
    const double nan = std::nan("");
    Spline arch; // a parabola that rises to half of its middle control point
    arch.degree = 2;
    arch.knots = {0, 0, 0, 1, 1, 1};
    arch.controlPoints = {{0, 0, 0}, {2, 4, 0}, {4, 0, 0}};
    const HatchArc quarter{{0, 0}, 2.0, pi / 4, 3 * pi / 4, false};
    const struct {
        const char* name;
        Geometry geometry;
        double minX, minY, maxX, maxY;
        double tolerance = 1e-9;
    } cases[] = {
        {"line", Line{{1, 5, 0}, {3, 2, 0}}, 1, 2, 3, 5},
        {"point", PointEntity{{3, 4, 0}}, 3, 4, 3, 4},
        {"circle", Circle{{1, 2, 0}, 3}, -2, -1, 4, 5},
        {"arc over the top", Arc{{0, 0, 0}, 2, pi / 4, 3 * pi / 4}, -std::sqrt(2), std::sqrt(2), std::sqrt(2), 2},
        {"turned ellipse", Ellipse{{0, 0, 0}, {3, 4, 0}, 0.5, 0, 2 * pi}, -std::sqrt(13), -std::sqrt(18.25),
         std::sqrt(13), std::sqrt(18.25)},
        {"bulge down", polylineOf({{{0, 0, 0}, 1.0}, {{4, 0, 0}}}), 0, -2, 4, 0},
        {"wide line", polylineOf({{{0, 0, 0}, 0.0, 2.0, 2.0}, {{4, 0, 0}}}), 0, -1, 4, 1},
        {"arrow head", polylineOf({{{0, 0, 0}, 0.0, 2.0, 0.0}, {{4, 0, 0}}}), 0, -1, 4, 1},
        {"wide corner", polylineOf({{{0, 0, 0}, 0, 2, 2}, {{4, 0, 0}, 0, 2, 2}, {{4, 4, 0}}}), 0, -1, 5, 4},
        {"spline", arch, 0, 0, 4, 2, 1e-3},
        {"hatch with an arc", solidHatch({{{quarter}, {}}}), -std::sqrt(2), std::sqrt(2), std::sqrt(2), 2},
        {"polyline hatch", solidHatch({{{}, {{{0, 0, 0}, 1.0}, {{4, 0, 0}}, {{4, 3, 0}}}}}), 0, -2, 4, 3},
        {"polyline with a bad vertex", polylineOf({{{0, 0, 0}}, {{nan, 9, 0}}, {{1, 1, 0}}}), 0, 0, 1, 1},
        {"solid with a bad corner", Solid{{{{0, 0, 0}, {1, 0, 0}, {1, HUGE_VAL, 0}, {0, 1, 0}}}}, 0, 0, 1, 1},
        {"georeferenced line", Line{{5e6, 6e6, 0}, {5e6 + 0.001, 6e6, 0}}, 5e6, 6e6, 5e6 + 0.001, 6e6},
    };
    for (const auto& row : cases) {
        const Box2 box = visibleExtents(emptyDrawing(), {entityOf(row.geometry)});
        EXPECT_NEAR(box.min.x, row.minX, row.tolerance) << row.name;
        EXPECT_NEAR(box.min.y, row.minY, row.tolerance) << row.name;
        EXPECT_NEAR(box.max.x, row.maxX, row.tolerance) << row.name;
        EXPECT_NEAR(box.max.y, row.maxY, row.tolerance) << row.name;
    }
}

TEST(Extents, AreEmptyWhereNothingShows) {
    const double nan = std::nan("");
    Hatch pattern = solidHatch({{{}, {{{0, 0, 0}}, {{4, 0, 0}}, {{4, 3, 0}}}}});
    pattern.solid = false; // is not drawn
    const Geometry hidden[] = {Line{{50, 50, 0}, {HUGE_VAL, 0, 0}},
                               Circle{{50, 50, 0}, -1},
                               Circle{{50, 50, 0}, nan},
                               Circle{{50, 50, 0}, HUGE_VAL},
                               Circle{{nan, 50, 0}, 5},
                               Arc{{50, 50, 0}, 5.0, nan, 1.0},
                               Ellipse{{50, 50, 0}, {0, 0, 0}, 0.5, 0.0, 1.0},
                               pattern};
    for (const Geometry& geometry : hidden) {
        EXPECT_TRUE(visibleExtents(emptyDrawing(), {entityOf(geometry)}).isEmpty()) << geometry.index();
        EXPECT_TRUE(shapesOf(entityOf(geometry)).empty()) << geometry.index();
    }
    Drawing drawing = emptyDrawing();
    EXPECT_TRUE(visibleExtents(drawing, {}).isEmpty());
    drawing.pointMode = 1;
    EXPECT_TRUE(visibleExtents(drawing, {entityOf(PointEntity{{3, 4, 0}})}).isEmpty());
    drawing.pointMode = 33;
    EXPECT_FALSE(visibleExtents(drawing, {entityOf(PointEntity{{3, 4, 0}})}).isEmpty());
}

} // namespace
} // namespace kelplot
