// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;

TEST(Shapes, AreDrawnInTheirPlaces) {
    const Face3d triangle{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {2, 2, 0}}}, {true, true, true, true}};
    const Face3d openFace{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}}, {true, false, true, false}};
    const double nan = std::nan("");
    const struct {
        const char* name;
        Geometry geometry;
        const char* expected; ///< a drawing unit is 10 device units, y turned over
    } cases[] = {
        {"line", Line{{1, 1, 9}, {2, 3, -9}}, "line 10,990 20,970\n"},
        {"line without length", Line{{1, 1, 0}, {1, 1, 0}}, "line 10,990 10,990\n"},
        {"closed polyline", polylineOf({{{1, 1, 0}}, {{2, 1, 0}}, {{2, 2, 0}}}, true),
         "line 10,990 20,990 20,980 10,990\n"},
        {"polyline of one vertex", polylineOf({{{1, 1, 0}}}, true), ""},
        {"solid", Solid{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}}}, "area 10,990 20,990 20,980 10,980\n"},
        {"face of three corners", triangle, "line 10,990 20,990\nline 20,990 20,980\nline 20,980 10,990\n"},
        {"face with hidden edges", openFace, "line 10,990 20,990\nline 20,980 10,980\n"},
        {"off the page", Line{{-50, 1, 0}, {-1, 1, 0}}, ""},
        {"line without an end", Line{{1, 1, 0}, {nan, 1, 0}}, ""},
        {"solid without a corner", Solid{{{{1, 1, 0}, {2, 1, 0}, {2, nan, 0}, {1, 2, 0}}}}, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(textOf(shapesOf(entityOf(row.geometry))), row.expected) << row.name;
    }
}

TEST(Points, LookAsTheDrawingSays) {
    const struct {
        const char* name;
        int mode;
        double size;
        const char* expected;
    } cases[] = {
        {"dot", 0, 2.0, "point 500,500\n"},
        {"nothing", 1, 2.0, ""},
        {"plus", 2, 2.0, "line 480,500 520,500\nline 500,480 500,520\n"},
        {"cross", 3, 2.0, "line 480,480 520,520\nline 480,520 520,480\n"},
        {"tick points up", 4, 2.0, "line 500,500 500,490\n"},
        {"circle about nothing", 33, 2.0, "arc 500,500 r 10 10\n"},
        {"square about a dot", 64, 2.0, "point 500,500\nline 490,490 510,490 510,510 490,510 490,490\n"},
        {"per cent of the page", 4, -10.0, "line 500,500 500,450\n"},
        {"usual size", 4, 0.0, "line 500,500 500,475\n"},
    };
    for (const auto& row : cases) {
        Drawing drawing = drawingOf(entityOf(PointEntity{{50, 50, 0}}));
        drawing.pointMode = row.mode;
        drawing.pointSize = row.size;
        EXPECT_EQ(textOf(shapesOf(drawing)), row.expected) << row.name;
    }
}

TEST(WidePolylines, OfOneWidthAreWideLinesWithMitredCorners) {
    const double w = 0.5;
    const auto vertices = std::vector<PolylineVertex>{{{1, 1, 0}, 0, w, w}, {{3, 1, 0}, 0, w, w}, {{3, 3, 0}, 0, w, w}};
    const auto open = shapesOf(entityOf(polylineOf(vertices, false)));
    EXPECT_EQ(textOf(open), "line 10,990 30,990 30,970\n");
    EXPECT_EQ(open.at(0).weight, 5.0);
    EXPECT_EQ(open.at(0).ends, HT_PlotStyle::LineEndFlat);
    EXPECT_EQ(open.at(0).joins, HT_PlotStyle::LineJoinMiter);
    // The closed one runs on over its first side, so that its first corner is mitred as well.
    EXPECT_EQ(textOf(shapesOf(entityOf(polylineOf(vertices, true)))), "line 10,990 30,990 30,970 10,990 30,990\n");
}

