// SPDX-License-Identifier: BSD-3-Clause
#include "Contours.h"

#include <algorithm>
#include <utility>

#include "Chains.h"
#include "Int128.h"

namespace tarsel {

namespace {

using ClipperLib::Path;
using ClipperLib::Paths;

/// Twice the signed area; positive for the turning direction of an outer contour.
Int128 doubleArea(const Path& path) {
    const ClipperLib::IntPoint origin = path.front();
    Int128 area = 0;
    for (size_t i = 2; i < path.size(); ++i) {
        const Int128 ax = path[i - 1].X - origin.X;
        const Int128 ay = path[i - 1].Y - origin.Y;
        area += ax * (path[i].Y - origin.Y) - ay * (path[i].X - origin.X);
    }
    return area;
}

/// Cuts contours apart where they touch.
///
/// @param resolved  receives whether that left contours of which each is an outer one or a hole as a whole
Paths cutApart(Paths&& paths, bool& resolved) {
    Chains chains(paths);
    std::vector<SharedPoint> shared = findSharedPoints(chains.points());
    if (shared.empty()) {
        resolved = true;
        return std::move(paths);
    }
    constexpr int rounds = 3; // an edge that gets a vertex may have to be linked anew there
    for (int round = 0; round < rounds; ++round) {
        Path passed = chains.uncross(shared);
        resolved = passed.empty();
        if (resolved || !chains.splitEdgesAt(std::move(passed))) {
            break;
        }
        shared = findSharedPoints(chains.points());
    }
    return chains.loops(shared);
}

/// What loops enclose under the even-odd rule, whichever way they turn.
Paths unite(const Paths& loops) {
    ClipperLib::Clipper clipper;
    clipper.AddPaths(loops, ClipperLib::ptSubject, true);
    Paths united;
    clipper.Execute(ClipperLib::ctUnion, united, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
    return united;
}

/// @param doubtful  receives whether the clipper's contours did not fit together at first
Paths withoutTouches(Paths&& paths, bool& doubtful) {
    // The clipper gets the turning direction of a contour wrong now and then where many edges meet at one point.
    constexpr int unions = 2;
    bool resolved = false;
    Paths loops = cutApart(std::move(paths), resolved);
    doubtful = !resolved;
    for (int i = 0; i < unions && !resolved; ++i) {
        loops = cutApart(unite(loops), resolved);
    }
    return loops;
}

/// Contours that enclose something, the larger ones first: none lies in a smaller one.
std::vector<Contour> sortedBySize(Paths&& paths) {
    struct Sized {
        Int128 size;
        Contour contour;
    };
    std::vector<Sized> sized;
    sized.reserve(paths.size());
    for (Path& path : paths) {
        const Int128 area = path.size() < 3 ? 0 : doubleArea(path);
        if (area != 0) {
            sized.push_back({area < 0 ? -area : area, {std::move(path), area < 0}});
        }
    }
    std::stable_sort(sized.begin(), sized.end(), [](const Sized& a, const Sized& b) { return a.size > b.size; });
    std::vector<Contour> contours;
    contours.reserve(sized.size());
    for (Sized& one : sized) {
        contours.push_back(std::move(one.contour));
    }
    return contours;
}

struct GridBox {
    explicit GridBox(const Path& path) : low(path.front()), high(path.front()) {
        for (const ClipperLib::IntPoint& point : path) {
            low = {std::min(low.X, point.X), std::min(low.Y, point.Y)};
            high = {std::max(high.X, point.X), std::max(high.Y, point.Y)};
        }
    }
    bool holds(const GridBox& other) const {
        return low.X <= other.low.X && low.Y <= other.low.Y && other.high.X <= high.X && other.high.Y <= high.Y;
    }

    ClipperLib::IntPoint low;
    ClipperLib::IntPoint high;
};

/// A hole that no outer contour can hold is none.
void correctHoles(std::vector<Contour>& contours) {
    std::vector<GridBox> outerBoxes;
    for (Contour& contour : contours) {
        const GridBox box(contour.path);
        const auto holdsContour = [&](const GridBox& outer) {
            return outer.holds(box);
        };
        contour.hole = contour.hole && std::any_of(outerBoxes.begin(), outerBoxes.end(), holdsContour);
        if (!contour.hole) {
            outerBoxes.push_back(box);
        }
    }
}

} // namespace

std::vector<Contour> toContours(Paths&& paths) {
    bool doubtful = false;
    std::vector<Contour> contours = sortedBySize(withoutTouches(std::move(paths), doubtful));
    if (doubtful) {
        correctHoles(contours);
    }
    return contours;
}

} // namespace tarsel
