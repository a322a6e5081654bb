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

private:
    HT_Double_Point point() { return {coordinate(), coordinate()}; }

    /// Anywhere, or on a lattice so coarse that edges and segments meet, overlap and follow one another.
    double coordinate() {
        return m_size * (m_lattice > 0 ? double(number(0, m_lattice)) / m_lattice - 0.5
                                       : std::uniform_real_distribution<double>(-0.5, 0.5)(m_random));
    }

    std::mt19937_64 m_random;
    double m_size;
    int m_lattice;
};

TEST(ClipOracle, AgreesPieceByPiece) {
    constexpr double sizes[] = {1e-3, 1.0, 100.0, 2e4, 1e6, 1e9};
    constexpr int lattices[] = {0, 4, 7, 16}; // 0: scattered
    for (uint64_t seed = 0; seed < 16000; ++seed) {
        const double size = sizes[seed / 4 % std::size(sizes)];
        const int lattice = lattices[seed % 4];
        const OracleGrain grain = lattice == 0 ? OracleGrain{1e-10L, 1e-9L} : OracleGrain{1e-9L, 1e-7L};
        Drawings drawings(seed, size, lattice);
        const Contours region = drawings.region();
        const Line line = drawings.line(drawings.number(2, 14));
        const std::string difference = differenceFromOracle(region, line, size, grain, clip(region, line));
        ASSERT_EQ(difference, "") << "seed " << seed;
    }
}

TEST(ClipOracle, AMillionVerticesComeOutInOrder) {
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
