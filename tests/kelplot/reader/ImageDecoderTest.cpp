// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "DrawingText.h"

namespace kelplot {
namespace {

const std::string place = " 10=5 20=40 11=2 12=0 22=3 13=64 23=48 ";

std::string textOf(const std::vector<Vec2>& points) {
    std::string text;
    for (const Vec2 p : points) {
        text += std::to_string(std::lround(p.x * 10)) + ',' + std::to_string(std::lround(p.y * 10)) + ' ';
    }
    return text;
}

TEST(Images, FindTheirDefinitionBehindThem) {
    const Drawing drawing = readGroups(
        section("ENTITIES", "0=IMAGE 340=7D 0=IMAGE 340=7d 0=IMAGE 340=7C") +
        section("OBJECTS", "0=IMAGEDEF 5=7C 1=dir\\a.png 10=64 20=48 0=LINE 0=IMAGEDEF 5=7D 1=.\\b.jpg") + "0=EOF");
    ASSERT_EQ(drawing.modelSpace.size(), 3U);
    const char* const paths[] = {".\\b.jpg", ".\\b.jpg", "dir\\a.png"};
    for (size_t i = 0; i < 3; ++i) {
        const auto& image = std::get<Image>(drawing.modelSpace[i].geometry);
        EXPECT_EQ(drawing.images.at(image.definition).path, paths[i]);
    }
}

TEST(Images, KeepTheirSettings) {
    const auto image = std::get<Image>(readOne("0=IMAGE 70=8 281=20 282=70 283=101 290=1" + place).geometry);
    EXPECT_FALSE(image.shown);
    EXPECT_TRUE(image.transparent);
    EXPECT_TRUE(image.clipInverted);
    EXPECT_EQ(image.brightness, 20);
    EXPECT_EQ(image.contrast, 70);
    EXPECT_EQ(image.fade, 100);
    EXPECT_EQ(image.pointAt({0, 0}), (Vec3{5, 184, 0})) << "the upper left corner";
    EXPECT_EQ(image.pointAt({64, 48}), (Vec3{133, 40, 0})) << "the lower right corner";
}

TEST(Images, AreClippedWhereTheFileSaysSo) {
    const std::string rectangle = "14=-0.5 24=9.5 14=19.5 24=-0.5";
    const std::string triangle = "14=0 24=0 14=10 24=0 14=5 24=8 14=0 24=0";
    const std::string whole = "0,0 640,0 640,480 0,480 ";
    const struct {
        const char* name;
        std::string groups;
        std::string outline; ///< tenths of pixels
    } cases[] = {
        {"two opposite corners", "70=7 280=1 " + rectangle, "0,100 200,100 200,0 0,0 "},
        {"polygon that closes itself", "70=7 280=1 " + triangle, "5,5 105,5 55,85 "},
        {"no flag", "70=3 280=1 " + triangle, whole},
        {"switched off", "70=7 280=0 " + triangle, whole},
        {"one vertex", "70=7 280=1 14=0 24=0", whole},
        {"inverted", "70=7 280=1 290=1 " + triangle, whole},
    };
    for (const auto& row : cases) {
        const auto image = std::get<Image>(readOne("0=IMAGE" + place + row.groups).geometry);
        EXPECT_EQ(textOf(image.outline()), row.outline) << row.name;
    }
}

TEST(Wipeouts, CoverTheirBoundary) {
    const std::string square = "0=WIPEOUT 10=190 20=34 11=16 12=0 22=14 13=1 23=1 ";
    const auto triangle = std::get<Wipeout>(readOne(square + "14=-0.5 24=0.5 14=0.5 24=0.5 14=0.5 24=-0.5").geometry);
    EXPECT_EQ(triangle.boundary, (std::vector<Vec3>{{190, 34, 0}, {206, 34, 0}, {206, 48, 0}}));
    EXPECT_EQ(std::get<Wipeout>(readOne(square).geometry).boundary.size(), 4U);
}

TEST(Frames, AreDrawnAsTheFileSays) {
    const struct {
        std::string groups;
        bool images, wipeouts;
    } cases[] = {
        {"", true, false},
        {section("HEADER", "9=$IMAGEFRAME 70=0"), false, false},
        {section("OBJECTS", "0=RASTERVARIABLES 70=0 0=WIPEOUTVARIABLES 70=1"), false, true},
        {section("OBJECTS", "0=RASTERVARIABLES 70=2 0=WIPEOUTVARIABLES 70=2"), false, false}, // on screen alone
    };
    for (const auto& row : cases) {
        const Drawing drawing = readGroups(section("ENTITIES", "") + row.groups + "0=EOF");
        EXPECT_EQ(drawing.imageFrames, row.images) << row.groups;
        EXPECT_EQ(drawing.wipeoutFrames, row.wipeouts) << row.groups;
    }
}

} // namespace
} // namespace kelplot
