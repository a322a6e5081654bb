// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"

namespace kelplot {
namespace {

/// A drawing with these layers and one line on `used`.
Drawing withLayers(const std::string& layers, const std::string& used) {
    return readGroups(section("TABLES", "0=TABLE 2=LAYER 70=9" + layers + " 0=ENDTAB") +
                      drawingOf("0=LINE 11=1 8=" + used));
}

TEST(LayerTable, IsRead) {
    const struct {
        const char* name;
        std::string groups;
        const char* expected;
    } rows[] = {
        {"plain", "", "index 7, weight -3"},
        {"off", " 70=0 62=-3 370=50", "index 3, weight 50, off"},
        {"frozen", " 70=65 62=5", "index 5, weight -3, frozen"},
        {"locked", " 70=4 62=5", "index 5, weight -3"},
        {"screen", " 290=0", "index 7, weight -3, unplotted"},
        {"true", " 62=-1 420=255", "true 255, weight -3, off"},
        {"marks", " 62=256 370=-1", "index 7, weight -3"},
        {"DEFPOINTS", " 290=1", "index 7, weight -3, unplotted"},
    };
    for (const auto& row : rows) {
        const Drawing drawing = withLayers(" 0=LAYER 5=1F 2=" + std::string(row.name) + row.groups, row.name);
        const Layer& read = drawing.layers.at(drawing.modelSpace.at(0).attributes.layer);
        const std::string shown = textOf(read.colour) + ", weight " + std::to_string(read.lineWeight) +
                                  (read.on ? "" : ", off") + (read.frozen ? ", frozen" : "") +
                                  (read.plotted ? "" : ", unplotted");
        EXPECT_EQ(read.name + ": " + shown, std::string(row.name) + ": " + row.expected);
    }
}

TEST(LayerTable, OpacityComesFromTheDataThatStatesIt) {
    const Drawing drawing = withLayers(" 0=LAYER 2=Faint 1001=AcCmTransparency 1071=33554483"
                                       " 0=LAYER 2=Full 1001=SomethingElse 1071=33554483",
                                       "Faint");
    ASSERT_EQ(drawing.layers.size(), 3U);
    EXPECT_EQ(drawing.layers[1].opacity, 51);
    EXPECT_EQ(drawing.layers[2].opacity, opaque);
}

TEST(LayerTable, NamesDifferByMoreThanCase) {
    const Drawing drawing = withLayers(" 0=LAYER 2=Walls 62=1 0=LAYER 2=0 62=2", "WALLS");
    ASSERT_EQ(drawing.layers.size(), 2u);
    EXPECT_EQ(drawing.layers[0].name, "0");
    EXPECT_EQ(drawing.layers[0].colour.value, 2u);
    EXPECT_EQ(drawing.modelSpace.at(0).attributes.layer, 1u);
}

TEST(LineTypeTable, IsReadInWhateverOrder) {
    const std::string tables = "0=LAYER 2=A 6=dashdot 0=LTYPE 2=ByLayer 73=0"
                               " 0=LTYPE 2=DASHDOT 73=4 40=3 49=1.5 74=0 49=-1 49=0 49=-0.5"
                               " 0=LTYPE 2=STUCK 73=2 49=0 49=0";
    const std::string used = "0=LINE 6=BYBLOCK 0=LINE 6=ByLayer 0=LINE 6=Missing 0=LINE 6=CONTINUOUS";
    const Drawing drawing = readGroups(section("TABLES", tables) + drawingOf(used));
    ASSERT_EQ(drawing.lineTypes.size(), 4u);
    EXPECT_EQ(drawing.lineTypes[0].name, "Continuous");
    EXPECT_EQ(drawing.lineTypes[1].pattern, (std::vector<double>{1.5, -1, 0, -0.5}));
    EXPECT_EQ(drawing.lineTypes[2].name, "STUCK");
    EXPECT_TRUE(drawing.lineTypes[2].pattern.empty());
    EXPECT_EQ(drawing.layers.at(1).lineType, 1u);
    ASSERT_EQ(drawing.modelSpace.size(), 4u);
    EXPECT_EQ(drawing.modelSpace[0].attributes.lineType, lineTypeByBlock);
    EXPECT_EQ(drawing.modelSpace[1].attributes.lineType, lineTypeByLayer);
    EXPECT_EQ(drawing.modelSpace[2].attributes.lineType, 3u);
    EXPECT_EQ(drawing.modelSpace[3].attributes.lineType, 0u);
}

Drawing withHeader(const std::string& variables) {
    return readGroups(section("HEADER", variables) + "0=EOF");
}

TEST(HeaderVariables, GiveValuesThatAPlotNeeds) {
    const Drawing drawing = withHeader("9=$LTSCALE 40=2.5 9=$UCSNAME 2= 9=$CLAYER 8=0 9=$UCSBASE 2=ENTITIES"
                                       " 9=$PDMODE 70=34 9=$PDSIZE 40=-3 9=$LWDEFAULT 370=35");
    EXPECT_EQ(drawing.lineTypeScale, 2.5);
    EXPECT_EQ(drawing.pointMode, 34);
    EXPECT_EQ(drawing.pointSize, -3.0);
    EXPECT_EQ(drawing.defaultLineWeight, 35);
    const Drawing bad = withHeader("9=$LTSCALE 40=0 9=$PDSIZE 40=nan 9=$INSUNITS 70=77 9=$LWDEFAULT 370=-3");
    EXPECT_EQ(bad.lineTypeScale, 1.0);
    EXPECT_EQ(bad.pointSize, 0.0);
    EXPECT_EQ(bad.millimetresPerUnit, 1.0);
    EXPECT_EQ(bad.defaultLineWeight, 25);
}

TEST(HeaderVariables, UnitsAreInMillimetres) {
    const struct {
        const char* insertUnits;
        const char* measurement;
        double millimetres;
    } rows[] = {
        {"0", "0", 25.4}, {"0", "1", 1.0},    {"1", "1", 25.4},   {"2", "1", 304.8},  {"4", "0", 1.0},
        {"5", "0", 10.0}, {"6", "0", 1000.0}, {"10", "0", 914.4}, {"14", "0", 100.0}, {"21", "0", 304.8006096012192},
    };
    for (const auto& row : rows) {
        const std::string measurement = row.measurement;
        const Drawing drawing = withHeader("9=$MEASUREMENT 70=" + measurement + " 9=$INSUNITS 70=" + row.insertUnits);
        EXPECT_DOUBLE_EQ(drawing.millimetresPerUnit, row.millimetres) << row.insertUnits << ", " << measurement;
    }
}

TEST(Names, BecomeUtf8) {
    const struct {
        const char* name;
        std::string version;
        std::string codePage;
        std::string bytes;
        const char* utf8;
        const char* unknownCodePage = "";
    } rows[] = {
        {"cyrillic", "AC1015", "ANSI_1251", "\xD1\xF2\xE5\xED\xE0", "Стена"},
        {"latin", "AC1009", "ansi_1252", "W\xE4nde", "Wände"},
        {"japanese", "AC1012", "dos932", "\x95\xC7", "壁"},
        // The second byte of the sign is that of a backslash.
        {"japanese with a backslash byte", "AC1015", "ANSI_932", "\x95\x5C", "表"},
        {"chinese", "AC1018", "ANSI_936", "\xC7\xBD", "墙"},
        {"unicode", "AC1021", "ANSI_1251", "Стена", "Стена"},
        {"not unicode after all", "AC1027", "ANSI_1251", "\xD1\xF2\xE5\xED\xE0", "Стена"},
        {"unknown code page", "AC1015", "UNDEFINED", "Wände", "Wände", "UNDEFINED"},
        {"code page without a codec", "AC1015", "ANSI_1361", R"(a\M+48861)", R"(a\M+48861)", "ANSI_1361"},
        {"unknown where none is needed", "AC1021", "UNDEFINED", "Wände", "Wände"},
        {"UTF-8 in an old drawing", "AC1015", "ANSI_1251", "Стена", "Стена"},
        {"letters that look like UTF-8", "AC1015", "ANSI_1251", "\xC5\xA8", "ЕЁ"},
        {"one sign with two bytes after the first", "AC1015", "ANSI_1251", "€", "€"},
        {"chinese that looks like UTF-8", "AC1015", "ANSI_936", "\xC1\xAA\xCD\xA8", "联通"},
        {"a number for UTF-8", "AC1015", "ANSI_65001", "é", "é"},
        {"escaped", "AC1015", "ANSI_1252", R"(a\U+0416b)", "aЖb"},
        {"escaped pair", "AC1024", "ANSI_1252", R"(\U+D83D\U+DE00)", "😀"},
        {"escaped bytes", "AC1015", "ANSI_1252", R"(\M+195C7)", "壁"},
        {"escaped control characters", "AC1015", "ANSI_1252", R"(a\U+0000b\M+10041\U+009Fc)", "abAc"},
        {"no escape", "AC1015", "ANSI_1252", R"(a\U+04\M+9\b\)", R"(a\U+04\M+9\b\)"},
    };
    for (const auto& row : rows) {
        const std::string header = "9=$ACADVER 1=" + row.version + " 9=$DWGCODEPAGE 3=" + row.codePage;
        const Drawing drawing = readGroups(section("HEADER", header) + drawingOf("0=LINE 8=" + row.bytes + " 11=1"));
        ASSERT_EQ(drawing.layers.size(), 2u) << row.name;
        EXPECT_EQ(drawing.layers[1].name, row.utf8) << row.name;
        EXPECT_EQ(drawing.unknownCodePage, row.unknownCodePage) << row.name;
    }
}

std::string line(const std::string& x) {
    return " 0=LINE 21=1 10=" + x + " 11=" + x;
}

std::string block(const std::string& name, const std::string& content) {
    return " 0=BLOCK 8=0 2=" + name + " 10=3 20=4 3=other" + content + " 0=ENDBLK";
}

/// The x coordinates of lines tell which ones they are.
std::vector<double> xOf(const std::vector<Entity>& entities) {
    std::vector<double> result;
    result.reserve(entities.size());
    for (const Entity& entity : entities) {
        result.push_back(std::get<Line>(entity.geometry).start.x);
    }
    return result;
}

using Lines = std::vector<double>;

TEST(Space, ModelAndPaperAreToldApart) {
    const Drawing drawing = readGroups(drawingOf(line("1") + line("2") + " 67=1" + line("3")));
    EXPECT_EQ(xOf(drawing.modelSpace), (Lines{1, 3}));
    EXPECT_EQ(xOf(drawing.paperSpace), (Lines{2}));
}

TEST(Space, BlocksOfTheSpacesAreTheSpaces) {
    const std::string blocks = block("*Model_Space", line("1")) + block("*PAPER_SPACE", line("2")) +
                               block("*Paper_Space0", line("3")) + block("$MODEL_SPACE", line("4"));
    const Drawing drawing = readGroups(section("BLOCKS", blocks) + drawingOf(line("5")));
    EXPECT_EQ(xOf(drawing.modelSpace), (Lines{1, 4, 5}));
    EXPECT_EQ(xOf(drawing.paperSpace), (Lines{2}));
    ASSERT_EQ(drawing.blocks.size(), 1u);
    EXPECT_EQ(drawing.blocks[0].name, "*Paper_Space0");
}

TEST(BlockTable, HoldsContentInOrder) {
    const std::string polyline = " 0=LWPOLYLINE 10=1 20=1";
    const std::string blocks = block("A", " 0=INSERT 2=b") + block("B", line("1") + polyline + line("2"));
    const Drawing drawing = readGroups(section("BLOCKS", blocks) + drawingOf(" 0=INSERT 2=Unknown"));
    ASSERT_EQ(drawing.blocks.size(), 3u);
    EXPECT_EQ(drawing.blocks[0].basePoint, (Vec3{3, 4, 0}));
    EXPECT_EQ(std::get<Insert>(drawing.blocks[0].entities.at(0).geometry).block, 1u);
    const std::vector<Entity>& inner = drawing.blocks[1].entities;
    ASSERT_EQ(inner.size(), 3u);
    EXPECT_TRUE(std::holds_alternative<Line>(inner[0].geometry));
    EXPECT_TRUE(std::holds_alternative<Polyline>(inner[1].geometry));
    EXPECT_TRUE(std::holds_alternative<Line>(inner[2].geometry));
    EXPECT_EQ(std::get<Insert>(drawing.modelSpace.at(0).geometry).block, 2u);
    EXPECT_TRUE(drawing.blocks[2].entities.empty());
    EXPECT_TRUE(drawing.blocks[0].defined && drawing.blocks[1].defined);
    EXPECT_FALSE(drawing.blocks[2].defined);
}

TEST(BlockTable, NamelessBlocksAreDropped) {
    const std::string nameless = " 0=BLOCK 10=1" + line("9") + " 0=ENDBLK";
    const Drawing drawing = readGroups(section("BLOCKS", nameless + block("A", line("1"))) + drawingOf(line("2")));
    EXPECT_EQ(xOf(drawing.modelSpace), (Lines{2}));
    EXPECT_EQ(xOf(drawing.blocks.at(0).entities), (Lines{1}));
}

TEST(BlockTable, UnendedBlockEndsWithItsSection) {
    const std::string unended = " 0=BLOCK 2=A" + line("1");
    const Drawing drawing = readGroups(section("BLOCKS", unended) + drawingOf(line("2")));
    EXPECT_EQ(xOf(drawing.blocks.at(0).entities), (Lines{1}));
    EXPECT_EQ(xOf(drawing.modelSpace), (Lines{2}));
}

} // namespace
} // namespace kelplot
