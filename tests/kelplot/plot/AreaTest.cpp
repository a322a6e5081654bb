// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "geometry/EvenOddJoin.h"
#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

constexpr double pi = 3.141592653589793;
using Shape = RecordingRenderer::Shape;

HatchLoop polygonLoop(const std::vector<Vec2>& corners) {
    HatchLoop loop;
    for (const Vec2 corner : corners) {
        loop.polyline.push_back({{corner.x, corner.y, 0.0}});
    }
    return loop;
}

HatchLoop box(double x0, double y0, double x1, double y1) {
    return polygonLoop({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

HatchLoop textBox(double x0, double y0, double x1, double y1) {
    HatchLoop loop = box(x0, y0, x1, y1);
    loop.textBox = true;
    return loop;
}

Vec2 onPage(Vec2 p) {
    return {10.0 * p.x, 1000.0 - 10.0 * p.y};
}

TEST(SolidHatches, CoverTheLoopsThatCount) {
    const auto normal = HatchStyle::normal, outer = HatchStyle::outer, ignore = HatchStyle::ignore;
    const HatchLoop frame = box(10, 10, 90, 90);
    const std::vector<HatchLoop> nested{box(40, 40, 60, 60), frame, box(25, 25, 75, 75)};
    const std::vector<HatchLoop> apart{box(10, 10, 40, 90), box(20, 20, 30, 80), box(50, 10, 90, 90)};
    const std::vector<HatchLoop> sharing{frame, box(10, 10, 50, 90), box(10, 10, 30, 90)};
    const std::vector<HatchLoop> withText{frame, box(20, 20, 60, 80), textBox(65, 20, 85, 80)};
    const std::vector<HatchLoop> far{box(-1e9, -1e9, 1e9, 1e9), box(40, 40, 60, 60)};
    const struct {
        const char* name;
        HatchStyle style;
        std::vector<HatchLoop> loops;
        std::vector<Vec2> covered; ///< drawing units
        std::vector<Vec2> bare;
    } rows[] = {
        {"normal", normal, nested, {{15, 51}, {50, 51}}, {{30, 51}}},
        {"outer", outer, nested, {{15, 51}}, {{30, 51}, {50, 51}}},
        {"ignore", ignore, nested, {{15, 51}, {30, 51}, {50, 51}}, {{5, 51}}},
        {"outer, apart", outer, apart, {{15, 51}, {70, 51}}, {{25, 51}, {45, 51}}},
        {"ignore, apart", ignore, apart, {{15, 51}, {25, 51}, {70, 51}}, {{45, 51}}},
        {"outer, on one border", outer, sharing, {{70, 51}}, {{20, 51}, {40, 51}}},
        {"ignore, on one border", ignore, sharing, {{20, 51}, {40, 51}, {70, 51}}, {}},
        {"normal, text", normal, withText, {{15, 51}}, {{40, 51}, {75, 51}}},
        {"outer, text", outer, withText, {{15, 51}}, {{40, 51}, {75, 51}}},
        {"ignore, text", ignore, withText, {{15, 51}, {40, 51}}, {{75, 51}}},
        {"text in a hole", normal, {frame, box(20, 20, 80, 80), textBox(40, 40, 60, 60)}, {{15, 51}}, {{50, 51}}},
        {"nothing of a loop", normal, {frame, HatchLoop{}}, {{50, 50}}, {{5, 5}}},
        {"far beyond the page", normal, far, {{20, 51}, {99, 99}}, {{50, 50}}},
    };
    for (const auto& row : rows) {
        const auto shapes = shapesOf(entityOf(solidHatch(row.loops, row.style)));
        for (const Vec2 p : row.covered) {
            EXPECT_TRUE(isCovered(shapes, onPage(p))) << row.name << ' ' << p.x << ',' << p.y;
        }
        for (const Vec2 p : row.bare) {
            EXPECT_FALSE(isCovered(shapes, onPage(p))) << row.name << ' ' << p.x << ',' << p.y;
        }
    }
}

/// Random loops, and what they cover by themselves.
class RandomLoops {
public:
    RandomLoops(std::mt19937& random, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            std::vector<Vec2> corners(5);
            for (Vec2& corner : corners) {
                corner = {5.0 * static_cast<double>(random() % 21), 5.0 * static_cast<double>(random() % 21)};
            }
            loops.push_back(polygonLoop(corners));
            areas.emplace_back();
            areas.back().kind = "area";
            corners.push_back(corners.front());
            std::transform(corners.begin(), corners.end(), std::back_inserter(areas.back().points), onPage);
        }
    }

    bool cover(Vec2 p) const {
        bool odd = false;
        for (const Shape& area : areas) {
            odd = odd != isCovered({area}, p);
        }
        return odd;
    }
    bool haveEdgeNear(Vec2 p) const { return distanceToLines(p, areas) < 1.0; }

    std::vector<HatchLoop> loops;

private:
    std::vector<Shape> areas;
};

TEST(SolidHatches, AgreeWithTheEvenOddRuleOnRandomLoopsWholeAndInAWindow) {
    PlotTarget window = tenfoldTarget();
    window.limits.push_back(Box2{{400, 400}, {600, 600}});
    std::mt19937 random(20240501); // NOLINT: the same loops in every run
    for (int round = 0; round < 300; ++round) {
        const RandomLoops given(random, round % 10 == 9 ? 40 : 1 + random() % 7);
        const Drawing drawing = drawingOf(entityOf(solidHatch(given.loops)));
        const auto whole = shapesOf(drawing);
        const auto part = shapesOf(drawing, window);
        for (int probe = 0; probe < 40; ++probe) {
            const Vec2 p{static_cast<double>(random() % 1000) + 0.37, static_cast<double>(random() % 1000) + 0.59};
            ASSERT_EQ(isCovered(whole, p), given.cover(p)) << "round " << round << " at " << p.x << ',' << p.y;
            const Vec2 shown = p * 0.2 + Vec2{400, 400};
            if (!given.haveEdgeNear(shown)) {
                ASSERT_EQ(isCovered(part, shown), given.cover(shown)) << round << ' ' << shown.x << ',' << shown.y;
            }
        }
    }
}

TEST(SolidHatches, BridgesRunThroughTheArea) {
    // An island in a hole: no edge of any polygon may cross the bare ring between the two.
    const auto shapes = shapesOf(entityOf(solidHatch({box(10, 10, 90, 90), box(20, 20, 80, 80), box(40, 40, 60, 60)})));
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

TEST(SolidHatches, EdgesOfAllKindsBoundTheSameHalfDisc) {
    Spline upper; // the half circle from (80, 50) over (50, 80) to (20, 50)
    upper.degree = 2;
    upper.knots = {0, 0, 0, 1, 1, 2, 2, 2};
    upper.controlPoints = {{80, 50, 0}, {80, 80, 0}, {50, 80, 0}, {20, 80, 0}, {20, 50, 0}};
    upper.weights = {1, std::sqrt(0.5), 1, std::sqrt(0.5), 1};
    const HatchLine base{{20, 50}, {80, 50}};
    const std::pair<const char*, std::vector<HatchEdge>> cases[] = {
        {"arc", {base, HatchArc{{50, 50}, 30, 0, pi, true}}},
        {"clockwise arc", {HatchLine{{80, 50}, {20, 50}}, HatchArc{{50, 50}, 30, 0, pi, false}}},
        {"ellipse", {base, HatchEllipse{{50, 50}, {30, 0}, 1.0, 0, pi, true}}},
        {"spline", {base, HatchSpline{upper}}},
        {"edge written backwards", {base, HatchLine{{20, 50}, {20, 51}}, HatchArc{{50, 50}, 30, 0, pi, true}}},
        {"first edge written backwards", {HatchLine{{80, 50}, {20, 50}}, HatchArc{{50, 50}, 30, 0, pi, true}}},
    };
    for (const auto& [name, edges] : cases) {
        HatchLoop loop;
        loop.edges = edges;
        const auto shapes = shapesOf(entityOf(solidHatch({loop})));
        for (int probe = 0; probe < 16; ++probe) {
            const double angle = 0.1 + 0.2 * probe;
            const Vec2 outwards{std::cos(angle), std::sin(angle)};
            EXPECT_TRUE(isCovered(shapes, onPage(Vec2{50, 50} + outwards * 29.9))) << name << ' ' << angle;
            EXPECT_FALSE(isCovered(shapes, onPage(Vec2{50, 50} + outwards * 30.2))) << name << ' ' << angle;
        }
    }
}

TEST(SolidHatches, LieAtTheirElevation) {
    HatchLoop edges;
    edges.edges = {HatchLine{{10, -10}, {30, -10}}, HatchLine{{30, -10}, {30, -60}}, HatchLine{{30, -60}, {10, -60}}};
    for (const HatchLoop& loop : {box(10, -60, 30, -10), edges}) {
        Hatch hatch = solidHatch({loop});
        hatch.elevation = 50.0;
        // The x axis of the tilted plane is the world's y axis; its y axis appears as -0.8 and its height as 0.6.
        const Entity tilted = entityOf(hatch, {0.6, 0.0, 0.8});
        const Box2 extents = visibleExtents(emptyDrawing(), {tilted});
        EXPECT_NEAR(extents.min.x, 0.8 * 10 + 30, 1e-9);
        EXPECT_NEAR(extents.max.x, 0.8 * 60 + 30, 1e-9);
        EXPECT_NEAR(extents.min.y, 10, 1e-9);
        EXPECT_NEAR(extents.max.y, 30, 1e-9);
        const auto shapes = shapesOf(tilted);
        EXPECT_TRUE(isCovered(shapes, onPage({39, 20})));
        EXPECT_TRUE(isCovered(shapes, onPage({77, 20})));
        EXPECT_FALSE(isCovered(shapes, onPage({37, 20})));
        EXPECT_FALSE(isCovered(shapes, onPage({79, 20})));
    }
}

TEST(SolidHatches, ManyLoopsAreJoinedWhereverTheyLie) {
    const struct {
        const char* name;
        size_t columns, rows;
        bool framed;
    } cases[] = {
        {"field", 300, 200, false},         {"row", 60000, 1, false},         {"column", 1, 60000, false},
        {"field of holes", 300, 200, true}, {"row of holes", 60000, 1, true}, {"column of holes", 1, 60000, true},
    };
    for (const auto& row : cases) {
        std::vector<AreaLoop> loops;
        const auto addBox = [&](double x0, double y0, double x1, double y1) {
            loops.push_back({{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, false});
        };
        for (size_t i = 0; i < row.columns * row.rows; ++i) {
            const size_t column = i % row.columns;
            const size_t line = i / row.columns;
            const auto x = static_cast<double>(3 * column);
            const auto y = static_cast<double>(3 * line);
            addBox(x, y, x + 2, y + 2);
        }
        if (row.framed) {
            addBox(-1, -1, static_cast<double>(3 * row.columns), static_cast<double>(3 * row.rows));
        }
        EXPECT_EQ(joinEvenOdd(loops).size(), row.framed ? 1U : row.columns * row.rows) << row.name;
    }
}

} // namespace
} // namespace kelplot
