// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "host/vnbase/LineOracle.h"
#include "keldriver/ClipLine.h"
#include "keldriver/Utility.h"

namespace {

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

/// Points from text, "x,y x,y …".
Line lineOf(const std::string& text) {
    std::istringstream in(text);
    Line line;
    for (std::string x, y; std::getline(in, x, ',') && in >> y;) {
        line.push_back({std::stod(x), std::stod(y)});
    }
    return line;
}

/// A region from text, "code points / code points …", where a name stands for a shape's points.
Contours regionOf(const std::string& text, std::map<std::string, std::string>& shapes) {
    std::istringstream in(text);
    Contours region;
    for (std::string contour; std::getline(in >> std::ws, contour, '/');) {
        const size_t blank = contour.find(' ');
        const std::string points = contour.substr(blank + 1, contour.find_last_not_of(' ') - blank);
        const std::string& shape = shapes[points];
        region.push_back({std::stoi(contour, nullptr, 0), lineOf(shape.empty() ? points : shape)});
    }
    return region;
}

TEST(Clip, CasesGiveTheirPieces) {
    std::ifstream file(CLIP_CASES);
    ASSERT_TRUE(file) << CLIP_CASES;
    std::map<std::string, std::string> shapes;
    for (std::string text; std::getline(file, text);) {
        const size_t name = text.find(": ");
        const size_t line = text.find(" => ");
        const size_t pieces = text.find(" =>", line + 4);
        if (text.empty() || text[0] == '#') {
            continue;
        }
        if (const size_t equals = text.find(" = "); equals != std::string::npos) {
            shapes[text.substr(0, equals)] = text.substr(equals + 3);
            continue;
        }
        const Contours region = regionOf(text.substr(name + 2, line - name - 2), shapes);
        const PieceList found = clip(region, lineOf(text.substr(line + 4, pieces - line - 4)));
        EXPECT_EQ(" =>" + (found.empty() ? "" : " " + textOf(found)), text.substr(pieces)) << text;
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
    Line teeth = lineOf("600,-30 0,-30");
    for (int i = 0; i <= 200; ++i) {
        teeth.push_back({3.0 * i, i % 2 == 0 ? 0.0 : 100.0});
    }
    Contours region{{HT_RGN_OR, teeth}, {HT_RGN_DIFF, lineOf("50,20 550,20 550,40 50,40")}};
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
    const Line line = lineOf("10,10 20,20");
    const RgnList region = regionOracle::toList({{4, lineOf("0,0 100,0 100,100 0,100")}});
    const HT_ClipRgn withoutPoints{4, nullptr, 5, nullptr};
    const struct {
        const char* name;
        const HT_Double_Point* points;
        int count;
        const HT_ClipRgn* region;
    } cases[] = {
        {"no points", nullptr, 5, region.get()},   {"count 0", line.data(), 0, region.get()},
        {"count 1", line.data(), 1, region.get()}, {"negative count", line.data(), -7, region.get()},
        {"no region", line.data(), 2, nullptr},    {"contour without points", line.data(), 2, &withoutPoints},
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
        EXPECT_TRUE(coordinates == nullptr && counts == nullptr) << row.name;
    }
    int32_t* out = nullptr;
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), nullptr, &out), 0);
    EXPECT_EQ(clipLine(line.data(), 2, region.get(), &out, nullptr), 0);
    reinterpret_cast<void (*)(void*)>(dlsym(handle, "freeClipPolylineBuffer"))(nullptr);
    dlclose(handle);
}

} // namespace
