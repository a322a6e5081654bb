// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

TEST(WidePolylines, NoSeamShowsBetweenPieces) {
    const struct {
        const char* name;
        const char* groups;
        Vec2 seam; ///< device units
    } cases[] = {
        {"straight", "10=10 20=50 40=10 41=8 10=50 20=50 40=8 41=4 10=90 20=50", {500, 500}},
        {"arc", "10=20 20=50 40=4 41=8 10=50 20=50 42=1 40=8 41=4 10=50 20=90", {500, 500}},
        {"arcs", "10=20 20=50 42=1 40=4 41=8 10=80 20=50 42=1 40=8 41=4 10=20 20=50", {800, 500}},
        {"end of a closed one",
         "70=1 10=50 20=50 40=8 41=6 10=90 20=50 40=6 41=6 10=50 20=90 40=6 41=6 10=10 20=50 40=6 41=8",
         {500, 500}},
    };
    PlotTarget target = tenfoldTarget();
    target.hairlineWidth = 16.0;
    for (const auto& row : cases) {
        // A dot of the device that lies anywhere on the seam must lie in one piece as a whole.
        const auto shapes = shapesOf(withEntities("0=LWPOLYLINE " + std::string(row.groups)), target);
        const QRectF dot(row.seam.x - 15, row.seam.y - 15, 30, 30);
        EXPECT_TRUE(std::any_of(shapes.begin(), shapes.end(), [&](const Shape& shape) {
            return shape.kind == "area" && shape.path.contains(dot);
        })) << row.name;
    }
}

TEST(WidePolylines, TaperedOnesHaveWholeCorners) {
    for (const double side : {1.0, -1.0}) { // turning left, turning right
        const auto shapes = shapesOf(
            withEntities("0=LWPOLYLINE 10=10 20=50 41=6 10=50 20=50 40=6 41=0 10=50" + group(20, 50 + side * 40)));
        // The mitre runs from 3 inside the corner to 3 outside in both directions.
        for (int tenth = -27; tenth <= 27; ++tenth) {
            const double along = tenth / 10.0;
            for (const double across : {-0.3, -0.1, 0.01, 0.1, 0.3}) {
                const Vec2 p{50.0 - along + across, 50.0 + side * (along + across)};
                const bool inside = p.x < 52.7 && (p.y - 50.0) * side > -2.7;
                EXPECT_TRUE(!inside || isCovered(shapes, onPage(p))) << side << ' ' << p.x << ',' << p.y;
            }
        }
        EXPECT_TRUE(isCovered(shapes, {490, 500 - side * 25}));
        EXPECT_FALSE(isCovered(shapes, {535, 500 + side * 35}));
        EXPECT_FALSE(isCovered(shapes, {460, 500 - side * 40}));
    }
}

TEST(WidePolylines, AreRoundAtTheirOuterBorder) {
    const auto points =
        shapesOf(withEntities("0=LWPOLYLINE 70=1 43=18 10=40 20=50 42=1 10=60 20=50 42=1")).at(0).points();
    ASSERT_GT(points.size(), 8U);
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        const double halfAngle = std::asin(std::min(1.0, (points[i + 1] - points[i]).length() / 200.0));
        EXPECT_LT(190.0 * (1.0 - std::cos(halfAngle)), 0.2);
    }
}

} // namespace
} // namespace kelplot
