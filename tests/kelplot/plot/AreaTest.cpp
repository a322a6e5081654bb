#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "geometry/EvenOddJoin.h"
#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;
using Shape = RecordingRenderer::Shape;

HatchLoop polygonLoop(const std::vector<Vec2>& corners, bool textBox = false) {
    HatchLoop loop;
    loop.textBox = textBox;
    for (const Vec2 corner : corners) {
        loop.polyline.push_back({{corner.x, corner.y, 0.0}});
    }
    return loop;
}

HatchLoop box(double x0, double y0, double x1, double y1, bool textBox = false) {
    return polygonLoop({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, textBox);
}

std::vector<Shape> shapesOfHatch(std::vector<HatchLoop> loops) {
    Hatch hatch;
    hatch.solid = true;
    hatch.loops = std::move(loops);
    return shapesOf(entityOf(hatch));
}

bool coversDrawingPoint(const std::vector<Shape>& shapes, Vec2 p) {
    return isCovered(shapes, {10.0 * p.x, 1000.0 - 10.0 * p.y});
}

struct HoleCase {
    const char* name;
    std::vector<HatchLoop> loops;
    std::vector<Vec2> covered; ///< drawing units
    std::vector<Vec2> bare;
    size_t polygons;
};

const HoleCase holeCases[] = {
    {"no hole", {box(10, 10, 90, 90)}, {{50, 50}}, {{5, 5}}, 1},
    {"hole", {box(10, 10, 90, 90), box(40, 40, 60, 60)}, {{20, 51}, {80, 51}}, {{50, 50}}, 1},
    {"hole first", {box(40, 40, 60, 60), box(10, 10, 90, 90)}, {{20, 51}}, {{50, 50}}, 1},
    {"island in a hole",
     {box(10, 10, 90, 90), box(20, 20, 80, 80), box(40, 40, 60, 60)},
     {{15, 51}, {50, 51}},
     {{30, 51}, {70, 51}},
     2},
    {"hole in an island in a hole",
     {box(45, 45, 55, 55), box(10, 10, 90, 90), box(20, 20, 80, 80), box(40, 40, 60, 60)},
     {{15, 51}, {42, 51}},
     {{30, 51}, {50, 51}},
     2},
    {"row of holes, last one first",
     {box(60, 40, 70, 60), box(40, 40, 50, 60), box(20, 40, 30, 60), box(10, 10, 90, 90)},
     {{15, 51}, {35, 51}, {55, 51}, {80, 51}},
     {{25, 51}, {45, 51}, {65, 51}},
     1},
    {"apart", {box(10, 10, 20, 20), box(50, 10, 60, 20)}, {{15, 15}, {55, 15}}, {{30, 15}}, 2},
    {"crossing", {box(10, 10, 60, 60), box(40, 40, 90, 90)}, {{20, 20}, {80, 80}}, {{50, 51}}, 1},
    {"crossing like a plus", {box(10, 40, 90, 60), box(40, 10, 60, 90)}, {{20, 51}, {50, 20}}, {{50, 51}}, 1},
    {"touching side by side", {box(10, 10, 50, 50), box(50, 10, 90, 50)}, {{20, 20}, {80, 20}}, {{50, 60}}, 1},
    {"hole on the left border", {box(10, 10, 90, 90), box(10, 40, 60, 60)}, {{20, 20}, {80, 51}}, {{20, 51}}, 1},
    {"hole on the right border", {box(10, 10, 90, 90), box(40, 40, 90, 60)}, {{20, 51}}, {{80, 51}}, 1},
    {"corner on a slanted border",
     {polygonLoop({{10, 10}, {90, 10}, {50, 70}}), polygonLoop({{30, 40}, {50, 20}, {50, 40}})},
     {{50, 60}, {20, 12}},
     {{45, 35}},
     1},
    {"text in the area", {box(10, 10, 90, 90), box(40, 40, 60, 60, true)}, {{20, 51}}, {{50, 51}}, 1},
    {"text in a hole",
     {box(10, 10, 90, 90), box(20, 20, 80, 80), box(40, 40, 60, 60, true)},
     {{15, 51}},
     {{30, 51}, {50, 51}},
     1},
    {"nothing of a loop", {box(10, 10, 90, 90), HatchLoop{}}, {{50, 50}}, {{5, 5}}, 1},
    {"far beyond the page", {box(-1e9, -1e9, 1e9, 1e9), box(40, 40, 60, 60)}, {{20, 51}, {99, 99}}, {{50, 50}}, 1},
};

TEST(SolidHatches, KeepTheirHoles) {
    for (const HoleCase& row : holeCases) {
        const auto shapes = shapesOfHatch(row.loops);
        EXPECT_EQ(shapes.size(), row.polygons) << row.name;
        for (const Vec2 p : row.covered) {
            EXPECT_TRUE(coversDrawingPoint(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
        for (const Vec2 p : row.bare) {
            EXPECT_FALSE(coversDrawingPoint(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
    }
}

TEST(SolidHatches, AgreeWithTheEvenOddRuleOnRandomLoops) {
    std::mt19937 random(20240501); // NOLINT: the same loops in every run
    const auto pick = [&](int last) {
        return static_cast<double>(random() % (static_cast<unsigned>(last) + 1));
    };
    for (int round = 0; round < 300; ++round) {
        std::vector<HatchLoop> loops;
        std::vector<Shape> expected; // each loop as an area of its own
        const size_t count = round % 10 == 9 ? 40 : 2 + random() % 6;
        for (size_t i = 0; i < count; ++i) {
            std::vector<Vec2> corners;
            for (int corner = 0; corner < 4; ++corner) {
                corners.push_back({pick(9) * 10.0 + 5.0, pick(9) * 10.0 + 5.0});
            }
            loops.push_back(polygonLoop(corners));
            expected.emplace_back();
            expected.back().kind = "area";
            for (const Vec2 corner : corners) {
                expected.back().points.push_back({10.0 * corner.x, 1000.0 - 10.0 * corner.y});
            }
        }
        const auto shapes = shapesOfHatch(loops);
        for (int probe = 0; probe < 40; ++probe) {
            const Vec2 p{pick(999) + 0.37, pick(999) + 0.59};
            bool odd = false;
            for (const Shape& loop : expected) {
                odd = odd != isCovered({loop}, p);
            }
            ASSERT_EQ(isCovered(shapes, p), odd) << "round " << round << " at " << p.x << ',' << p.y;
        }
    }
}

TEST(SolidHatches, BridgesRunThroughTheArea) {
    // An island in a hole: no edge of any polygon may cross the bare ring between the two.
    const auto shapes = shapesOfHatch({box(10, 10, 90, 90), box(20, 20, 80, 80), box(40, 40, 60, 60)});
    for (const Shape& shape : shapes) {
        for (size_t i = 0; i < shape.points.size(); ++i) {
            const Vec2 a = shape.points[i];
            const Vec2 b = shape.points[(i + 1) % shape.points.size()];
            const Vec2 middle = (a + b) * 0.5;
            const double ring = std::max(std::abs(middle.x - 500.0), std::abs(middle.y - 500.0));
            EXPECT_FALSE(ring > 101.0 && ring < 299.0) << middle.x << ',' << middle.y;
        }
    }
}

struct EdgeCase {
    const char* name;
    std::vector<HatchEdge> edges;
};

TEST(SolidHatches, EdgesOfAllKindsBoundTheSameHalfDisc) {
    Spline upper; // the half circle from (80, 50) over (50, 80) to (20, 50)
    upper.degree = 2;
    upper.knots = {0, 0, 0, 1, 1, 2, 2, 2};
    upper.controlPoints = {{80, 50, 0}, {80, 80, 0}, {50, 80, 0}, {20, 80, 0}, {20, 50, 0}};
    upper.weights = {1, std::sqrt(0.5), 1, std::sqrt(0.5), 1};
    const HatchLine base{{20, 50}, {80, 50}};
    const EdgeCase cases[] = {
        {"arc", {base, HatchArc{{50, 50}, 30, 0, pi, true}}},
        {"clockwise arc", {HatchLine{{80, 50}, {20, 50}}, HatchArc{{50, 50}, 30, 0, pi, false}}},
        {"ellipse", {base, HatchEllipse{{50, 50}, {30, 0}, 1.0, 0, pi, true}}},
        {"spline", {base, HatchSpline{upper}}},
        {"edge written backwards", {base, HatchLine{{20, 50}, {20, 51}}, HatchArc{{50, 50}, 30, 0, pi, true}}},
        {"first edge written backwards", {HatchLine{{80, 50}, {20, 50}}, HatchArc{{50, 50}, 30, 0, pi, true}}},
    };
    for (const EdgeCase& row : cases) {
        HatchLoop loop;
        loop.edges = row.edges;
        const auto shapes = shapesOfHatch({loop});
        for (double angle = 0.1; angle < pi; angle += 0.2) {
            const Vec2 outwards{std::cos(angle), std::sin(angle)};
            EXPECT_TRUE(coversDrawingPoint(shapes, Vec2{50, 50} + outwards * 29.9)) << row.name << ' ' << angle;
            EXPECT_FALSE(coversDrawingPoint(shapes, Vec2{50, 50} + outwards * 30.2)) << row.name << ' ' << angle;
        }
    }
}

struct StyleCase {
    const char* name;
    HatchStyle style;
    std::vector<HatchLoop> loops;
    std::vector<Vec2> covered; ///< drawing units
    std::vector<Vec2> bare;
};

TEST(SolidHatches, StyleTellsWhichLoopsCount) {
    const std::vector<HatchLoop> nested{box(40, 40, 60, 60), box(10, 10, 90, 90), box(25, 25, 75, 75)};
    const std::vector<HatchLoop> apart{box(10, 10, 40, 90), box(20, 20, 30, 80), box(50, 10, 90, 90)};
    const std::vector<HatchLoop> sharing{box(10, 10, 90, 90), box(10, 10, 50, 90), box(10, 10, 30, 90)};
    const std::vector<HatchLoop> withText{box(10, 10, 90, 90), box(20, 20, 60, 80), box(65, 20, 85, 80, true)};
    const StyleCase cases[] = {
        {"normal", HatchStyle::normal, nested, {{15, 51}, {50, 51}}, {{30, 51}}},
        {"outer", HatchStyle::outer, nested, {{15, 51}}, {{30, 51}, {50, 51}}},
        {"ignore", HatchStyle::ignore, nested, {{15, 51}, {30, 51}, {50, 51}}, {{5, 51}}},
        {"outer, apart", HatchStyle::outer, apart, {{15, 51}, {70, 51}}, {{25, 51}, {45, 51}}},
        {"ignore, apart", HatchStyle::ignore, apart, {{15, 51}, {25, 51}, {70, 51}}, {{45, 51}}},
        {"normal, on one border", HatchStyle::normal, sharing, {{20, 51}, {70, 51}}, {{40, 51}}},
        {"outer, on one border", HatchStyle::outer, sharing, {{70, 51}}, {{20, 51}, {40, 51}}},
        {"ignore, on one border", HatchStyle::ignore, sharing, {{20, 51}, {40, 51}, {70, 51}}, {}},
        {"outer, text", HatchStyle::outer, withText, {{15, 51}}, {{40, 51}, {75, 51}}},
        {"ignore, text", HatchStyle::ignore, withText, {{15, 51}, {40, 51}}, {{75, 51}}},
    };
    for (const StyleCase& row : cases) {
        Hatch hatch;
        hatch.solid = true;
        hatch.style = row.style;
        hatch.loops = row.loops;
        const auto shapes = shapesOf(entityOf(hatch));
        for (const Vec2 p : row.covered) {
            EXPECT_TRUE(coversDrawingPoint(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
        for (const Vec2 p : row.bare) {
            EXPECT_FALSE(coversDrawingPoint(shapes, p)) << row.name << ' ' << p.x << ',' << p.y;
        }
    }
}

TEST(SolidHatches, LieAtTheirElevation) {
    HatchLoop edges;
    edges.edges = {HatchLine{{10, -10}, {30, -10}}, HatchLine{{30, -10}, {30, -60}}, HatchLine{{30, -60}, {10, -60}}};
    for (const HatchLoop& loop : {box(10, -60, 30, -10), edges}) {
        Hatch hatch;
        hatch.solid = true;
        hatch.elevation = 50.0;
        hatch.loops = {loop};
        // The x axis of the tilted plane is the world's y axis; its y axis appears as -0.8 and its height as 0.6.
        const Entity tilted = entityOf(hatch, {0.6, 0.0, 0.8});
        const Box2 extents = visibleExtents(emptyDrawing(), {tilted});
        EXPECT_NEAR(extents.min.x, 0.8 * 10 + 30, 1e-9);
        EXPECT_NEAR(extents.max.x, 0.8 * 60 + 30, 1e-9);
        EXPECT_NEAR(extents.min.y, 10, 1e-9);
        EXPECT_NEAR(extents.max.y, 30, 1e-9);
        const auto shapes = shapesOf(tilted);
        EXPECT_TRUE(coversDrawingPoint(shapes, {39, 20}));
        EXPECT_TRUE(coversDrawingPoint(shapes, {77, 20}));
        EXPECT_FALSE(coversDrawingPoint(shapes, {37, 20}));
        EXPECT_FALSE(coversDrawingPoint(shapes, {79, 20}));
    }
}

struct CrowdCase {
    const char* name;
    size_t columns, rows;
    bool framed;
};

TEST(SolidHatches, ManyLoopsAreJoinedWhereverTheyLie) {
    const CrowdCase cases[] = {
        {"field", 300, 200, false},         {"row", 60000, 1, false},         {"column", 1, 60000, false},
        {"field of holes", 300, 200, true}, {"row of holes", 60000, 1, true}, {"column of holes", 1, 60000, true},
    };
    for (const CrowdCase& row : cases) {
        std::vector<AreaLoop> loops;
        const auto addBox = [&](double x0, double y0, double x1, double y1) {
            loops.push_back({{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, false});
        };
        for (size_t i = 0; i < row.columns * row.rows; ++i) {
            const auto x = static_cast<double>(3 * (i % row.columns));
            const auto y = static_cast<double>(3 * (i / row.columns));
            addBox(x, y, x + 2, y + 2);
        }
        if (row.framed) {
            addBox(-1, -1, static_cast<double>(3 * row.columns), static_cast<double>(3 * row.rows));
        }
        EXPECT_EQ(joinEvenOdd(loops).size(), row.framed ? 1U : row.columns * row.rows) << row.name;
    }
}

TEST(PatternHatches, AreNotFilled) {
    Hatch hatch;
    hatch.loops.push_back(box(10, 10, 90, 90));
    EXPECT_TRUE(shapesOf(entityOf(hatch)).empty());
}

} // namespace
} // namespace kelplot
