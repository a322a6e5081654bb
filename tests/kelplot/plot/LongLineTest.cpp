// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"
#include "plot/pen/LineCutter.h"

namespace kelplot {
namespace {

/// The page of the kit, of which only the drawing units from (40, 40) to (60, 60) show.
PlotTarget windowTarget() {
    PlotTarget target = tenfoldTarget();
    target.limits = {{{400, 400}, {600, 600}}};
    return target;
}

/// A polyline of `count` points at `at(t)`, t going from 0 to 1.
template <typename Curve>
Drawing lineThrough(int count, const Curve& at, const std::string& attributes = "") {
    std::string groups = "0=LWPOLYLINE 370=100" + attributes;
    for (int i = 0; i < count; ++i) {
        const Vec2 p = at(static_cast<double>(i) / count);
        groups += group(10, p.x) + group(20, p.y);
    }
    return readGroups(section("TABLES", "0=LTYPE 2=D 49=5 49=-3") + drawingOf(groups));
}

/// Winds across the whole page, some of it in the window.
Vec2 winding(double t) {
    return {100.0 * t, 50.0 + 45.0 * std::sin(t * 40.0)};
}

class LongLines : public ::testing::Test {
protected:
    LongLines() { EXPECT_TRUE(LineCutter({{0, 0}, {1, 1}}).isAvailable()) << "no module to cut them with"; }

    const PlotTarget target = windowTarget();
};

TEST_F(LongLines, AreCutWhereTheirInkNoLongerShows) {
    const auto isNear = [&](Vec2 p, double margin) {
        return target.visibleBox().inflated(margin).contains(Box2{p, p});
    };
    for (const bool mitred : {false, true}) {
        const Drawing line = lineThrough(2000, winding, mitred ? " 43=1" : "");
        // Ten device units wide: round ends reach half of that from the line, a mitre six times as much.
        const double reach = mitred ? 60.0 : 5.0;
        const auto pieces = shapesOf(line, target);
        const auto whole = shapesOf(line);
        EXPECT_GT(pieces.size(), 1U) << "it comes in and goes out more than once";
        // Nothing that shows is lost, and nothing appears: the line and its pieces lie on one another.
        const std::vector<Vec2> points = whole.at(0).points();
        for (size_t i = 0; i + 1 < points.size(); ++i) {
            const Vec2 middle = (points[i] + points[i + 1]) * 0.5;
            EXPECT_TRUE(!isNear(middle, reach) || distanceToLines(middle, pieces) < 1.5) << middle.x << ',' << middle.y;
        }
        for (const Shape& piece : pieces) {
            for (const Vec2 p : piece.points()) {
                EXPECT_LT(distanceToLines(p, whole), 1.5) << p.x << ',' << p.y;
                EXPECT_TRUE(isNear(p, reach + 6.0)) << p.x << ',' << p.y;
            }
            for (const Vec2 p : {piece.points().front(), piece.points().back()}) {
                EXPECT_FALSE(isNear(p, reach + 1.0)) << p.x << ',' << p.y;
            }
        }
    }
}

TEST_F(LongLines, LeaveNothingWhereTheyPassTheWindowBy) {
    const auto aroundTheWindow = [](double t) {
        return Vec2{50.0 + 40.0 * std::cos(t * 6.25), 50.0 + 40.0 * std::sin(t * 6.25)};
    };
    EXPECT_TRUE(shapesOf(lineThrough(500, aroundTheWindow), target).empty());
}

TEST_F(LongLines, HaveTheirDashesInTheSamePlacesWhateverPartShows) {
    // Dashes of 50 and gaps of 30 units on a line of 250 periods that begins far to the left of the page.
    const auto across = [](double t) {
        return Vec2{-1000.0 + 4000.0 * t, 50.0};
    };
    const Drawing line = lineThrough(2, across, " 6=D");
    const QImage page = paintedPage(line);
    const QImage window = paintedPage(line, target);
    const auto isInk = [](const QImage& image, int x) {
        return qGray(image.pixel(x, 500)) < 128;
    };
    for (int x = 402; x < 598; ++x) {
        const int inPeriod = (x + 10000 + 25) % 80; // the line begins in the middle of a dash
        EXPECT_EQ(isInk(page, x), inPeriod < 50) << x;
        EXPECT_EQ(isInk(window, x), inPeriod < 50) << x;
    }
}

} // namespace
} // namespace kelplot
