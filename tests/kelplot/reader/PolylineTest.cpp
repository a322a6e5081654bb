// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"
#include "EntityText.h"

namespace kelplot {
namespace {

std::string vertex(const std::string& x, const std::string& y, const std::string& more = "") {
    return " 0=VERTEX 30=9 10=" + x + " 20=" + y + more;
}

TEST(Polylines, AreRead) {
    const std::string flat = "0=LWPOLYLINE 90=3 70=129 38=7 43=2 10=1 20=2 42=0.5";
    const std::string old = "0=POLYLINE 62=5 70=1 30=4 40=1 41=2" + vertex("0", "0", " 42=1 62=1");
    const std::string fitted = "0=POLYLINE 70=4" + vertex("0", "9", " 70=16") + vertex("1", "0", " 70=8");
    const std::string spatial = "0=POLYLINE 70=8 40=1 30=4 210=0 220=1 230=0" + vertex("1", "2", " 70=32 42=1");
    const struct {
        const char* name;
        std::string groups;
        const char* expected;
    } rows[] = {
        {"widths, bulges and flags of a flat one", flat + " 10=3 20=4 40=1 41=3 10=5 20=6 40=-1 1000=x",
         "closed unbroken polyline 1,2,7^0.5w2-2 3,4,7w1-3 5,6,7w0-2"},
        {"an old one takes widths from its head", old + vertex("5", "0", " 40=0 41=3") + " 0=SEQEND",
         "closed polyline 0,0,4^1w1-2 5,0,4w0-3"},
        {"a fitted curve leaves its frame out", fitted + vertex("2", "0") + " 0=SEQEND", "polyline 1,0,0 2,0,0"},
        {"a spatial one has neither", spatial + vertex("3", "4") + " 0=SEQEND", "spatial polyline 1,2,9 3,4,9"},
    };
    for (const auto& row : rows) {
        const std::string read = textOf(readOne(row.groups));
        EXPECT_EQ(read.substr(0, read.find(" extruded")), row.expected) << row.name;
    }
}

TEST(Polylines, HaveTheVerticesThatCome) {
    // The count, too small and none at all; what the polyline before had does not come back.
    const Drawing drawing = readGroups(drawingOf("0=LWPOLYLINE 90=1 70=1 10=1 20=1 10=2 20=2 0=LWPOLYLINE 10=3 20=3"));
    ASSERT_EQ(drawing.modelSpace.size(), 2u);
    EXPECT_EQ(textOf(drawing.modelSpace[0]), "closed polyline 1,1,0 2,2,0");
    EXPECT_EQ(textOf(drawing.modelSpace[1]), "polyline 3,3,0");
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

TEST(Mesh, BecomesLinesAlongBothWays) {
    std::string points;
    for (const char* y : {"0", "1"}) {
        for (const char* x : {"0", "1", "2"}) {
            points += vertex(x, y, " 70=64");
        }
    }
    const Drawing drawing = readGroups(drawingOf("0=POLYLINE 70=17 71=2 72=3" + points + " 0=SEQEND"));
    ASSERT_EQ(drawing.modelSpace.size(), 5u);
    EXPECT_EQ(textOf(drawing.modelSpace[1]), "spatial polyline 0,1,9 1,1,9 2,1,9");
    EXPECT_EQ(textOf(drawing.modelSpace[4]), "closed spatial polyline 2,0,9 2,1,9");
    const std::string tooFew = "0=POLYLINE 70=16 71=3 72=3" + points + " 0=SEQEND";
    EXPECT_TRUE(readGroups(drawingOf(tooFew)).modelSpace.empty());
}

TEST(PolyfaceMesh, BecomesFaces) {
    const std::string polyface = " 70=192";
    const std::string face = " 0=VERTEX 70=128";
    const std::string text = "0=POLYLINE 70=64 67=1" + vertex("0", "0", polyface) + vertex("4", "0", polyface) +
                             vertex("4", "4", polyface) + face + " 62=3 71=1 72=-2 73=3" + face +
                             " 71=1 72=2 73=4" + // there is no fourth vertex
                             face + " 71=-2147483648 72=2 73=3" + " 0=SEQEND";
    const Drawing drawing = readGroups(drawingOf(text));
    ASSERT_EQ(drawing.paperSpace.size(), 2u);
    EXPECT_EQ(textOf(drawing.paperSpace[0]), "face 0,0,9 4,0,9 4,4,9 4,4,9 #.##");
    EXPECT_EQ(drawing.paperSpace[0].attributes.colour.value, 3u);
}

} // namespace
} // namespace kelplot
