// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <sstream>

#include "DrawingText.h"

namespace kelplot {
namespace {

std::string vertex(const std::string& x, const std::string& y, const std::string& more = "") {
    return " 0=VERTEX 30=9 10=" + x + " 20=" + y + more;
}

const std::string corners = " 10=0 20=0 11=4 21=0 12=1 22=3";
const std::string curve = "0=SPLINE 70=8 71=3 74=0 10=0 20=1 30=2 10=1 20=1 30=2 10=2 20=1 30=2 10=3 20=1 30=2 ";
const std::string knots = "40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 ";
const std::string controls = ", at 0,1,2 1,1,2 2,1,2 3,1,2";
const std::string clamped = "spline of 3, knots 0 0 0 0 1 1 1 1" + controls;

const std::string flatPolyline = "0=LWPOLYLINE 90=3 70=129 38=7 43=2 10=1 20=2 42=0.5";
const std::string oldPolyline = "0=POLYLINE 62=5 70=1 30=4 40=1 41=2" + vertex("0", "0", " 42=1 62=1");
const std::string fittedPolyline = "0=POLYLINE 70=4" + vertex("0", "9", " 70=16") + vertex("1", "0", " 70=8");
const std::string spatialPolyline = "0=POLYLINE 70=8 40=1 30=4" + vertex("1", "2", " 70=32 42=1");
const std::string meshRow = vertex("0", "0", " 70=64") + vertex("1", "0", " 70=64") + vertex("2", "0", " 70=64");
const std::string mesh = meshRow + vertex("0", "1", " 70=64") + vertex("1", "1", " 70=64") + vertex("2", "1", " 70=64");
const std::string corner = " 70=192";
const std::string polyface =
    "0=POLYLINE 70=64" + vertex("0", "0", corner) + vertex("4", "0", corner) + vertex("4", "4", corner);

const std::string head = "0=HATCH 10=0 20=0 30=6 2=SOLID 70=1 71=1 91=1 ";
/// What follows the boundaries, with codes that mean other things before.
const std::string tail = " 97=1 330=3F 75=0 76=1 78=1 53=45 43=1 44=2 45=3 46=4 79=0 98=1 10=99 20=99";
const std::string loop = " 72=1 73=1 93=2 10=1 20=2 42=1 10=3 20=2";
const std::string hatchArc = " 72=2 10=5 20=1 40=2 50=10 51=100";
const std::string hatchEllipse = " 72=3 10=1 20=1 11=4 21=0 40=0.5";
const std::string hatchSpline = " 72=4 94=1 73=1 74=0 95=4 96=2 40=0 40=0 40=1 40=1 10=1 20=2 42=1 10=3 20=4 42=2 97=0";

const std::string leaderTables = section(
    "TABLES", "0=DIMSTYLE 2=Plain 40=2 41=3 77=1 0=DIMSTYLE 2=Open 41=2 341=1F 0=DIMSTYLE 2=Tick 40=0 41=2 341=2F"
              " 0=BLOCK_RECORD 5=1f 2=_Open30 0=BLOCK_RECORD 5=2F 2=_OBLIQUE");
const std::string leaderPath = " 10=0 20=0 30=0 10=20 20=0 30=0";
const std::string hook = leaderPath + " 10=20 20=5 30=0 41=10";
struct EntityCase {
    const char* name;
    std::string groups;
    std::string expected;
};

void expectEntities(const EntityCase& row, const std::string& before = "") {
    std::string shown;
    for (const Entity& entity : readGroups(before + drawingOf(row.groups)).modelSpace) {
        shown += (shown.empty() ? "" : " + ") + textOf(entity);
    }
    EXPECT_EQ(shown, row.expected) << row.name;
}

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
    {"weight of zero", curve + knots + "41=1 41=0 41=1 41=1", clamped},
    {"too few weights", curve + knots + "41=1 41=2", clamped},
    {"degree below zero", curve + knots + "71=-1", clamped},
    {"degree beyond reason", curve + knots + "71=2000000", clamped},
    {"too few points for the degree", curve + "71=5", clamped},
    {"linear", curve + "71=1", "spline of 1, knots 0 0 1 2 3 3" + controls},
    {"fit points instead", curve + "11=0 21=0 11=5 21=5", "spline of 3, through 0,0,0 5,5,0"},
    // The count, too small and none at all; what the polyline before had does not come back.
    {"the vertices that come", "0=LWPOLYLINE 90=1 70=1 10=1 20=1 10=2 20=2 0=LWPOLYLINE 10=3 20=3",
     "closed polyline 1,1,0 2,2,0 + polyline 3,3,0"},
    {"without size", "0=CIRCLE 40=0 0=CIRCLE 40=-3 0=ARC 40=nan 51=90 0=ELLIPSE 40=1 0=LWPOLYLINE 90=0 0=HATCH 91=0",
     ""},
    {"dimension", "0=DIMENSION 2=*D1 10=9 3=STYLE 70=33 230=-1", "block 0 at 0,0,0 scaled 1,1,1 turned 0, 1x1 by 0,0"},
    {"arc dimension", "0=ARC_DIMENSION 2=*D1 0=LARGE_RADIAL_DIMENSION 2=*D1",
     "block 0 at 0,0,0 scaled 1,1,1 turned 0, 1x1 by 0,0 + block 0 at 0,0,0 scaled 1,1,1 turned 0, 1x1 by 0,0"},
    {"widths, bulges and flags of a flat one", flatPolyline + " 10=3 20=4 40=1 41=3 10=5 20=6 40=-1 1000=x",
     "closed unbroken polyline 1,2,7^0.5w2-2 3,4,7w1-3 5,6,7w0-2"},
    {"an old one takes widths from its head", oldPolyline + vertex("5", "0", " 40=0 41=3") + " 0=SEQEND",
     "closed polyline 0,0,4^1w1-2 5,0,4w0-3"},
    {"a fitted curve leaves its frame out", fittedPolyline + vertex("2", "0") + " 0=SEQEND", "polyline 1,0,0 2,0,0"},
    {"a spatial one has neither", spatialPolyline + vertex("3", "4") + " 0=SEQEND", "spatial polyline 1,2,9 3,4,9"},
    // Meshes become lines along both ways, or faces; the last two faces name vertices that are not there.
    {"mesh", "0=POLYLINE 70=17 71=2 72=3" + mesh + " 0=SEQEND",
     "spatial polyline 0,0,9 1,0,9 2,0,9 + spatial polyline 0,1,9 1,1,9 2,1,9 + closed spatial polyline 0,0,9 "
     "0,1,9 + closed spatial polyline 1,0,9 1,1,9 + closed spatial polyline 2,0,9 2,1,9"},
    {"mesh of too few", "0=POLYLINE 70=16 71=3 72=3" + mesh + " 0=SEQEND", ""},
    {"faces",
     polyface + " 0=VERTEX 70=128 71=1 72=-2 73=3 0=VERTEX 70=128 71=1 72=2 73=4 0=VERTEX 70=128 71=-2147483648 "
                "72=2 73=3 0=SEQEND",
     "face 0,0,9 4,0,9 4,4,9 4,4,9 #.## + face 0,0,9 4,0,9 4,0,9 4,0,9 ####"},
    {"polylines keep bulges and flags", head + "92=18" + loop + " 92=10" + loop + tail,
     "solid normal hatch at 6 \nloop: 1,2,0^1 3,2,0 \ntext box: 1,2,0^1 3,2,0"},
    // Clockwise angles are mirrored at the x axis.
    {"lines and arcs follow one another",
     head + "92=1 93=3 72=1 10=0 20=0 11=4 21=0" + hatchArc + " 73=1" + hatchArc + " 73=0" + tail,
     "solid normal hatch at 6 \nloop: line 0,0 4,0 arc 5,1 r 2 from 10 to 100"
     " arc 5,1 r 2 from 260 to 350 clockwise"},
    // The point seen at 45 degrees from the centre of an ellipse half as high as wide has the tangent 2.
    {"angles of ellipses become eccentric",
     head + "92=1 93=2" + hatchEllipse + " 50=45 51=405 73=1" + hatchEllipse + " 50=0 51=90 73=0" + tail,
     "solid normal hatch at 6 \nloop: ellipse 1,1 axis 4,0 ratio 0.5 from 63.4349488 to 423.434949"
     " ellipse 1,1 axis 4,0 ratio 0.5 from 270 to 360 clockwise"},
    {"a spline ends where the next edge begins", head + "92=1 93=2" + hatchSpline + " 72=1 10=3 20=4 11=1 21=2" + tail,
     "solid normal hatch at 6 \nloop: spline of 1, knots 0 0 1 1, weights 1 2, at 1,2,0 3,4,0 line 3,4 1,2"},
    {"outer", head + "92=2" + loop + " 97=0 75=1", "solid outer hatch at 6 \nloop: 1,2,0^1 3,2,0"},
    {"ignore", head + "92=2" + loop + " 97=0 75=2", "solid ignore hatch at 6 \nloop: 1,2,0^1 3,2,0"},
    {"unknown style", head + "92=2" + loop + " 97=0 75=7", "solid normal hatch at 6 \nloop: 1,2,0^1 3,2,0"},
    {"pattern, from below", "0=HATCH 230=-1 70=0 91=1 92=2" + loop + tail,
     "pattern normal hatch at 0 \nloop: 1,2,0^1 3,2,0 extruded 0,0,-1"},
};

TEST(Entities, AreRead) {
    for (const EntityCase& row : entityCases) {
        expectEntities(row);
    }
    EXPECT_EQ(readGroups(drawingOf("0=DIMENSION 10=9")).dimensionsWithoutBlock, 1U);
    EXPECT_EQ(readGroups(drawingOf("0=DIMENSION 2=*D1")).blocks.at(0).name, "*D1");
}

TEST(Leaders, AreAnArrowHeadAndALine) {
    const EntityCase rows[] = {
        {"usual arrow", "3=plain 73=3" + leaderPath, "solid 0,0,0 6,1,0 6,-1,0 6,-1,0 + spatial polyline 6,0,0 20,0,0"},
        {"no style", "3=Missing" + leaderPath,
         "solid 0,0,0 0.18,0.03,0 0.18,-0.03,0 0.18,-0.03,0 + spatial polyline 0.18,0,0 20,0,0"},
        {"block", "3=Open" + leaderPath,
         "block 0 at 0,0,0 scaled 2,2,2 turned 180, 1x1 by 0,0 + spatial polyline 2,0,0 20,0,0"},
        {"tick", "3=Tick" + leaderPath,
         "block 0 at 0,0,0 scaled 2,2,2 turned 180, 1x1 by 0,0 + spatial polyline 0,0,0 20,0,0"},
        {"no arrow", "3=Plain 71=0" + leaderPath, "spatial polyline 0,0,0 20,0,0"},
        {"arrow longer than half", "3=Plain 10=0 20=0 10=11 20=0", "spatial polyline 0,0,0 11,0,0"},
        {"own size",
         "3=Plain" + leaderPath + " 1001=ACAD 1000=DSTYLE 1002={ 1070=41 1040=1.5 1070=40 1040=1 1002=} 1070=41 1040=9",
         "solid 0,0,0 1.5,0.25,0 1.5,-0.25,0 1.5,-0.25,0 + spatial polyline 1.5,0,0 20,0,0"},
        {"line under its text", "3=Plain 71=0 73=0 75=1" + hook, "spatial polyline 0,0,0 20,0,0 20,5,0 20,15,0"},
        {"line beside its text", "3=Open 71=0 73=0 75=1" + hook, "spatial polyline 0,0,0 20,0,0 20,5,0"},
        {"curve", "3=Plain 71=0 72=1" + hook, "spline of 3, through 0,0,0 20,0,0 20,5,0"},
        {"seen from behind", "3=Plain 230=-1" + leaderPath,
         "solid 0,0,0 -6,-1,0 -6,1,0 -6,1,0 extruded 0,0,-1 + spatial polyline 6,0,0 20,0,0"},
        {"one point", "3=Plain 10=1 20=1", ""},
    };
    for (const EntityCase& row : rows) {
        expectEntities({row.name, "0=LEADER " + row.groups, row.expected}, leaderTables);
    }
}

TEST(OldPolyline, KeepsItsAttributesAndOrder) {
    const std::string text = "0=LINE 11=1 0=POLYLINE 62=5 67=1" + vertex("0", "0", " 62=1") + vertex("1", "0");
    // The end of the sequence is missing; the next entity ends it.
    const Drawing drawing = readGroups(drawingOf(text + " 0=CIRCLE 40=1 67=1"));
    ASSERT_EQ(drawing.modelSpace.size(), 1u);
    ASSERT_EQ(drawing.paperSpace.size(), 2u);
    EXPECT_TRUE(std::holds_alternative<Polyline>(drawing.paperSpace[0].geometry));
    EXPECT_EQ(drawing.paperSpace[0].attributes.colour.value, 5u);
    EXPECT_TRUE(std::holds_alternative<Circle>(drawing.paperSpace[1].geometry));
}

TEST(EntityAttributes, AreReadForEveryFamily) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "byLayer, weight -1, scale 1, opacity -1"},
        {" 62=0 370=-2", "byBlock, weight -2, scale 1, opacity -1"},
        {" 62=256 370=-1", "byLayer, weight -1, scale 1, opacity -1"},
        {" 62=3 370=50 48=2.5", "index 3, weight 50, scale 2.5, opacity -1"},
        {" 420=1193046 62=3", "true 1193046, weight -1, scale 1, opacity -1"},
        {" 60=1", "invisible, byLayer, weight -1, scale 1, opacity -1"},
        {" 39=30", "byLayer, weight -1, scale 1, opacity -1"}, // a thickness is no weight
        {" 370=-3", "byLayer, weight -3, scale 1, opacity -1"},
        {" 62=999 370=99999 48=-1", "byLayer, weight 211, scale 1, opacity -1"},
        {" 370=-9 440=0", "byLayer, weight -1, scale 1, opacity -1"},
        {" 440=16777216", "byLayer, weight -1, scale 1, opacity -2"},
        {" 440=33554534", "byLayer, weight -1, scale 1, opacity 102"},
        {" 440=33554432", "byLayer, weight -1, scale 1, opacity 0"},
        {" 440=50331750", "byLayer, weight -1, scale 1, opacity -1"}, // of an unknown kind
        {" 440=-1", "byLayer, weight -1, scale 1, opacity -1"},
    };
    for (const auto& [groups, expected] : rows) {
        // One that the DXF library reads, and one that is read from its groups.
        for (const char* const entity : {"0=LINE 11=1", "0=LWPOLYLINE 10=1 20=1"}) {
            const Attributes read = readOne(std::string(entity) + groups).attributes;
            std::ostringstream shown;
            shown << (read.visible ? "" : "invisible, ") << textOf(read.colour) << ", weight " << read.lineWeight
                  << ", scale " << read.lineTypeScale << ", opacity " << read.opacity;
            EXPECT_EQ(shown.str(), expected) << groups;
        }
    }
}

} // namespace
} // namespace kelplot
