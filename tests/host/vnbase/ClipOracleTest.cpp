// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "host/vnbase/LineOracle.h"

namespace {

/// Random regions and polylines in a square.
class Drawings {
public:
    Drawings(uint64_t seed, double size, int lattice) : m_random(seed), m_size(size), m_lattice(lattice) {}

    Contours region() {
        Contours region(static_cast<size_t>(number(1, 12)));
        for (regionOracle::Contour& contour : region) {
            contour = {number(0, 5), line(number(2, 9))};
        }
        return region;
    }

    /// A polyline of some length.
    Line line(int count) {
        Line line(static_cast<size_t>(count));
        do {
            std::generate(line.begin(), line.end(), [this] { return point(); });
        } while (std::all_of(line.begin(), line.end(),
                             [&](const HT_Double_Point& p) { return p.x == line[0].x && p.y == line[0].y; }));
        return line;
    }

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }
    double share() { return std::uniform_real_distribution<double>(0, 1)(m_random); }

private:
    HT_Double_Point point() { return {coordinate(), coordinate()}; }

    /// Anywhere, or on a lattice so coarse that edges and segments meet, overlap and follow one another.
    double coordinate() {
        return m_size * (m_lattice > 0 ? double(number(0, m_lattice)) / m_lattice - 0.5 : share() - 0.5);
    }

    std::mt19937_64 m_random;
    double m_size;
    int m_lattice;
};

class ClipOracle : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(OnLattice, ClipOracle, testing::Values(0, 4, 7, 16)); // 0: scattered

TEST_P(ClipOracle, AgreesPieceByPiece) {
    constexpr double sizes[] = {1e-3, 1.0, 100.0, 2e4, 1e6, 1e9};
    const OracleGrain grain = GetParam() == 0 ? OracleGrain{1e-10L, 1e-9L} : OracleGrain{1e-9L, 1e-7L};
    for (uint64_t seed = 0; seed < 4000; ++seed) {
        const double size = sizes[seed % std::size(sizes)];
        Drawings drawings(seed, size, GetParam());
        const Contours region = drawings.region();
        const Line line = drawings.line(drawings.number(2, 14));
        const std::string difference = differenceFromOracle(region, line, size, grain, clip(region, line));
        ASSERT_EQ(difference, "") << "seed " << seed;
    }
}

/// The distance from a place to the nearest piece.
double distanceToPieces(const PieceList& pieces, const HT_Double_Point& p) {
    double least = INFINITY;
    for (const Piece& piece : pieces) {
        for (size_t i = 1; i < piece.size(); ++i) {
            const HT_Double_Point from{double(piece[i - 1][0]), double(piece[i - 1][1])};
            const HT_Double_Point to{double(piece[i][0]), double(piece[i][1])};
            least = std::min(least, regionOracle::distanceToSegment(p, from, to));
        }
    }
    return least;
}

TEST(ClipMembership, PlacesAlongTheLineAreInAPieceWhenTheRegionHoldsThem) {
    int inside = 0;
    int outside = 0;
    for (uint64_t seed = 0; seed < 5000; ++seed) {
        const double size = seed % 2 == 0 ? 1e5 : 1e9;
        Drawings drawings(seed, size, seed % 3 == 0 ? 12 : 0);
        const Contours region = regionOracle::outerFirst(drawings.region());
        const Line line = drawings.line(drawings.number(2, 14));
        const PieceList pieces = clip(region, line);
        for (size_t i = 1; i < line.size(); ++i) {
            const double t = drawings.share();
            const HT_Double_Point p{line[i - 1].x + t * (line[i].x - line[i - 1].x),
                                    line[i - 1].y + t * (line[i].y - line[i - 1].y)};
            if (isNearEdge(region, p, 3)) {
                continue; // the rounded pieces may reach here from the other side
            }
            const bool held = isInside(region, p);
            ++(held ? inside : outside);
            ASSERT_EQ(distanceToPieces(pieces, p) < 1.5, held) << "seed " << seed << " at " << p.x << ',' << p.y;
        }
    }
    EXPECT_GT(inside, 5000);
    EXPECT_GT(outside, 5000);
}

TEST(ClipMembership, AMillionVerticesComeOutInOrder) {
    Drawings drawings(1, 1e6, 0);
    Line line;
    for (int i = 0; i < 1000000; ++i) { // a spiral, vertex by vertex further out
        line.push_back({i * 0.5 * std::cos(i * 0.01), i * 0.5 * std::sin(i * 0.01)});
    }
    const Contours region = drawings.region();
    const PieceList pieces = clip(region, line);
    ASSERT_GT(pieces.size(), 100U);
    double radius = -1;
    for (const Piece& piece : pieces) {
        for (const auto& p : piece) {
            ASSERT_GE(std::hypot(p[0], p[1]), radius - 20.0); // a chord lies that much further in, at most
            radius = std::max(radius, std::hypot(p[0], p[1]));
        }
    }
}

} // namespace