TEST(WidePolylines, TakeTheirWidthFromTheDrawingNotFromTheLineWeight) {
    Entity wide = entityOf(polylineOf({{{1, 1, 0}, 0, 0.5, 0.5}, {{3, 1, 0}}}, false));
    wide.attributes.lineWeight = 200;
    Insert reference = referenceTo(0);
    reference.scale = {4.0, 4.0, 4.0};
    EXPECT_EQ(shapesOf(drawingOf(wide, entityOf(reference)), tenfoldTarget(), {false, 3.0}).at(0).weight, 20.0);
}

TEST(WidePolylines, OfVaryingWidthOrStretchedAreAreas) {
    const double w = 10.0;
    const Polyline corner = polylineOf({{{10, 20, 0}, 0, w, w}, {{50, 20, 0}, 0, w, w}, {{50, 60, 0}, 0, w, w}}, false);
    const Polyline arrow = polylineOf({{{10, 50, 0}, 0, 0, 0}, {{50, 50, 0}, 0, 20, 0}, {{90, 50, 0}}}, false);
    const Polyline spike = polylineOf({{{10, 50, 0}, 0, 0, 10}, {{50, 50, 0}, 0, 10, 0}, {{10, 53, 0}}}, false);
    const Polyline horn = polylineOf({{{80, 50, 0}, 1.0, 10, 20}, {{20, 50, 0}}}, false);
    const struct {
        const char* name;
        Geometry geometry;
        Vec3 scale;
        std::vector<Vec2> covered; ///< device units
        std::vector<Vec2> bare;
    } cases[] = {
        {"arrow", arrow, {1, 1, 1}, {{510, 410}, {510, 590}, {700, 540}, {880, 500}}, {{490, 490}, {700, 560}}},
        {"stretched corner", corner, {1, 1.5, 1}, {{110, 770}, {110, 630}, {549, 770}, {451, 200}}, {{440, 600}}},
        {"sharp corner without a mitre", spike, {1, 1, 1}, {{490, 470}, {490, 530}}, {{580, 503}, {700, 507}}},
        {"horn", horn, {1, 1, 1}, {{840, 499}, {760, 499}, {120, 499}, {280, 499}, {500, 200}}, {{500, 300}}},
    };
    for (const auto& row : cases) {
        Insert reference = referenceTo(0);
        reference.scale = row.scale;
        const auto shapes = shapesOf(drawingOf(entityOf(row.geometry), entityOf(reference)));
        for (const Vec2 p : row.covered) {
            EXPECT_TRUE(isCovered(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
        for (const Vec2 p : row.bare) {
            EXPECT_FALSE(isCovered(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
    }
    EXPECT_EQ(textOf(shapesOf(entityOf(arrow))), "area 500,400 900,500 900,500 500,600\nline 100,500 500,500\n");
}

TEST(WidePolylines, NoSeamShowsBetweenPieces) {
    const struct {
        const char* name;
        Polyline polyline;
        Vec2 seam; ///< device units
    } cases[] = {
        {"straight", polylineOf({{{10, 50, 0}, 0, 10, 8}, {{50, 50, 0}, 0, 8, 4}, {{90, 50, 0}}}, false), {500, 500}},
        {"arc", polylineOf({{{20, 50, 0}, 0, 4, 8}, {{50, 50, 0}, 1, 8, 4}, {{50, 90, 0}}}, false), {500, 500}},
        {"arcs", polylineOf({{{20, 50, 0}, 1, 4, 8}, {{80, 50, 0}, 1, 8, 4}, {{20, 50, 0}}}, false), {800, 500}},
        {"end of a closed one",
         polylineOf({{{50, 50, 0}, 0, 8, 6}, {{90, 50, 0}, 0, 6, 6}, {{50, 90, 0}, 0, 6, 6}, {{10, 50, 0}, 0, 6, 8}},
                    true),
         {500, 500}},
    };
    PlotTarget target = tenfoldTarget();
    target.hairlineWidth = 16.0;
    for (const auto& row : cases) {
        const auto shapes = shapesOf(drawingOf(entityOf(row.polyline)), target);
        // A dot of the device that lies anywhere on the seam must lie in one piece as a whole.
        const auto coversDot = [&](const RecordingRenderer::Shape& shape) {
            int corners = 0;
            for (const Vec2 corner : {Vec2{-15.5, -15.5}, Vec2{15.5, -15.5}, Vec2{15.5, 15.5}, Vec2{-15.5, 15.5}}) {
                corners += isCovered({shape}, row.seam + corner) ? 1 : 0;
            }
            return corners == 4;
        };
        EXPECT_TRUE(std::any_of(shapes.begin(), shapes.end(), coversDot)) << row.name;
    }
}

TEST(WidePolylines, TaperedOnesHaveWholeCorners) {
    for (const double side : {1.0, -1.0}) { // turning left, turning right
        const Polyline corner =
            polylineOf({{{10, 50, 0}, 0, 0, 6}, {{50, 50, 0}, 0, 6, 0}, {{50, 50 + side * 40, 0}}}, false);
        const auto shapes = shapesOf(entityOf(corner));
        // The mitre runs from 3 inside the corner to 3 outside in both directions.
        for (int tenth = -27; tenth <= 27; ++tenth) {
            const double along = tenth / 10.0;
            for (const double across : {-0.3, -0.1, 0.01, 0.1, 0.3}) {
                const Vec2 p{50.0 - along + across, 50.0 + side * (along + across)};
                const bool inside = p.x < 52.7 && (p.y - 50.0) * side > -2.7;
                EXPECT_TRUE(!inside || isCovered(shapes, {10 * p.x, 1000 - 10 * p.y}))
                    << side << ' ' << p.x << ',' << p.y;
            }
        }
        EXPECT_TRUE(isCovered(shapes, {490, 500 - side * 25}));
        EXPECT_FALSE(isCovered(shapes, {535, 500 + side * 35}));
        EXPECT_FALSE(isCovered(shapes, {460, 500 - side * 40}));
    }
}

TEST(WidePolylines, AreRoundAtTheirOuterBorder) {
    const double width = 18.0;
    const Polyline ring = polylineOf({{{40, 50, 0}, 1, width, width}, {{60, 50, 0}, 1, width, width}}, true);
    const auto points = shapesOf(entityOf(ring)).at(0).points;
    ASSERT_GT(points.size(), 8U);
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        const double halfAngle = std::asin(std::min(1.0, (points[i + 1] - points[i]).length() / 200.0));
        EXPECT_LT(190.0 * (1.0 - std::cos(halfAngle)), 0.12);
    }
}

TEST(FarShapes, AreCutBeforeTheRendererSeesThem) {
    const double far = 1e12;
    const auto line = shapesOf(entityOf(Line{{-far, 50, 0}, {far, 50, 0}}));
    ASSERT_EQ(line.size(), 1U);
    const auto path =
        shapesOf(entityOf(polylineOf({{{10, 10, 0}}, {{10, far, 0}}, {{20, far, 0}}, {{20, 10, 0}}}, false)));
    ASSERT_EQ(path.size(), 2U) << "two pieces on the page";
    const auto area = shapesOf(entityOf(Solid{{{{-far, -far, 0}, {far, -far, 0}, {far, 50, 0}, {-far, 50, 0}}}}));
    ASSERT_EQ(area.size(), 1U);
    EXPECT_TRUE(isCovered(area, {500, 501}));
    EXPECT_TRUE(isCovered(area, {1, 999}));
    EXPECT_FALSE(isCovered(area, {500, 499}));
    for (const auto& shapes : {line, path, area}) {
        for (const auto& shape : shapes) {
            for (const Vec2 p : shape.points) {
                EXPECT_LT(p.length(), 1e4) << shape.text();
            }
        }
    }
    for (const Vec2 p : line[0].points) {
        EXPECT_NEAR(p.y, 500.0, 1e-6);
        EXPECT_TRUE(p.x < -900.0 || p.x > 1900.0) << "cut where it shows";
    }
}

TEST(FarShapes, GeoreferencedDrawingsKeepTheirDetail) {
    PlotTarget target = tenfoldTarget();
    target.toDevice = {1000.0, 0.0, 0.0, -1000.0, -5e9, 6e9 + 1000.0};
    const Entity line = entityOf(Line{{5e6 + 0.25, 6e6 + 0.5, 0}, {5e6 + 0.75, 6e6 + 0.125, 0}});
    EXPECT_EQ(textOf(shapesOf(drawingOf(line), target)), "line 250,500 750,875\n");
}

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
