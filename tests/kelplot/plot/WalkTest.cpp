// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "kelplot/plot/PlotKit.h"
#include "plot/EntityWalk.h"

namespace kelplot {
namespace {

class Counter : public EntityVisitor {
public:
    void visit(const Entity&, const EntityStyle&, const PlanMap&) override { ++count; }

    size_t count = 0;
};

std::string repeated(const char* groups, int count) {
    return QString(groups).repeated(count).toStdString();
}

/// References to a block of one line, placed so, each cut by a square.
Drawing cutReferences(int count, const std::string& placement = "", const std::string& more = "") {
    return readGroups(
        section("BLOCKS", "0=BLOCK 2=B 0=LINE 11=1 0=ENDBLK") +
        section("ENTITIES", repeated((" 0=INSERT 2=B 102={ACAD_XDICTIONARY 360=1 102=}" + placement).c_str(), count)) +
        section("OBJECTS", "0=DICTIONARY 5=1 3=ACAD_FILTER 360=2 0=DICTIONARY 5=2 3=SPATIAL 360=3"
                           " 0=SPATIAL_FILTER 5=3 10=0 20=0 10=1 20=1 71=1 " +
                               more) +
        "0=EOF");
}

/// The placement of `count` by `count` copies.
std::string copies(int count, const std::string& spacing = "2") {
    const std::string number = std::to_string(count);
    return " 70=" + number + " 71=" + number + " 44=" + spacing + " 45=" + spacing;
}

/// Blocks of which each holds a reference, placed so, to the one before; the first one holds some lines.
Drawing nestedDrawing(int depth, const std::string& placement, int lines = 1, const std::string& others = "") {
    std::string blocks = "0=BLOCK 2=0" + repeated(" 0=LINE 11=1", lines) + " 0=ENDBLK";
    const auto reference = [&](int i) {
        return " 0=INSERT 2=" + std::to_string(i - 1) + placement;
    };
    for (int i = 1; i < depth; ++i) {
        blocks += " 0=BLOCK 2=" + std::to_string(i) + reference(i) + " 0=ENDBLK";
    }
    return readGroups(section("BLOCKS", blocks) + drawingOf(reference(depth) + others));
}

TEST(Clips, HaveAllTheirCornersWhenTurnedInsideOut) {
    constexpr int corners = 6000; // on a parabola
    std::string record = " 0=XRECORD 5=4";
    for (int i = 0; i < corners; ++i) {
        record += " 10=" + std::to_string(i) + " 20=" + std::to_string(i * i);
    }
    const Drawing drawing = cutReferences(1, "",
                                          "102={ACAD_XDICTIONARY 360=5 102=} 0=DICTIONARY 5=5"
                                          " 3=ACAD_INVERTEDCLIP_ROUNDTRIP 360=4" +
                                              record);
    ASSERT_EQ(drawing.clips.size(), 1U);
    EXPECT_TRUE(drawing.clips[0].inverted);
    EXPECT_EQ(drawing.clips[0].border.size(), size_t{corners});
}

TEST(Walk, EndsAtItsLimitsAndSaysSo) {
    const struct {
        const char* name;
        Drawing drawing;
        size_t fewest, most; ///< visits of lines
        bool tooManyCopies = false;
        bool tooDeep = false;
    } cases[] = {
        {"many entities of the drawing's own", withEntities(repeated(" 0=LINE 11=1", 5000)), 5000, 5000},
        {"many references", nestedDrawing(1, "", 1, repeated(" 0=INSERT 2=0", 2999)), 3000, 3000},
        {"some copies", nestedDrawing(1, copies(20)), 400, 400},
        {"the most copies", nestedDrawing(1, copies(32767)), 900, 1010, true},
        {"copies that lie on one another", nestedDrawing(1, copies(32767, "0")), 1, 1},
        {"copies of copies", nestedDrawing(12, copies(5)), 400, 1030, true},
        {"copies of nothing", nestedDrawing(12, copies(5), 0), 0, 0, true},
        {"a large block", nestedDrawing(1, "", 5000), 5000, 5000},
        {"entities after too many copies", nestedDrawing(1, copies(32767), 1, " 0=LINE 11=1"), 900, 1010, true},
        {"clips, each as costly as many visits", cutReferences(100), 50, 70, true},
        {"clips of copies, each as costly as many visits", cutReferences(1, copies(10)), 50, 70, true},
        {"clipped pictures", withEntities(repeated(" 0=IMAGE 70=7 280=1 14=0 24=0 14=9 24=9", 100)), 60, 80, true},
        {"just not too deep", nestedDrawing(30, ""), 1, 1},
        {"too deep", nestedDrawing(31, ""), 0, 0, false, true},
    };
    for (const auto& row : cases) {
        Counter counter;
        WalkRules rules;
        rules.limits = {30, 1000, 2};
        const WalkReport report = EntityWalk(row.drawing, rules, counter).run(row.drawing.modelSpace, PlanMap(), {});
        EXPECT_GE(counter.count, row.fewest) << row.name;
        EXPECT_LE(counter.count, row.most) << row.name;
        EXPECT_EQ(report.tooManyCopies, row.tooManyCopies) << row.name;
        EXPECT_EQ(report.tooDeep, row.tooDeep) << row.name;
    }
}

TEST(Walk, CountsReferencesToUndefinedBlocksOnce) {
    const Drawing drawing =
        readGroups(section("TABLES", "0=LAYER 2=frozen 70=1") +
                   section("BLOCKS", "0=BLOCK 2=B 0=INSERT 2=missing 0=ENDBLK 0=BLOCK 2=empty 0=ENDBLK") +
                   drawingOf("0=INSERT 2=B 70=3 71=3 44=2 45=2 0=INSERT 2=missing 0=INSERT 2=empty"
                             " 0=INSERT 2=missing 8=frozen"));
    ExtentsReport report;
    extentsOf(drawing, &report);
    EXPECT_EQ(report.undefined.size(), 2U) << "the one in the block and the one on the layer that shows";
}

TEST(Walk, LeavesOutCopiesOffThePage) {
    for (const char* const rows : {"5 20=-50000", "-5 20=50000"}) {
        PlotReport report;
        const auto shapes =
            shapesOf(nestedDrawing(1, " 10=-50000 50=17 70=30000 71=30000 44=5 45=" + std::string(rows)),
                     tenfoldTarget(), {}, &report);
        EXPECT_FALSE(report.tooManyCopies);
        // One copy for each 5 by 5 units of a page of 100 by 100, and some that cross its border.
        EXPECT_GE(shapes.size(), 360U);
        EXPECT_LE(shapes.size(), 480U);
    }
}

TEST(Walk, ProgressRisesWithinOneReference) {
    const std::pair<const char*, Drawing> cases[] = {
        {"many entities", withEntities(repeated(" 0=LINE 11=1", 5000))},
        {"one reference to a large block", nestedDrawing(1, "", 5000)},
        {"one reference to many copies", nestedDrawing(1, copies(80, "0.1"))},
        {"a large block in a block", nestedDrawing(2, "", 5000)},
    };
    for (const auto& [name, drawing] : cases) {
        std::vector<double> told;
        shapesOf(drawing, tenfoldTarget(), {}, nullptr, [&](double fraction) { told.push_back(fraction); });
        ASSERT_FALSE(told.empty()) << name;
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end())) << name;
        EXPECT_EQ(told.back(), 1.0) << name;
        const auto isBetween = [](double fraction) {
            return fraction > 0.0 && fraction < 1.0;
        };
        EXPECT_GE(std::count_if(told.begin(), told.end(), isBetween), 3) << name;
    }
}

