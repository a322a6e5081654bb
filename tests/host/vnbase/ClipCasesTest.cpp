#include <cmath>
#include <limits>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "host/vnbase/ClippedLine.h"

namespace {

constexpr const char* square = "0,0 100,0 100,100 0,100";
constexpr const char* pentagram = "0,-100 59,81 -95,-31 95,-31 -59,81";

struct ClipCase {
    const char* name;
    std::vector<std::pair<int32_t, const char*>> region;
    const char* line;
    const char* pieces;
};

std::ostream& operator<<(std::ostream& out, const ClipCase& row) {
    return out << row.name;
}

class ClipCases : public testing::TestWithParam<ClipCase> {};

TEST_P(ClipCases, GivesThePieces) {
    RegionModel region;
    for (const auto& [mode, points] : GetParam().region) {
        region.push_back({mode, lineOf(points)});
    }
    const Line line = lineOf(GetParam().line);
    EXPECT_EQ(textOf(clipWithModule(region, line)), GetParam().pieces);
    EXPECT_EQ(textOf(clipWithLibrary(region, line)), GetParam().pieces);
}

const ClipCase plainCases[] = {
    {"inside", {{4, square}}, "10,10 90,10 50,50", "10,10 90,10 50,50"},
    {"outside", {{4, square}}, "110,10 190,10", ""},
    {"around a corner", {{4, square}}, "-10,50 -10,-10 50,-10", ""},
    {"across", {{4, square}}, "-10,50 110,50", "0,50 100,50"},
    {"out and in again", {{4, square}}, "50,50 150,50 150,60 50,60", "50,50 100,50 | 100,60 50,60"},
    {"out and in on one pixel", {{4, square}}, "50,50 101,50.2 50,50.4", "50,50 100,50 | 100,50 50,50"},
    {"turns on the edge", {{4, square}}, "50,20 100,50 50,80", "50,20 100,50 50,80"},
    {"starts on the edge inwards", {{4, square}}, "0,50 50,50", "0,50 50,50"},
    {"starts on the edge outwards", {{4, square}}, "0,50 -50,50", ""},
    {"ends on the edge", {{4, square}}, "-50,50 0,50", ""},
    {"repeated vertices", {{4, square}}, "10,10 10,10 20,20 20,20", "10,10 20,20"},
    {"repeated vertices outside", {{4, square}}, "-10,10 -10,10 20,10 120,10 120,10", "0,10 20,10 100,10"},
    {"vertices on one pixel stay", {{4, square}}, "10,10 10.1,10 10.2,10 10,9.8", "10,10 10,10 10,10 10,10"},
    {"dot inside", {{4, square}}, "10,10 10,10 10,10", "10,10 10,10"},
    {"dot on the edge", {{4, square}}, "0,10 0,10", "0,10 0,10"},
    {"dot outside", {{4, square}}, "-10,10 -10,10", ""},
    {"region drawn the other way", {{4, "0,0 0,100 100,100 100,0"}}, "-10,50 110,50", "0,50 100,50"},
    {"region with its first vertex repeated", {{4, "0,0 100,0 100,100 0,100 0,0"}}, "-9,5 109,5", "0,5 100,5"},
};

const ClipCase edgeCases[] = {
    {"along the edge", {{4, square}}, "-50,0 150,0", "0,0 100,0"},
    {"part of the edge", {{4, square}}, "20,100 30,100", "20,100 30,100"},
    {"edge beyond a corner, then in", {{4, square}}, "0,-50 0,150 50,50", "0,0 0,100 | 25,100 50,50"},
    {"all around", {{4, square}}, "0,0 100,0 100,100 0,100 0,0", "0,0 100,0 100,100 0,100 0,0"},
    {"slanted edge", {{4, "0,0 90,30 0,60"}}, "-30,-10 120,40", "0,0 90,30"},
    {"slanted edge in thirds", {{4, "0,0 1,3 -9,0"}}, "-1,-3 0.1,0.3 0.7,2.1 2,6", "0,0 0,0 1,2 1,3"},
    {"through a corner", {{4, square}}, "-10,10 10,-10", ""},
    {"diagonal through two corners", {{4, square}}, "-10,-10 110,110", "0,0 100,100"},
    {"through a touching corner",
     {{4, square}, {3, "100,100 200,100 200,200 100,200"}},
     "50,50 150,150",
     "50,50 150,150"},
    {"across a shared edge", {{4, square}, {3, "100,0 200,0 200,100 100,100"}}, "50,50 150,50", "50,50 150,50"},
    {"along a shared edge", {{4, square}, {3, "100,0 200,0 200,100 100,100"}}, "100,-50 100,150", "100,0 100,100"},
    {"along a shared edge, exclusive",
     {{4, square}, {4, "100,0 200,0 200,100 100,100"}},
     "100,-50 100,150",
     "100,0 100,100"},
    {"along the edge of what cancels out", {{4, square}, {4, square}}, "0,-50 0,150", ""},
    {"hole's edge", {{4, square}, {2, "20,20 80,20 80,80 20,80"}}, "-50,20 150,20", "0,20 100,20"},
    {"across a hole", {{4, square}, {2, "20,20 80,20 80,80 20,80"}}, "-50,50 150,50", "0,50 20,50 | 80,50 100,50"},
    {"hole that shares an edge", {{4, square}, {2, "0,20 50,20 50,80 0,80"}}, "0,-50 0,150", "0,0 0,20 | 0,80 0,100"},
    {"spike without area", {{4, "0,0 100,0 100,100 100,200 100,100 0,100"}}, "100,-50 100,250", "100,0 100,100"},
    {"no area at all", {{4, "0,0 100,100 50,50"}}, "0,0 100,100", ""},
    {"even-odd middle is out", {{4, pentagram}}, "-200,0 200,0", "-52,0 -33,0 | 33,0 52,0"},
    {"through the crossing of a bow tie", {{4, "0,0 100,100 100,0 0,100"}}, "0,50 100,50", "0,50 100,50"},
    {"up the crossing of a bow tie", {{4, "0,0 100,100 100,0 0,100"}}, "50,0 50,100", ""},
};

const ClipCase joinCases[] = {
    {"and", {{4, square}, {0, "50,-50 150,-50 150,150 50,150"}}, "-50,50 250,50", "50,50 100,50"},
    {"and apart", {{4, square}, {0, "200,0 300,0 300,100 200,100"}}, "-50,50 350,50", ""},
    {"or over and apart",
     {{4, square}, {0, "200,0 300,0 300,9 200,9"}, {3, "400,0 500,0 500,99 400,99"}},
     "-50,5 550,5",
     "400,5 500,5"},
    {"copy", {{4, square}, {1, "200,0 300,0 300,100 200,100"}}, "-50,50 350,50", "200,50 300,50"},
    {"difference", {{4, square}, {2, "50,-50 150,-50 150,150 50,150"}}, "-50,50 250,50", "0,50 50,50"},
    {"or", {{4, square}, {3, "50,-50 150,-50 150,150 50,150"}}, "-50,50 250,50", "0,50 150,50"},
    {"exclusive or",
     {{4, square}, {4, "50,-50 150,-50 150,150 50,150"}},
     "-50,50 250,50",
     "0,50 50,50 | 100,50 150,50"},
    {"unknown code is left out", {{4, square}, {7, "10,10 90,10 90,90 10,90"}}, "-50,50 150,50", "0,50 100,50"},
    {"bracket bits are unknown", {{4, square}, {0x102, "10,10 90,10 90,90 10,90"}}, "-50,50 150,50", "0,50 100,50"},
    {"negative code is left out", {{4, square}, {-1, "10,10 90,10 90,90 10,90"}}, "-50,50 150,50", "0,50 100,50"},
    {"first code does not matter", {{0, square}}, "-50,50 150,50", "0,50 100,50"},
    {"hole alone", {{2, square}}, "-50,50 150,50", "0,50 100,50"},
    {"hole first", {{2, "20,20 80,20 80,80 20,80"}, {3, square}}, "-50,50 150,50", "0,50 20,50 | 80,50 100,50"},
    {"hole first, unknown code second",
     {{2, "20,20 80,20 80,80 20,80"}, {9, square}},
     "-9,50 109,50",
     "0,50 20,50 | 80,50 100,50"},
    {"order matters",
     {{4, square}, {2, "20,-9 80,-9 80,109 20,109"}, {3, "40,40 60,40 60,60 40,60"}},
     "-9,50 109,50",
     "0,50 20,50 | 40,50 60,50 | 80,50 100,50"},
    {"and with two vertices", {{4, square}, {0, "0,0 100,100"}}, "-50,50 150,50", ""},
    {"or with two vertices", {{4, square}, {3, "0,0 300,300"}}, "-50,50 150,50", "0,50 100,50"},
    {"and with a vertex at infinity", {{4, square}, {0, "0,0 inf,0 0,100"}}, "-50,50 150,50", ""},
    {"difference with not a number", {{4, square}, {2, "0,0 nan,0 0,100"}}, "-50,50 150,50", "0,50 100,50"},
};

const ClipCase numberCases[] = {
    {"halves", {{4, "0.5,-10.5 10.5,-10.5 10.5,10.5 0.5,10.5"}}, "-5,3.5 20,3.5", "1,4 11,4"},
    {"negative halves", {{4, "-10.5,-9 -0.5,-9 -0.5,9 -10.5,9"}}, "-20,-2.5 20,-2.5", "-11,-3 -1,-3"},
    {"beyond the range",
     {{4, "-1e12,-1e12 1e12,-1e12 1e12,1e12 -1e12,1e12"}},
     "-5e9,1 5e9,1",
     "-2147483648,1 2147483647,1"},
    {"small in the middle of far", {{4, square}}, "-1e9,50 1e9,50", "0,50 100,50"},
    {"from very far away", {{4, square}}, "1e300,50 50,50 50,1e300", "100,50 50,50 50,100"},
    {"largest doubles",
     {{4, "-1.7e308,-1.7e308 1.7e308,-1.7e308 1.7e308,1.7e308 -1.7e308,1.7e308"}},
     "-1.7e308,5 7,5",
     "-2147483648,5 7,5"},
    {"small part of a huge hole's border",
     {{4, square}, {2, "50,-1e9 1e9,-1e9 1e9,1e9 50,1e9"}},
     "-50,20 150,20",
     "0,20 50,20"},
    {"thin and long",
     {{4, "-1e9,0 1e9,0 1e9,0.001 -1e9,0.001"}},
     "7,-5 7,5 8,5 8,0.0005 9,0.0005",
     "7,0 7,0 | 8,0 8,0 9,0"},
    {"broken by infinity", {{4, square}}, "10,10 20,10 inf,10 30,10 40,10", "10,10 20,10 | 30,10 40,10"},
    {"broken by not a number", {{4, square}}, "10,10 20,nan 30,10 40,10 50,nan", "30,10 40,10"},
};

INSTANTIATE_TEST_SUITE_P(Plain, ClipCases, testing::ValuesIn(plainCases));
INSTANTIATE_TEST_SUITE_P(Edges, ClipCases, testing::ValuesIn(edgeCases));
INSTANTIATE_TEST_SUITE_P(Joins, ClipCases, testing::ValuesIn(joinCases));
INSTANTIATE_TEST_SUITE_P(Numbers, ClipCases, testing::ValuesIn(numberCases));

TEST(ClipBoundary, NothingInGivesNothingOut) {
    const Line line = lineOf("10,10 20,20");
    const RgnList region = listOf({{4, lineOf(square)}});
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
    for (const auto& row : cases) {
        int32_t stale = 0;
        int32_t* coordinates = &stale;
        int32_t* counts = &stale;
        EXPECT_EQ(module().clip(row.points, row.count, row.region, &coordinates, &counts), 0) << row.name;
        EXPECT_EQ(coordinates, nullptr) << row.name;
        EXPECT_EQ(counts, nullptr) << row.name;
    }
    int32_t* out = nullptr;
    EXPECT_EQ(module().clip(line.data(), 2, region.get(), nullptr, &out), 0);
    EXPECT_EQ(module().clip(line.data(), 2, region.get(), &out, nullptr), 0);
    module().free(nullptr);
}

TEST(ClipBoundary, TheLibraryFindsTheModuleBesideItself) {
    const Line line = lineOf("-50,50 150,50");
    ASSERT_EQ(clipWithLibrary({{4, lineOf(square)}}, line).size(), 1U);
    void* handle = dlopen(VNBASE_MODULE, RTLD_NOW | RTLD_NOLOAD); // by the library, at load time
    ASSERT_NE(handle, nullptr);
    dlclose(handle);
}

} // namespace
