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

    RegionModel region() {
        RegionModel region(static_cast<size_t>(number(1, 12)));
        for (ModelContour& contour : region) {
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

struct OracleRun {
    const char* name;
    int lattice; ///< 0: none
    OracleGrain grain;
};

std::ostream& operator<<(std::ostream& out, const OracleRun& run) {
    return out << run.name;
}

class ClipOracle : public testing::TestWithParam<OracleRun> {};

TEST_P(ClipOracle, AgreesPieceByPiece) {
    constexpr double sizes[] = {1e-3, 1.0, 100.0, 2e4, 1e6, 1e9};
    for (uint64_t seed = 0; seed < 4000; ++seed) {
        const double size = sizes[seed % std::size(sizes)];
        Drawings drawings(seed, size, GetParam().lattice);
        const RegionModel region = drawings.region();
        const Line line = drawings.line(drawings.number(2, 14));
        const std::string difference =
            differenceFromOracle(region, line, size, GetParam().grain, clipWithModule(region, line));
        ASSERT_EQ(difference, "") << "seed " << seed << region << "\n line:" << RegionModel{{0, line}};
    }
}

constexpr OracleRun runs[] = {
    {"scattered", 0, {1e-10L, 1e-9L}},
    {"lattice of 4", 4, {1e-9L, 1e-7L}},
    {"lattice of 7", 7, {1e-9L, 1e-7L}},
    {"lattice of 16", 16, {1e-9L, 1e-7L}},
};
INSTANTIATE_TEST_SUITE_P(Random, ClipOracle, testing::ValuesIn(runs));

/// The distance from a place to the nearest piece.
long double distanceToPieces(const PieceList& pieces, double x, double y) {
    long double least = INFINITY;
    for (const Piece& piece : pieces) {
        for (size_t i = 1; i < piece.size(); ++i) {
            const HT_Double_Point from{double(piece[i - 1][0]), double(piece[i - 1][1])};
            const HT_Double_Point to{double(piece[i][0]), double(piece[i][1])};
            least = std::min(least, distanceToSegment(from, to, x, y));
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
        const RegionModel region = drawings.region();
        const Line line = drawings.line(drawings.number(2, 14));
        const PieceList pieces = clipWithLibrary(region, line);
        for (size_t i = 1; i < line.size(); ++i) {
            const double t = drawings.share();
            const double x = line[i - 1].x + t * (line[i].x - line[i - 1].x);
            const double y = line[i - 1].y + t * (line[i].y - line[i - 1].y);
            if (distanceToEdges(region, x, y) < 3) {
                continue; // the rounded pieces may reach here from the other side
            }
            const bool held = modelHolds(region, x, y);
            ++(held ? inside : outside);
            ASSERT_EQ(distanceToPieces(pieces, x, y) < 1.5L, held)
                << "seed " << seed << " at " << x << ',' << y << region;
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
    const RegionModel region = drawings.region();
    const PieceList pieces = clipWithLibrary(region, line);
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
