// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstring>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "host/vnbase/LineOracle.h"
#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"
#include "support/RegionCases.h"

namespace {

using regionCases::contoursOf;
using regionCases::pointsOf;

/// Clips through the shared library, which loads the module from the build.
PieceList clip(const Contours& region, const Line& line) {
    HT_PointerArray records(0, nullptr, HT_Free);
    const RgnList list = regionOracle::toList(region);
    const int pieceCount = HT_ClipLine(list.get(), line.data(), static_cast<int>(line.size()), &records);
    EXPECT_EQ(pieceCount, records.GetCount());
    PieceList pieces;
    for (int i = 0; i < pieceCount; ++i) {
        const auto* bytes = static_cast<const char*>(records.GetData(i));
        int32_t count = 0;
        std::memcpy(&count, bytes, sizeof count);
        Piece& piece = pieces.emplace_back();
        for (int32_t k = 0; k < count; ++k) {
            double xy[2];
            std::memcpy(xy, bytes + sizeof count + sizeof xy * static_cast<size_t>(k), sizeof xy);
            piece.push_back({static_cast<int32_t>(xy[0]), static_cast<int32_t>(xy[1])});
        }
    }
    records.Clear();
    return pieces;
}

// The outcome of a case is its polyline and, behind another arrow, the pieces.
TEST(Clip, CasesGiveTheirPieces) {
    for (const regionCases::Case& each : regionCases::read(CLIP_CASES)) {
        const size_t arrow = each.outcome.find(" =>");
        const PieceList found = clip(contoursOf(each.input), pointsOf(each.outcome.substr(0, arrow)));
        EXPECT_EQ(" =>" + (found.empty() ? "" : " " + textOf(found)), each.outcome.substr(arrow)) << each.place;
    }
}

/// A polyline in a square around the origin, anywhere or on a lattice so coarse that edges and segments meet, overlap
/// and follow one another. It is no dot.
Line randomLine(regionOracle::Generator& random, int count, double size, int lattice) {
    const auto coordinate = [&] {
        return size * (lattice > 0 ? double(random.integer(0, lattice)) / lattice - 0.5 : random.real(-0.5, 0.5));
    };
    Line line(static_cast<size_t>(count));
    do {
        std::generate(line.begin(), line.end(), [&] { return HT_Double_Point{coordinate(), coordinate()}; });
    } while (std::all_of(line.begin(), line.end(),
                         [&](const HT_Double_Point& p) { return p.x == line[0].x && p.y == line[0].y; }));
    return line;
}

TEST(Clip, AgreesWithTheOraclePieceByPiece) {
    constexpr double sizes[] = {1e-3, 1.0, 100.0, 2e4, 1e6, 1e9};
    constexpr int lattices[] = {0, 4, 7, 16}; // 0: scattered
    for (unsigned seed = 0; seed < 16000; ++seed) {
        const double size = sizes[seed / 4 % std::size(sizes)];
        const int lattice = lattices[seed % 4];
        const OracleGrain grain = lattice == 0 ? OracleGrain{1e-10L, 1e-9L} : OracleGrain{1e-9L, 1e-7L};
        regionOracle::Generator random(seed);
        Contours region(static_cast<size_t>(random.integer(1, 12)));
        for (regionOracle::Contour& contour : region) {
            contour = {random.integer(0, 5), randomLine(random, random.integer(2, 9), size, lattice)};
        }
        const Line line = randomLine(random, random.integer(2, 14), size, lattice);
        const std::string difference = differenceFromOracle(region, line, size, grain, clip(region, line));
        ASSERT_EQ(difference, "") << "seed " << seed;
    }
}

// A region whose edges lie side by side in one direction is sorted by that direction.
TEST(Clip, LongLinesOverRowsOfTeethAgreeWithTheOracleWhicheverWayTheyRun) {
    Line teeth = pointsOf("600,-30 0,-30");
    for (int i = 0; i <= 200; ++i) {
        teeth.push_back({3.0 * i, i % 2 == 0 ? 0.0 : 100.0});
    }
    Contours region{{HT_RGN_OR, teeth}, {HT_RGN_DIFF, pointsOf("50,20 550,20 550,40 50,40")}};
    regionOracle::Generator random(9);
    Line line = randomLine(random, 2000, 640, 0);
    for (const bool isLying : {true, false}) {
        const PieceList pieces = clip(region, line);
        EXPECT_GT(pieces.size(), 2000U);
        EXPECT_EQ(differenceFromOracle(region, line, 640, {1e-10L, 1e-9L}, pieces), "") << isLying;
        for (Line* points : {&region[0].points, &region[1].points, &line}) {
            std::for_each(points->begin(), points->end(), [](HT_Double_Point& p) { std::swap(p.x, p.y); });
        }
    }
}

TEST(Clip, NothingInGivesNothingOut) {
    const Line line = pointsOf("10,10 20,20");
    const RgnList region = regionOracle::toList({{4, pointsOf("0,0 100,0 100,100 0,100")}});
    const HT_ClipRgn withoutPoints{4, nullptr, 5, nullptr};
    void* const handle = dlopen(VNBASE_MODULE, RTLD_NOW);
    const auto clipLine =
        reinterpret_cast<int (*)(const HT_Double_Point*, int, const HT_ClipRgn*, int32_t**, int32_t**)>(
            dlsym(handle, "clipPolylineByPolygons"));
    ASSERT_NE(clipLine, nullptr) << dlerror();
    const auto givesNothing = [&](const HT_Double_Point* points, int count, const HT_ClipRgn* rgn) {
        int32_t stale = 0;
        int32_t* coordinates = &stale;
        int32_t* counts = &stale;
        return clipLine(points, count, rgn, &coordinates, &counts) == 0 && coordinates == nullptr && counts == nullptr;
    };
    EXPECT_TRUE(givesNothing(nullptr, 5, region.get()));
    for (const int count : {0, 1, -7}) {
        EXPECT_TRUE(givesNothing(line.data(), count, region.get())) << count;
    }
    EXPECT_TRUE(givesNothing(line.data(), 2, nullptr));
    EXPECT_TRUE(givesNothing(line.data(), 2, &withoutPoints));
    int32_t* out = nullptr;
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), nullptr, &out), 0);
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), &out, nullptr), 0);
    reinterpret_cast<void (*)(void*)>(dlsym(handle, "freeClipPolylineBuffer"))(nullptr);
    dlclose(handle);
}

} // namespace
