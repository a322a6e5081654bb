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
