// SPDX-License-Identifier: BSD-3-Clause
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/ClipRgn.h"
#include "keldriver/Utility.h"

namespace {

struct Piece {
    std::vector<HT_Double_Point> points;
    int closedFlag;
    unsigned char mode;
};

std::string textOf(const HT_Contour* contour) {
    if (contour == nullptr) {
        return "none";
    }
    std::string text = std::to_string(contour->closed) + "/" + std::to_string(contour->mode) + ":";
    char number[64];
    for (int i = 0; i < contour->count; ++i) {
        std::snprintf(number, sizeof number, " %g,%g", contour->points[i].x, contour->points[i].y);
        text += number;
    }
    return text;
}

std::string textOf(const HT_Region& region) {
    std::string text;
    for (const HT_Contour* contour : region.contours) {
        text += "[" + textOf(contour) + "] ";
    }
    return text + "open " + textOf(region.current);
}

const Piece triangle{{{0, 0}, {4, 0}, {4, 4}, {0, 0}}, 0, 7};
const Piece step{{{0, 0}, {1, 0}}, 0, 1};

TEST(Region, CollectsPieces) {
    const struct {
        const char* name;
        std::vector<Piece> pieces;
        const char* results; ///< one digit a piece
        const char* region;
    } rows[] = {
        {"too few points, flag or not", {{{}, 0, 1}, {{{1, 1}}, 1, 1}}, "00", "open none"},
        {"back to its start in two points", {{{{1, 1}, {1, 1}}, 0, 1}, {{{1, 1}, {1, 1}}, 1, 1}}, "00", "open none"},
        {"open piece", {step}, "1", "open 0/0: 0,0 1,0"},
        {"chained piece replaces the vertices but its first",
         {step, {{{1, 0}, {2, 0}}, 0, 1}, {{{2, 0}, {3, 0}, {3, 1}}, 0, 1}},
         "111",
         "open 0/0: 3,0 3,1"},
        {"elsewhere", {step, {{{5, 0}, {6, 0}}, 0, 1}}, "11", "[1/0: 0,0 1,0] open 0/0: 5,0 6,0"},
        {"near is not chained", {step, {{{1 + 1e-12, 0}, {2, 0}}, 0, 1}}, "11", "[1/0: 0,0 1,0] open 0/0: 1,0 2,0"},
        {"negative zero is another vertex",
         {{{{1, 1}, {0, 0}}, 0, 1}, {{{-0.0, 0}, {2, 0}}, 0, 1}},
         "11",
         "[1/0: 1,1 0,0] open 0/0: -0,0 2,0"},
        {"closed piece leaves the open contour open, and it still chains",
         {step, triangle, {{{1, 0}, {2, 0}}, 0, 1}},
         "111",
         "[1/7: 0,0 4,0 4,4 0,0] open 0/0: 2,0"},
        {"flagged though open", {step, {{{1, 0}, {2, 0}}, -1, 255}}, "11", "[1/255: 1,0 2,0] open 0/0: 0,0 1,0"},
        {"nearly closed", {{{{0, 0}, {4, 0}, {9e-11, -9e-11}}, 0, 3}}, "1", "[1/3: 0,0 4,0 9e-11,-9e-11] open none"},
        {"apart by the tolerance", {{{{0, 0}, {4, 0}, {0, 1e-10}}, 0, 3}}, "1", "open 0/0: 0,0 4,0 0,1e-10"},
    };
    for (const auto& row : rows) {
        HT_Region region;
        std::string results;
        for (const Piece& piece : row.pieces) {
            const int count = static_cast<int>(piece.points.size());
            results += std::to_string(region.AddPoints(piece.points.data(), count, piece.closedFlag, piece.mode));
        }
        EXPECT_EQ(results, row.results) << row.name;
        EXPECT_EQ(textOf(region), row.region) << row.name;
        const size_t finished = region.contours.size() + (region.current != nullptr ? 1 : 0);
        for (int time = 0; time < 2; ++time) {
            region.EndData();
            EXPECT_EQ(region.contours.size(), finished) << row.name;
            EXPECT_EQ(region.current, nullptr) << row.name;
        }
        region.Clear();
        EXPECT_TRUE(region.contours.empty()) << row.name;
    }
}

TEST(Region, NullPieceIsRefused) {
    HT_Region region;
    EXPECT_EQ(region.AddPoints(nullptr, 5, 1, 1), 0);
    EXPECT_EQ(textOf(region), "open none");
}

TEST(Region, ClearLeavesTheOpenContoursVerticesToTheDriver) {
    HT_Region region;
    region.AddPoints(triangle.points.data(), 4, 0, 1);
    region.AddPoints(triangle.points.data(), 2, 0, 1);
    HT_Double_Point* const vertices = region.current->points;
    region.Clear();
    EXPECT_TRUE(region.contours.empty());
    EXPECT_NE(region.current, nullptr);
    EXPECT_EQ(vertices[1].x, 4.0); // still there
    HT_Free(vertices);
}

TEST(Contour, AddPointReplacesEvenByItsOwnVertices) {
    HT_Contour contour{nullptr, 0, 1, 5};
    const HT_Double_Point points[] = {{0, 0}, {1, 0}, {2, 0}};
    EXPECT_EQ(contour.AddPoint(points, 3), 1);
    EXPECT_EQ(contour.AddPoint(contour.points + 1, 2), 1);
    EXPECT_EQ(textOf(&contour), "1/5: 1,0 2,0");
    EXPECT_EQ(contour.AddPoint(points, -4), 1);
    EXPECT_EQ(contour.count, -4);
    EXPECT_EQ(contour.AddPoint(nullptr, 2), 1);
    EXPECT_EQ(contour.points, nullptr);
    HT_Free(contour.points);
}

} // namespace
