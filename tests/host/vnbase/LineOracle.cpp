// SPDX-License-Identifier: BSD-3-Clause
#include "host/vnbase/LineOracle.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace {

using regionOracle::Place;
using Path = std::vector<Place>;

/// Cuts one polyline.
class Oracle {
public:
    Oracle(const Contours& region, long double size, OracleGrain grain)
        : m_region(regionOracle::outerFirst(region)), m_same(size * grain.same), m_beside(size * grain.beside) {}

    std::vector<Path> clip(const Line& line) {
        for (size_t i = 1; i < line.size(); ++i) {
            clipSegment(line[i - 1], line[i]);
        }
        close();
        return m_paths;
    }

private:
    void clipSegment(const HT_Double_Point& from, const HT_Double_Point& to) {
        const long double wayX = static_cast<long double>(to.x) - from.x;
        const long double wayY = static_cast<long double>(to.y) - from.y;
        const long double length = std::hypot(wayX, wayY);
        if (length == 0) {
            return;
        }
        const auto placeAt = [&](long double t) {
            return Place{from.x + t * wayX, from.y + t * wayY};
        };
        const std::vector<long double> cuts = cutsOf(from, wayX, wayY);
        for (size_t i = 1; i < cuts.size(); ++i) {
            const bool inside = holds(placeAt((cuts[i - 1] + cuts[i]) / 2), -wayY / length, wayX / length);
            if (inside && m_open.empty()) {
                m_open.push_back(placeAt(cuts[i - 1]));
            } else if (!inside && !m_open.empty()) {
                if (i > 1) {
                    m_open.push_back(placeAt(cuts[i - 1]));
                }
                close();
            }
        }
        if (!m_open.empty()) {
            m_open.push_back({to.x, to.y});
        }
    }

    std::vector<long double> cutsOf(const HT_Double_Point& from, long double wayX, long double wayY) const {
        const long double length = std::hypot(wayX, wayY);
        std::vector<long double> found{0, 1};
        for (const regionOracle::Contour& contour : m_region) {
            for (size_t i = 0; contour.points.size() >= 3 && i < contour.points.size(); ++i) {
                const HT_Double_Point& a = contour.points[i];
                const HT_Double_Point& b = contour.points[(i + 1) % contour.points.size()];
                const long double offA = (wayX * (a.y - from.y) - wayY * (a.x - from.x)) / length;
                const long double offB = (wayX * (b.y - from.y) - wayY * (b.x - from.x)) / length;
                const long double alongA = (wayX * (a.x - from.x) + wayY * (a.y - from.y)) / length;
                const long double alongB = (wayX * (b.x - from.x) + wayY * (b.y - from.y)) / length;
                if (std::fabs(offA) < m_same) {
                    found.push_back(alongA / length);
                }
                if (std::fabs(offB) < m_same) {
                    found.push_back(alongB / length);
                }
                if (offA * offB < 0) {
                    found.push_back((alongA + (alongB - alongA) * offA / (offA - offB)) / length);
                }
            }
        }
        std::sort(found.begin(), found.end());
        std::vector<long double> cuts{0};
        for (const long double t : found) {
            if ((t - cuts.back()) * length > m_same && (1 - t) * length > m_same) {
                cuts.push_back(t);
            }
        }
        cuts.push_back(1);
        return cuts;
    }

    bool holds(const Place& p, long double normalX, long double normalY) const {
        if (!isNearEdge(m_region, p, m_same)) {
            return isInside(m_region, p);
        }
        return isInside(m_region, Place{p.x + normalX * m_beside, p.y + normalY * m_beside}) ||
               isInside(m_region, Place{p.x - normalX * m_beside, p.y - normalY * m_beside});
    }

    void close() {
        if (!m_open.empty()) {
            m_paths.push_back(m_open);
            m_open.clear();
        }
    }

    Contours m_region;
    long double m_same;
    long double m_beside;
    std::vector<Path> m_paths;
    Path m_open;
};

/// Whether a coordinate is the rounded value of one that is known up to `doubt`.
bool isRounded(int32_t rounded, long double value, long double doubt) {
    const long double limited = std::clamp<long double>(value, INT32_MIN, INT32_MAX);
    return std::fabs(static_cast<long double>(rounded) - limited) <= 0.5L + doubt;
}

} // namespace

std::string textOf(const PieceList& pieces) {
    std::ostringstream out;
    for (size_t i = 0; i < pieces.size(); ++i) {
        for (size_t k = 0; k < pieces[i].size(); ++k) {
            out << (k > 0 ? " " : i > 0 ? " | " : "") << pieces[i][k][0] << ',' << pieces[i][k][1];
        }
    }
    return out.str();
}

std::string differenceFromOracle(const Contours& region, const Line& line, long double size, OracleGrain grain,
                                 const PieceList& pieces) {
    const std::vector<Path> expected = Oracle(region, size, grain).clip(line);
    const long double doubt = size * 1e-9L;
    if (expected.size() != pieces.size()) {
        return std::to_string(pieces.size()) + " pieces instead of " + std::to_string(expected.size());
    }
    for (size_t i = 0; i < pieces.size(); ++i) {
        const auto isAsExpected = [&](const std::array<int32_t, 2>& vertex, const Place& place) {
            return isRounded(vertex[0], place.x, doubt) && isRounded(vertex[1], place.y, doubt);
        };
        if (!std::equal(pieces[i].begin(), pieces[i].end(), expected[i].begin(), expected[i].end(), isAsExpected)) {
            std::ostringstream out;
            out << "piece " << i << " is " << textOf({pieces[i]}) << " instead of";
            for (const Place& place : expected[i]) {
                out << ' ' << place.x << ',' << place.y;
            }
            return out.str();
        }
    }
    return {};
}
