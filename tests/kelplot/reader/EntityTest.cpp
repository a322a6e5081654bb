// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"
#include "EntityText.h"

namespace kelplot {
namespace {

const std::string corners = " 10=0 20=0 11=4 21=0 12=1 22=3";
const std::string curve = "0=SPLINE 70=8 71=3 74=0 10=0 20=1 30=2 10=1 20=1 30=2 10=2 20=1 30=2 10=3 20=1 30=2 ";
const std::string knots = "40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 ";
const std::string controls = ", at 0,1,2 1,1,2 2,1,2 3,1,2";
const std::string clamped = "spline of 3, knots 0 0 0 0 1 1 1 1" + controls;

struct EntityCase {
    const char* name;
    std::string groups;
    std::string expected;
};

const EntityCase entityCases[] = {
    // In the world, whatever plane they name, or in their plane.
    {"point", "0=POINT 10=1 20=2 30=3 230=-1", "point 1,2,3"},
    {"line", "0=3DLINE 10=1 20=2 30=3 11=4 230=-1", "line 1,2,3 4,0,0"},
    {"ray", "0=RAY 10=1 20=2 30=3 11=0.6 21=0.8 230=-1", "ray from 1,2,3 along 0.6,0.8,0"},
    {"line without an end", "0=XLINE 10=1 11=1", "line through 1,0,0 along 1,0,0"},
    {"circle", "0=CIRCLE 10=1 20=2 40=5 230=-1", "circle 1,2,0 r 5 extruded 0,0,-1"},
    {"arc", "0=ARC 40=5 50=90 51=180", "arc 0,0,0 r 5 from 90 to 180"},
    {"ellipse", "0=ELLIPSE 10=1 11=0 21=4 40=0.5 230=-1",
     "ellipse 1,0,0 axis 0,4,0 ratio 0.5 from 0 to 360 extruded 0,0,-1"},
    {"bad numbers", "0=LINE 10=inf 20=x 11=1e400 21=7", "line 0,0,0 0,7,0"},
    {"bad extrusion", "0=CIRCLE 40=1 210=0 220=nan 230=0", "circle 0,0,0 r 1"},
    // Corners go about the area; a fourth that is missing is the third.
    {"solid", "0=SOLID 13=4 23=3 230=-1" + corners, "solid 0,0,0 4,0,0 4,3,0 1,3,0 extruded 0,0,-1"},
    {"trace of three", "0=TRACE" + corners, "solid 0,0,0 4,0,0 1,3,0 1,3,0"},
    {"face with hidden edges", "0=3DFACE 13=4 23=3 70=5 230=-1" + corners, "face 0,0,0 4,0,0 1,3,0 4,3,0 .#.#"},
    {"reference", "0=INSERT 2=B 10=1 20=2", "block 0 at 1,2,0 scaled 1,1,1 turned 0, 1x1 by 0,0"},
    {"array", "0=INSERT 2=B 41=-2 43=0.5 50=90 70=3 71=-4 44=10 45=20",
     "block 0 at 0,0,0 scaled -2,1,0.5 turned 90, 3x1 by 10,20"},
    // Splines are repaired so that they can be evaluated.
    {"spline", curve + knots + "41=1 41=2 41=2 41=1 230=-1",
     "spline of 3, knots 0 0 0 0 1 1 1 1, weights 1 2 2 1" + controls},
    {"no knots", curve, clamped},
    {"falling knots", curve + "40=0 40=0 40=0 40=0 40=1 40=0 40=1 40=1", clamped},
    {"knots without a span", curve + "40=1 40=1 40=1 40=1 40=1 40=1 40=1 40=1", clamped},
    {"negative weight", curve + knots + "41=1 41=-1 41=1", clamped},
    {"degree beyond reason", curve + knots + "71=2000000", clamped},
    {"too few points for the degree", curve + "71=5", clamped},
    {"linear", curve + "71=1", "spline of 1, knots 0 0 1 2 3 3" + controls},
    {"fit points instead", curve + "11=0 21=0 11=5 21=5", "spline of 3, through 0,0,0 5,5,0"},
};

TEST(Entities, AreRead) {
    for (const EntityCase& row : entityCases) {
        EXPECT_EQ(textOf(readOne(row.groups)), row.expected) << row.name;
    }
}

TEST(Entities, WithoutSizeAreDropped) {
    const char* const none =
        "0=CIRCLE 40=0 0=CIRCLE 40=-3 0=ARC 40=nan 51=90 0=ELLIPSE 40=1 0=LWPOLYLINE 90=0 0=HATCH 91=0";
    EXPECT_TRUE(readGroups(drawingOf(none)).modelSpace.empty());
}

TEST(Entities, DimensionsReferToTheirBlock) {
    for (const std::string type : {"0=DIMENSION", "0=ARC_DIMENSION", "0=LARGE_RADIAL_DIMENSION"}) {
        const Drawing drawing = readGroups(drawingOf(type + " 2=*D1 10=9 3=STYLE 70=33 230=-1"));
        ASSERT_EQ(drawing.modelSpace.size(), 1u) << type;
        EXPECT_EQ(textOf(drawing.modelSpace[0]), "block 0 at 0,0,0 scaled 1,1,1 turned 0, 1x1 by 0,0") << type;
        EXPECT_EQ(drawing.blocks.at(0).name, "*D1");
    }
    const Drawing without = readGroups(drawingOf("0=DIMENSION 10=9"));
    EXPECT_TRUE(without.modelSpace.empty());
    EXPECT_EQ(without.dimensionsWithoutBlock, 1U);
}

TEST(EntityAttributes, AreReadForEveryFamily) {
    using Kind = Colour::Kind;
    constexpr LineWeight byLayer = lineWeightByLayer;
    const struct {
        const char* name;
        std::string text;
        Colour colour;
        LineWeight weight;
        double lineTypeScale;
        bool visible;
        Opacity opacity = opacityByLayer;
    } rows[] = {
        {"none", "", {Kind::byLayer, 0}, byLayer, 1, true},
        {"by block", " 62=0 370=-2", {Kind::byBlock, 0}, lineWeightByBlock, 1, true},
        {"by layer", " 62=256 370=-1", {Kind::byLayer, 0}, byLayer, 1, true},
        {"numbers", " 62=3 370=50 48=2.5", {Kind::index, 3}, 50, 2.5, true},
        {"true colour wins", " 420=1193046 62=3", {Kind::trueColour, 0x123456}, byLayer, 1, true},
        {"invisible", " 60=1", {Kind::byLayer, 0}, byLayer, 1, false},
        {"thickness is no weight", " 39=30", {Kind::byLayer, 0}, byLayer, 1, true},
        {"standard weight", " 370=-3", {Kind::byLayer, 0}, lineWeightDefault, 1, true},
        {"numbers out of range", " 62=999 370=99999 48=-1", {Kind::byLayer, 0}, 211, 1, true},
        {"weight below the marks", " 370=-9", {Kind::byLayer, 0}, byLayer, 1, true},
        {"opacity by layer", " 440=0", {Kind::byLayer, 0}, byLayer, 1, true},
        {"opacity by block", " 440=16777216", {Kind::byLayer, 0}, byLayer, 1, true, opacityByBlock},
        {"own opacity", " 440=33554534", {Kind::byLayer, 0}, byLayer, 1, true, 102},
        {"own opacity of nothing", " 440=33554432", {Kind::byLayer, 0}, byLayer, 1, true, 0},
        {"opacity of an unknown kind", " 440=50331750", {Kind::byLayer, 0}, byLayer, 1, true},
        {"negative opacity", " 440=-1", {Kind::byLayer, 0}, byLayer, 1, true},
    };
    for (const auto& row : rows) {
        // One that the DXF library reads, and one that is read from its groups.
        for (const char* const entity : {"0=LINE 11=1", "0=LWPOLYLINE 10=1 20=1"}) {
            const Attributes attributes = readOne(entity + row.text).attributes;
            EXPECT_EQ(attributes.colour.kind, row.colour.kind) << row.name;
            EXPECT_EQ(attributes.colour.value, row.colour.value) << row.name;
            EXPECT_EQ(attributes.lineWeight, row.weight) << row.name;
            EXPECT_EQ(attributes.lineTypeScale, row.lineTypeScale) << row.name;
            EXPECT_EQ(attributes.visible, row.visible) << row.name;
            EXPECT_EQ(attributes.opacity, row.opacity) << row.name;
        }
    }
}

} // namespace
} // namespace kelplot
