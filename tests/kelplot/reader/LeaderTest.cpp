// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"
#include "EntityText.h"

namespace kelplot {
namespace {

TEST(Leaders, AreAnArrowHeadAndALine) {
    const std::string tables = section(
        "TABLES", "0=DIMSTYLE 2=Plain 40=2 41=3 77=1 0=DIMSTYLE 2=Open 41=2 341=1F 0=DIMSTYLE 2=Tick 40=0 41=2 341=2F"
                  " 0=BLOCK_RECORD 5=1f 2=_Open30 0=BLOCK_RECORD 5=2F 2=_OBLIQUE");
    const std::string path = " 10=0 20=0 30=0 10=20 20=0 30=0";
    const std::string hook = path + " 10=20 20=5 30=0 41=10";
    const struct {
        const char* name;
        std::string groups;
        std::vector<std::string> shapes;
    } rows[] = {
        {"usual arrow", "3=plain 73=3" + path, {"solid 0,0,0 6,1,0 6,-1,0 6,-1,0", "spatial polyline 6,0,0 20,0,0"}},
        {"no style",
         "3=Missing" + path,
         {"solid 0,0,0 0.18,0.03,0 0.18,-0.03,0 0.18,-0.03,0", "spatial polyline 0.18,0,0 20,0,0"}},
        {"block",
         "3=Open" + path,
         {"block 0 at 0,0,0 scaled 2,2,2 turned 180, 1x1 by 0,0", "spatial polyline 2,0,0 20,0,0"}},
        {"tick",
         "3=Tick" + path,
         {"block 0 at 0,0,0 scaled 2,2,2 turned 180, 1x1 by 0,0", "spatial polyline 0,0,0 20,0,0"}},
        {"no arrow", "3=Plain 71=0" + path, {"spatial polyline 0,0,0 20,0,0"}},
        {"arrow longer than half", "3=Plain 10=0 20=0 10=11 20=0", {"spatial polyline 0,0,0 11,0,0"}},
        {"own size",
         "3=Plain" + path + " 1001=ACAD 1000=DSTYLE 1002={ 1070=41 1040=1.5 1070=40 1040=1 1002=} 1070=41 1040=9",
         {"solid 0,0,0 1.5,0.25,0 1.5,-0.25,0 1.5,-0.25,0", "spatial polyline 1.5,0,0 20,0,0"}},
        {"line under its text", "3=Plain 71=0 73=0 75=1" + hook, {"spatial polyline 0,0,0 20,0,0 20,5,0 20,15,0"}},
        {"line beside its text", "3=Open 71=0 73=0 75=1" + hook, {"spatial polyline 0,0,0 20,0,0 20,5,0"}},
        {"curve", "3=Plain 71=0 72=1" + hook, {"spline of 3, through 0,0,0 20,0,0 20,5,0"}},
        {"seen from behind",
         "3=Plain 230=-1" + path,
         {"solid 0,0,0 -6,-1,0 -6,1,0 -6,1,0 extruded 0,0,-1", "spatial polyline 6,0,0 20,0,0"}},
        {"one point", "3=Plain 10=1 20=1", {}},
    };
    for (const auto& row : rows) {
        const Drawing drawing = readGroups(tables + drawingOf("0=LEADER " + row.groups));
        std::vector<std::string> shapes;
        for (const Entity& entity : drawing.modelSpace) {
            shapes.push_back(textOf(entity));
        }
        EXPECT_EQ(shapes, row.shapes) << row.name;
        EXPECT_EQ(drawing.blocks.empty(), row.shapes.empty() || row.shapes[0].substr(0, 5) != "block") << row.name;
    }
}

} // namespace
} // namespace kelplot
