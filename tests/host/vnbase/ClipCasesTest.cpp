// SPDX-License-Identifier: BSD-3-Clause
#include <dlfcn.h>

#include <gtest/gtest.h>

#include "host/vnbase/ClippedLine.h"

namespace {

constexpr const char* square = "0,0 100,0 100,100 0,100";
constexpr const char* pentagram = "0,-100 59,81 -95,-31 95,-31 -59,81";

constexpr const char* hole = "20,20 80,20 80,80 20,80";
constexpr const char* beside = "100,0 200,0 200,100 100,100";

struct ClipCase {
    const char* name;
    std::vector<std::pair<int32_t, const char*>> region;
    const char* line;
    const char* pieces;
};

const ClipCase clipCases[] = {
    {"around a corner", {{4, square}}, "-10,50 -10,-10 50,-10", ""},
    {"out and in again", {{4, square}}, "50,50 150,50 150,60 50,60", "50,50 100,50 | 100,60 50,60"},
    {"out and in on one pixel", {{4, square}}, "50,50 101,50.2 50,50.4", "50,50 100,50 | 100,50 50,50"},
    {"turns on the edge", {{4, square}}, "50,20 100,50 50,80", "50,20 100,50 50,80"},
    {"starts on the edge outwards", {{4, square}}, "0,50 -50,50", ""},
    {"ends on the edge", {{4, square}}, "-50,50 0,50", ""},
    {"repeated vertices outside", {{4, square}}, "-10,10 -10,10 20,10 120,10 120,10", "0,10 20,10 100,10"},
    {"vertices on one pixel stay", {{4, square}}, "10,10 10.1,10 10.2,10 10,9.8", "10,10 10,10 10,10 10,10"},
    {"dot inside", {{4, square}}, "10,10 10,10 10,10", "10,10 10,10"},
    {"dot on the edge", {{4, square}}, "0,10 0,10", "0,10 0,10"},
    {"dot outside", {{4, square}}, "-10,10 -10,10", ""},
    // Along and across edges.
    {"along the edge", {{4, square}}, "-50,0 150,0", "0,0 100,0"},
    {"edge beyond a corner, then in", {{4, square}}, "0,-50 0,150 50,50", "0,0 0,100 | 25,100 50,50"},
    {"slanted edge in thirds", {{4, "0,0 1,3 -9,0"}}, "-1,-3 0.1,0.3 0.7,2.1 2,6", "0,0 0,0 1,2 1,3"},
    {"through a corner", {{4, square}}, "-10,10 10,-10", ""},
    {"across a shared edge", {{4, square}, {3, beside}}, "50,50 150,50", "50,50 150,50"},
    {"along a shared edge", {{4, square}, {3, beside}}, "100,-50 100,150", "100,0 100,100"},
    {"along a shared edge, exclusive", {{4, square}, {4, beside}}, "100,-50 100,150", "100,0 100,100"},
    {"along the edge of what cancels out", {{4, square}, {4, square}}, "0,-50 0,150", ""},
    {"across a hole", {{4, square}, {2, hole}}, "-50,50 150,50", "0,50 20,50 | 80,50 100,50"},
    {"spike without area", {{4, "0,0 100,0 100,100 100,200 100,100 0,100"}}, "100,-50 100,250", "100,0 100,100"},
    {"no area at all", {{4, "0,0 100,100 50,50"}}, "0,0 100,100", ""},
    {"even-odd middle is out", {{4, pentagram}}, "-200,0 200,0", "-52,0 -33,0 | 33,0 52,0"},
    {"up the crossing of a bow tie", {{4, "0,0 100,100 100,0 0,100"}}, "50,0 50,100", ""},
    // Codes of contours.
    {"unknown code is left out", {{4, square}, {7, hole}}, "-50,50 150,50", "0,50 100,50"},
    {"bracket bits are unknown", {{4, square}, {0x102, hole}}, "-50,50 150,50", "0,50 100,50"},
    {"negative code is left out", {{4, square}, {-1, hole}}, "-50,50 150,50", "0,50 100,50"},
    {"first code does not matter", {{0, square}}, "-50,50 150,50", "0,50 100,50"},
    {"hole alone", {{2, square}}, "-50,50 150,50", "0,50 100,50"},
    {"hole first", {{2, hole}, {3, square}}, "-50,50 150,50", "0,50 20,50 | 80,50 100,50"},
    {"hole first, unknown code second", {{2, hole}, {9, square}}, "-9,50 109,50", "0,50 20,50 | 80,50 100,50"},
    {"and with two vertices", {{4, square}, {0, "0,0 100,100"}}, "-50,50 150,50", ""},
    {"and with a vertex at infinity", {{4, square}, {0, "0,0 inf,0 0,100"}}, "-50,50 150,50", ""},
    {"difference with not a number", {{4, square}, {2, "0,0 nan,0 0,100"}}, "-50,50 150,50", "0,50 100,50"},
    // Numbers.
    {"halves", {{4, "0.5,-10.5 10.5,-10.5 10.5,10.5 0.5,10.5"}}, "-5,3.5 20,3.5", "1,4 11,4"},
    {"negative halves", {{4, "-10.5,-9 -0.5,-9 -0.5,9 -10.5,9"}}, "-20,-2.5 20,-2.5", "-11,-3 -1,-3"},
    {"beyond the range", {{4, "-1e12,-9 1e12,-9 1e12,9 -1e12,9"}}, "-5e9,1 5e9,1", "-2147483648,1 2147483647,1"},
    {"from very far away", {{4, square}}, "1e300,50 50,50 50,1e300", "100,50 50,50 50,100"},
    {"largest doubles", {{4, "-1.7e308,-9 1.7e308,-9 1.7e308,9 -1.7e308,9"}}, "-1.7e308,5 7,5", "-2147483648,5 7,5"},
    {"huge hole", {{4, square}, {2, "50,-1e9 1e9,-1e9 1e9,1e9 50,1e9"}}, "-50,20 150,20", "0,20 50,20"},
    {"ends keep their pixel", {{4, "-2e9,-9 2e9,-9 2e9,9 -2e9,9"}}, "-1e9,0 0.49999997,0", "-1000000000,0 0,0"},
    {"a gap of the shortest piece",
     {{4, square}, {2, "50,-9 50.00000000096,-9 50.00000000096,9 50,9"}},
     "-50,5 150,5",
     "0,5 50,5 | 50,5 100,5"},
    {"a shorter gap", {{4, square}, {2, "50,-9 50.0000000009,-9 50.0000000009,9 50,9"}}, "-50,5 150,5", "0,5 100,5"},
    {"thin and long",
     {{4, "-1e9,0 1e9,0 1e9,0.001 -1e9,0.001"}},
     "7,-5 7,5 8,5 8,0.0005 9,0.0005",
     "7,0 7,0 | 8,0 8,0 9,0"},
    {"broken by infinity", {{4, square}}, "10,10 20,10 inf,10 30,10 40,10", "10,10 20,10 | 30,10 40,10"},
    {"broken by not a number", {{4, square}}, "10,10 20,nan 30,10 40,10 50,nan", "30,10 40,10"},
};

TEST(ClipCases, GiveThePieces) {
    for (const ClipCase& row : clipCases) {
        Contours region;
        for (const auto& [mode, points] : row.region) {
            region.push_back({mode, lineOf(points)});
        }
        const Line line = lineOf(row.line);
        EXPECT_EQ(textOf(clip(region, line)), row.pieces) << row.name;
    }
}

// A region whose edges lie side by side in one direction is sorted by that direction.
TEST(ClipRows, TheDirectionOfARowDoesNotMatter) {
    Line teeth = lineOf("600,-30 0,-30");
    for (int i = 0; i <= 200; ++i) {
        teeth.push_back({3.0 * i, i % 2 == 0 ? 0.0 : 100.0});
    }
    Contours region{{HT_RGN_OR, teeth}, {HT_RGN_DIFF, lineOf("50,20 550,20 550,40 50,40")}};
    regionOracle::Generator generator(9);
    Line line;
    std::generate_n(std::back_inserter(line), 2000, [&] {
        return HT_Double_Point{generator.real(-20, 620), generator.real(-40, 110)};
    });
    const PieceList lying = clip(region, line);
    EXPECT_GT(lying.size(), 2000U);
    for (Line* points : {&region[0].points, &region[1].points, &line}) {
        std::for_each(points->begin(), points->end(), [](HT_Double_Point& point) { std::swap(point.x, point.y); });
    }
    PieceList standing = clip(region, line);
    for (Piece& piece : standing) {
        std::for_each(piece.begin(), piece.end(), [](auto& vertex) { std::swap(vertex[0], vertex[1]); });
    }
    EXPECT_EQ(textOf(lying), textOf(standing));
}

TEST(ClipBoundary, NothingInGivesNothingOut) {
    const Line line = lineOf("10,10 20,20");
    const RgnList region = regionOracle::toList({{4, lineOf(square)}});
    const RgnList withoutPoints(new HT_ClipRgn{4, nullptr, 5, nullptr});
    const struct {
        const char* name;
        const HT_Double_Point* points;
        int count;
        const HT_ClipRgn* region;
    } cases[] = {
        {"no points", nullptr, 5, region.get()},   {"count 0", line.data(), 0, region.get()},
        {"count 1", line.data(), 1, region.get()}, {"negative count", line.data(), -7, region.get()},
        {"no region", line.data(), 2, nullptr},    {"contour without points", line.data(), 2, withoutPoints.get()},
    };
    void* const handle = dlopen(VNBASE_MODULE, RTLD_NOW);
    const auto clipLine =
        reinterpret_cast<int (*)(const HT_Double_Point*, int, const HT_ClipRgn*, int32_t**, int32_t**)>(
            dlsym(handle, "clipPolylineByPolygons"));
    ASSERT_NE(clipLine, nullptr) << dlerror();
    for (const auto& row : cases) {
        int32_t stale = 0;
        int32_t* coordinates = &stale;
        int32_t* counts = &stale;
        EXPECT_EQ(clipLine(row.points, row.count, row.region, &coordinates, &counts), 0) << row.name;
        EXPECT_EQ(coordinates, nullptr) << row.name;
        EXPECT_EQ(counts, nullptr) << row.name;
    }
    int32_t* out = nullptr;
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), nullptr, &out), 0);
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), &out, nullptr), 0);
    reinterpret_cast<void (*)(void*)>(dlsym(handle, "freeClipPolylineBuffer"))(nullptr);
    dlclose(handle);
}

} // namespace
