// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "geometry/Crossings.h"
#include "geometry/EvenOddJoin.h"
#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

/// The groups of a solid hatch of such loops.
std::string hatchOf(const std::vector<std::vector<Vec2>>& loops) {
    std::string groups = "0=HATCH 70=1 91=" + std::to_string(loops.size());
    for (const std::vector<Vec2>& loop : loops) {
        groups += " 92=2 72=0 93=" + std::to_string(loop.size());
        for (const Vec2 corner : loop) {
            groups += group(10, corner.x) + group(20, corner.y);
        }
    }
    return groups;
}

/// Random loops, and what they cover by themselves.
class RandomLoops {
public:
    RandomLoops(std::mt19937& random, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            // Large ones cross nearly all others, small ones may lie within the area or a hole of another.
            const double step = std::array{0.5, 1.0, 2.5, 5.0}[random() % 4];
            const auto upTo = [&](double most) {
                return std::floor(static_cast<double>(random() % 1000) / 1000.0 * (most + 1.0));
            };
            const Vec2 first{upTo(100.0 - 20.0 * step), upTo(100.0 - 20.0 * step)};
            std::vector<Vec2>& corners = loops.emplace_back(5);
            for (Vec2& corner : corners) {
                corner = first + Vec2{upTo(20.0), upTo(20.0)} * step;
            }
            QPolygonF polygon;
            for (size_t j = 0; j <= corners.size(); ++j) {
                const Vec2 p = onPage(corners[j % corners.size()]);
                polygon << QPointF(p.x, p.y);
            }
            m_area.path.addPolygon(polygon);
        }
    }

    bool cover(Vec2 p) const { return isCovered({m_area}, p); }
    bool haveEdgeNear(Vec2 p) const { return distanceToLines(p, {m_area}) < 1.0; }

    std::vector<std::vector<Vec2>> loops;

private:
    Shape m_area{"area", "", {}, {}}; // even-odd, as every new path
};

TEST(SolidHatches, AgreeWithTheEvenOddRuleOnRandomLoopsWholeAndInAWindow) {
    PlotTarget window = tenfoldTarget();
    window.limits.push_back(Box2{{400, 400}, {600, 600}});
    std::mt19937 random(20240501); // NOLINT: the same loops in every run
    for (int round = 0; round < 300; ++round) {
        const RandomLoops given(random, round % 10 == 9 ? 40 : 1 + random() % 7);
        const Drawing drawing = withEntities(hatchOf(given.loops));
        const auto whole = shapesOf(drawing);
        const auto part = shapesOf(drawing, window);
        for (int probe = 0; probe < 40; ++probe) {
            const std::vector<Vec2>& loop = given.loops[random() % given.loops.size()];
            const auto corner = [&] {
                return onPage(loop[random() % 5]);
            };
            const Vec2 p = (corner() + corner() + corner()) * (1 / 3.0) + Vec2{0.37, 0.59};
            const bool isCertain = !given.haveEdgeNear(p); // the renderer rounds the ends of bridges
            ASSERT_TRUE(!isCertain || isCovered(whole, p) == given.cover(p)) << round << ' ' << p.x << ',' << p.y;
            const Vec2 shown = p * 0.2 + Vec2{400, 400};
            if (!given.haveEdgeNear(shown)) {
                ASSERT_EQ(isCovered(part, shown), given.cover(shown)) << round << ' ' << shown.x << ',' << shown.y;
            }
        }
        for (const Shape& shape : part) {
            const QRectF box = shape.path.boundingRect().adjusted(-1, -1, 1, 1);
            ASSERT_TRUE(QRectF(390, 390, 220, 220).contains(box)) << round << ": " << shape.text();
        }
    }
}

TEST(SolidHatches, ManyLoopsAreJoinedWhereverTheyLie) {
    const struct { size_t columns, rows; } fields[] = {{300, 200}, {60000, 1}, {1, 60000}};
    for (const auto& field : fields) {
        std::vector<AreaLoop> loops;
        const auto addBox = [&](double x0, double y0, double x1, double y1) {
            loops.push_back({{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, false});
        };
        for (size_t i = 0; i < field.columns * field.rows; ++i) {
            const Vec2 corner = Vec2{double(i % field.columns), std::floor(double(i) / double(field.columns))} * 3.0;
            addBox(corner.x, corner.y, corner.x + 2, corner.y + 2);
        }
        EXPECT_EQ(joinEvenOdd(loops).size(), loops.size()) << field.columns;
        addBox(-1, -1, static_cast<double>(3 * field.columns), static_cast<double>(3 * field.rows));
        EXPECT_EQ(joinEvenOdd(loops).size(), 1U) << field.columns << ", holes of a frame";
    }
}

/// The corners of a star that takes `step` of so many points on a circle in one stride.
std::vector<Vec2> starOf(int points, int step) {
    std::vector<Vec2> corners;
    for (int i = 0; i < points; ++i) {
        const double angle = 6.283185307179586 * i * step / points;
        corners.push_back({std::cos(angle), std::sin(angle)});
    }
    return corners;
}

TEST(Borders, CrossThemselvesInSoManyPlaces) {
    const std::vector<Vec2> teeth{{0, 0}, {4, 0}, {4, 4}, {3, 0}, {2, 4}, {1, 0}, {0, 4}}; // they touch the lower side
    const struct {
        std::vector<Vec2> corners;
        size_t crossings;
    } rows[] = {
        {{}, 0},
        {starOf(4, 1), 0},
        {teeth, 0},
        {{{0, 0}, {2, 2}, {2, 0}, {0, 2}}, 1},
        {starOf(7, 3), 14},
        {starOf(11, 5), 44},
        {starOf(20000, 1), 0}, // each point of a star has step - 1 crossings
    };
    for (const auto& row : rows) {
        EXPECT_EQ(crossingsIn(row.corners), row.crossings) << row.corners.size();
    }
    EXPECT_GT(crossingsIn(starOf(13, 6)), mostCrossings);
    EXPECT_GT(crossingsIn({{0, 0}, {1, std::nan("")}, {1, 1}}), mostCrossings);
}

} // namespace
} // namespace kelplot
