// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"

namespace kelplot {
namespace {

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
