// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"
#include "EntityText.h"

namespace kelplot {
namespace {

const std::string head = "0=HATCH 10=0 20=0 30=6 2=SOLID 70=1 71=1 91=1 ";
/// What follows the boundaries, with codes that mean other things before.
const std::string tail = " 97=1 330=3F 75=0 76=1 78=1 53=45 43=1 44=2 45=3 46=4 79=0 98=1 10=99 20=99";
const std::string polyline = " 72=1 73=1 93=2 10=1 20=2 42=1 10=3 20=2";
const std::string arc = " 72=2 10=5 20=1 40=2 50=10 51=100";
const std::string ellipse = " 72=3 10=1 20=1 11=4 21=0 40=0.5";
const std::string spline = " 72=4 94=1 73=1 74=0 95=4 96=2 40=0 40=0 40=1 40=1 10=1 20=2 42=1 10=3 20=4 42=2 97=0";

TEST(Hatches, AreRead) {
    const struct {
        const char* name;
        std::string groups;
        const char* expected;
    } rows[] = {
        {"polylines keep bulges and flags", head + "92=18" + polyline + " 92=10" + polyline + tail,
         "solid normal hatch at 6 \nloop: 1,2,0^1 3,2,0 \ntext box: 1,2,0^1 3,2,0"},
        // Clockwise angles are mirrored at the x axis.
        {"lines and arcs follow one another",
         head + "92=1 93=3 72=1 10=0 20=0 11=4 21=0" + arc + " 73=1" + arc + " 73=0" + tail,
         "solid normal hatch at 6 \nloop: line 0,0 4,0 arc 5,1 r 2 from 10 to 100"
         " arc 5,1 r 2 from 260 to 350 clockwise"},
        // The point seen at 45 degrees from the centre of an ellipse half as high as wide has the tangent 2.
        {"angles of ellipses become eccentric",
         head + "92=1 93=2" + ellipse + " 50=45 51=405 73=1" + ellipse + " 50=0 51=90 73=0" + tail,
         "solid normal hatch at 6 \nloop: ellipse 1,1 axis 4,0 ratio 0.5 from 63.4349488 to 423.434949"
         " ellipse 1,1 axis 4,0 ratio 0.5 from 270 to 360 clockwise"},
        {"a spline ends where the next edge begins", head + "92=1 93=2" + spline + " 72=1 10=3 20=4 11=1 21=2" + tail,
         "solid normal hatch at 6 \nloop: spline of 1, knots 0 0 1 1, weights 1 2, at 1,2,0 3,4,0 line 3,4 1,2"},
        {"outer", head + "92=2" + polyline + " 97=0 75=1", "solid outer hatch at 6 \nloop: 1,2,0^1 3,2,0"},
        {"ignore", head + "92=2" + polyline + " 97=0 75=2", "solid ignore hatch at 6 \nloop: 1,2,0^1 3,2,0"},
        {"unknown style", head + "92=2" + polyline + " 97=0 75=7", "solid normal hatch at 6 \nloop: 1,2,0^1 3,2,0"},
        {"pattern, from below", "0=HATCH 230=-1 70=0 91=1 92=2" + polyline + tail,
         "pattern normal hatch at 0 \nloop: 1,2,0^1 3,2,0 extruded 0,0,-1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(textOf(readOne(row.groups)), row.expected) << row.name;
    }
}

} // namespace
} // namespace kelplot
