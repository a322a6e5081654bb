// SPDX-License-Identifier: BSD-3-Clause
#include <string>

#include <gtest/gtest.h>

#include "keldriver/VornRgn.h"
#include "support/RegionOracle.h"

// Expressions with brackets. One opening step (0x100) is 256 brackets, one closing step (0x1000) is 4096.

namespace {

using regionOracle::Contours;
using regionOracle::Points;

constexpr int openAll = 0xF00;  // 3840 brackets
constexpr int openRest = 0x100; // 256 more make one closing step
constexpr int closeOnce = 0x1000;
constexpr int closeFifteen = 0xF000; // closes 61440

Points strip(double from, double to) {
    return {{from, 0}, {to, 0}, {to, 1}, {from, 1}};
}

void setContours(CVornRgn& rgn, const Contours& contours) {
    rgn.DeleteObject();
    rgn.m_nType = 2;
    rgn.m_pClipRgn = regionOracle::toList(contours).release();
}

/// Which of the unit fields from 0 to 9 belong to a region, as a row of "#" and ".".
std::string fieldsOf(CVornRgn& rgn) {
    const Contours contours = regionOracle::toContours(rgn.GetClipRgnRef());
    std::string fields;
    for (int field = 0; field < 10; ++field) {
        fields += isInside(contours, {field + 0.5, 0.5}) ? '#' : '.';
    }
    return fields;
}

TEST(StandardRgn, EvaluatesExpressions) {
    const struct {
        const char* name;
        Contours contours;
        std::string fields;
    } rows[] = {
        {"no contours", {}, ".........."},
        {"starts empty: and", {{HT_RGN_AND, strip(0, 5)}}, ".........."},
        {"only the low byte is an operation",
         {{HT_RGN_OR, strip(0, 8)}, {0x10000 | HT_RGN_DIFF, strip(2, 4)}},
         "##..####.."},
        {"an unknown operation intersects", {{HT_RGN_OR, strip(0, 8)}, {7, strip(2, 4)}}, "..##......"},
        {"the points of a closing contour are not used",
         {{HT_RGN_OR, strip(0, 2)},
          {openAll | HT_RGN_OR, strip(3, 4)},
          {openRest | HT_RGN_OR, strip(5, 6)},
          {closeOnce | HT_RGN_OR, strip(0, 9)}},
         "##.#.#...."},
        {"a contour that opens and closes closes the difference",
         {{HT_RGN_OR, strip(0, 9)},
          {openAll | HT_RGN_DIFF, strip(2, 4)},
          {closeOnce | 0x100 | HT_RGN_OR, strip(5, 6)}}, // 3840 of them
         "##..#####."},
        {"brackets that stay open leave what is in them",
         {{HT_RGN_OR, strip(0, 9)}, {openRest | HT_RGN_DIFF, strip(2, 4)}},
         "..##......"},
    };
    for (const auto& row : rows) {
        CVornRgn rgn;
        setContours(rgn, row.contours);
        rgn.StandardRgn();
        EXPECT_EQ(fieldsOf(rgn), row.fields) << row.name;
        const bool isEmpty = row.fields.find('#') == std::string::npos;
        EXPECT_EQ(rgn.m_nType == 3, isEmpty) << row.name;
    }
}

TEST(StandardRgn, ClosingTooManyBracketsLeavesTheRegionAsItWas) {
    const struct {
        const char* name;
        Contours contours;
    } rows[] = {
        {"nothing open", {{HT_RGN_OR, strip(0, 9)}, {closeOnce, {}}, {HT_RGN_DIFF, strip(2, 3)}}},
        {"256 short", {{HT_RGN_OR, strip(0, 9)}, {openAll | HT_RGN_DIFF, strip(1, 6)}, {closeOnce, {}}}},
        {"right at first, then too many",
         {{HT_RGN_OR, strip(0, 9)},
          {openAll | HT_RGN_DIFF, strip(1, 6)},
          {openRest | HT_RGN_OR, strip(1, 6)},
          {closeOnce, {}},
          {closeFifteen, {}}}},
    };
    for (const auto& row : rows) {
        CVornRgn rgn;
        setContours(rgn, row.contours);
        rgn.m_rcBox = {1, 2, 3, 4};
        const HT_ClipRgn* const list = rgn.m_pClipRgn;
        rgn.StandardRgn();
        EXPECT_EQ(rgn.m_pClipRgn, list) << row.name;
        EXPECT_EQ(regionOracle::toContours(list).size(), row.contours.size()) << row.name;
        EXPECT_EQ(rgn.m_rcBox.maxY, 4) << row.name;
    }
}

// Every level may hold 3840 brackets; copies of the region for each would fill any memory.
TEST(StandardRgn, ManyBracketsAroundLargeContours) {
    Points circle;
    for (int i = 0; i < 20000; ++i) {
        circle.push_back(
            {5 + 4 * std::cos(i * 3.141592653589793 / 10000), 0.5 + 4 * std::sin(i * 3.141592653589793 / 10000)});
    }
    Contours contours;
    for (int level = 0; level < 64; ++level) {
        contours.push_back({openAll | HT_RGN_AND, circle});
    }
    CVornRgn rgn;
    setContours(rgn, contours);
    rgn.StandardRgn();
    EXPECT_EQ(fieldsOf(rgn), ".########.");
}

} // namespace