std::string textOf(const Drawing& drawing) {
    std::string text;
    for (const Shape& shape : shapesOf(drawing)) {
        text += shape.text() + '\n';
    }
    return text;
}

TEST(Walk, DrawsEachCopyThatShowsAsAReferenceOfItsOwn) {
    constexpr struct {
        double turned, columnSpacing, rowSpacing; ///< degrees, drawing units
    } cases[] = {{0, 3, 4}, {0, -3, -4}, {40, 3, 4}, {90, 3, -4}, {11, 0.1, 9}, {172, 700, 4}, {200, 3, 0.7}};
    for (const auto& row : cases) {
        const std::string turned = group(50, row.turned);
        const double cosine = std::cos(row.turned / 57.29577951308232), sine = std::sin(row.turned / 57.29577951308232);
        std::string singles;
        for (int i = 0; i < 2500; ++i) {
            const Vec2 moved{row.columnSpacing * (i % 50), row.rowSpacing * std::floor(i / 50.0)};
            singles += " 0=INSERT 2=0" + turned + group(10, 51.23 + cosine * moved.x - sine * moved.y) +
                       group(20, 48.76 + sine * moved.x + cosine * moved.y);
        }
        const std::string array =
            " 10=51.23 20=48.76 70=50 71=50" + turned + group(44, row.columnSpacing) + group(45, row.rowSpacing);
        const std::string shown = textOf(nestedDrawing(1, array));
        EXPECT_FALSE(shown.empty());
        EXPECT_EQ(shown, textOf(nestedDrawing(1, " 10=-99", 1, singles))) << row.turned << ' ' << row.columnSpacing;
    }
}

} // namespace
} // namespace kelplot
