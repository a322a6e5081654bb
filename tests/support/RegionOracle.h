// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "support/RgnList.h"

/// Region membership by counting crossings, and random regions to try it on.
namespace regionOracle {

using Points = std::vector<HT_Double_Point>;

struct Contour {
    int mode;
    Points points;
};

using Contours = std::vector<Contour>;

/// A place with more digits than points have.
struct Place {
    long double x;
    long double y;
};

/// Even-odd membership in one contour, whatever it crosses.
template <typename At = HT_Double_Point>
bool isInside(const Points& contour, const At& p) {
    using Real = decltype(p.x);
    bool inside = false;
    for (size_t i = 0; i < contour.size(); ++i) {
        const HT_Double_Point& a = contour[i];
        const HT_Double_Point& b = contour[(i + 1) % contour.size()];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (Real{b.x} - a.x) * ((p.y - a.y) / (Real{b.y} - a.y))) {
            inside = !inside;
        }
    }
    return inside;
}

/// One step of a fold: what was found so far, joined with a contour by its code.
inline bool joined(bool before, bool inside, int mode) {
    switch (mode) {
    case HT_RGN_AND:
        return before && inside;
    case HT_RGN_COPY:
        return inside;
    case HT_RGN_DIFF:
        return before && !inside;
    case HT_RGN_OR:
        return before || inside;
    case HT_RGN_XOR:
        return before != inside;
    default:
        return before;
    }
}

/// Membership in a region: its first contour, then every later one joined by its code.
template <typename At = HT_Double_Point>
bool isInside(const Contours& contours, const At& p) {
    bool inside = !contours.empty() && isInside(contours.front().points, p);
    for (size_t i = 1; i < contours.size(); ++i) {
        inside = joined(inside, isInside(contours[i].points, p), contours[i].mode);
    }
    return inside;
}

/// The same with the first contour that is no hole in the place of the first: the evaluation of a list starts with it.
inline Contours outerFirst(Contours contours) {
    const auto isOuter = [](const Contour& contour) {
        return contour.mode != HT_RGN_DIFF;
    };
    const auto outer = std::find_if(contours.begin(), contours.end(), isOuter);
    if (outer != contours.end()) {
        std::swap(contours.front(), *outer);
    }
    return contours;
}

template <typename At>
auto distanceToSegment(const At& p, const HT_Double_Point& a, const HT_Double_Point& b) {
    using Real = decltype(p.x);
    const Real dx = Real{b.x} - a.x;
    const Real dy = Real{b.y} - a.y;
    const Real squared = dx * dx + dy * dy;
    const Real t = squared > 0 ? std::clamp<Real>(((p.x - a.x) * dx + (p.y - a.y) * dy) / squared, 0, 1) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

/// Whether a point lies so near to an edge that rounding decides its side.
template <typename At>
bool isNearEdge(const Contours& contours, const At& p, decltype(p.x) distance) {
    for (const Contour& contour : contours) {
        for (size_t i = 0; i < contour.points.size(); ++i) {
            const HT_Double_Point& next = contour.points[(i + 1) % contour.points.size()];
            if (distanceToSegment(p, contour.points[i], next) < distance) {
                return true;
            }
        }
    }
    return false;
}

inline Contours toContours(const HT_ClipRgn* rgn) {
    Contours contours;
    for (; rgn; rgn = rgn->next) {
        const int count = rgn->points ? rgn->pointCount : 0;
        contours.push_back({rgn->mode, Points(rgn->points, rgn->points + count)});
    }
    return contours;
}

inline RgnList toList(const Contours& contours) {
    RgnList list;
    for (auto contour = contours.rbegin(); contour != contours.rend(); ++contour) {
        RgnList node(
            KelDriver::HT_CreatePolygonRgnData(contour->points.data(), static_cast<int>(contour->points.size())));
        node->mode = contour->mode;
        node->next = list.release();
        list = std::move(node);
    }
    return list;
}

/// The box that a region reports: left, bottom, right, top.
template <typename Region>
std::vector<double> boxOf(const Region& rgn) {
    HT_Double_Rectangle box{-1, -1, -1, -1};
    rgn.GetRgnBox(&box);
    return {box.minX, box.minY, box.maxX, box.maxY};
}

/// Regions of 1 to 12 contours that cross themselves, touch, coincide or lie within one another, in units that
/// differ from region to region.
class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    /// @param modes  the codes to choose from
    Contours region(const std::vector<int>& modes) {
        m_extent = std::pow(10.0, real(-3, 9));
        m_origin = {real(-1, 1) * m_extent * integer(0, 2), real(-1, 1) * m_extent * integer(0, 2)};
        Contours contours;
        for (int left = integer(1, 12); left > 0; --left) {
            const int mode = modes[static_cast<size_t>(integer(0, static_cast<int>(modes.size()) - 1))];
            contours.push_back({mode, contour(contours)});
        }
        return contours;
    }

    /// A point in the last region's extent, or beside one of its vertices.
    HT_Double_Point pointIn(const Contours& contours) {
        const Points& points = contours[static_cast<size_t>(integer(0, static_cast<int>(contours.size()) - 1))].points;
        if (points.empty() || integer(0, 1) == 0) {
            return point();
        }
        const HT_Double_Point& a = vertexOf(points);
        const HT_Double_Point& b = vertexOf(points);
        return {a.x + (b.x - a.x) * real(-0.2, 1.2), a.y + (b.y - a.y) * real(-0.2, 1.2)};
    }

    /// Rounding of crossings moves an edge by much less than this in the last region.
    double tolerance() const { return 1e-12 * (m_extent + std::max(std::fabs(m_origin.x), std::fabs(m_origin.y))); }

    double real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    int integer(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

private:
    HT_Double_Point point() { return {m_origin.x + real(0, m_extent), m_origin.y + real(0, m_extent)}; }

    HT_Double_Point gridPoint() {
        return {m_origin.x + m_extent / 8 * integer(0, 8), m_origin.y + m_extent / 8 * integer(0, 8)};
    }

    const HT_Double_Point& vertexOf(const Points& points) {
        return points[static_cast<size_t>(integer(0, static_cast<int>(points.size()) - 1))];
    }

    static Points rectangle(const HT_Double_Point& a, const HT_Double_Point& b) {
        return {a, {b.x, a.y}, b, {a.x, b.y}};
    }

    Points contour(const Contours& earlier) {
        Points points;
        const int count = integer(3, 10);
        switch (integer(0, 5)) {
        case 0: // crosses itself
            std::generate_n(std::back_inserter(points), count, [this] { return point(); });
            return points;
        case 1: // touches others, repeats vertices and edges, runs along the axes
            std::generate_n(std::back_inserter(points), count, [this] { return gridPoint(); });
            return points;
        case 2:
            return rectangle(point(), point());
        case 3:
            return rectangle(gridPoint(), gridPoint());
        case 4: { // very small beside the others
            const HT_Double_Point corner = point();
            const double size = m_extent * 1e-6;
            return {corner, {corner.x + size, corner.y}, {corner.x, corner.y + size}};
        }
        default: // shares edges with an earlier contour
            return earlier.empty() ? rectangle(point(), point()) : altered(earlier.back().points);
        }
    }

    Points altered(Points points) {
        if (integer(0, 1) == 0) {
            std::reverse(points.begin(), points.end());
        }
        if (integer(0, 1) == 0) {
            points[static_cast<size_t>(integer(0, static_cast<int>(points.size()) - 1))] = point();
        }
        return points;
    }

    std::mt19937 m_random;
    double m_extent = 1;
    HT_Double_Point m_origin{0, 0};
};

} // namespace regionOracle
