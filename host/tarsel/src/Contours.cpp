// SPDX-License-Identifier: BSD-3-Clause
#include "Contours.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "Chains.h"
#include "Int128.h"

namespace tarsel {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

/// Twice the signed area; positive for the turning direction of an outer contour.
Int128 doubleArea(const Path& path) {
    const IntPoint origin = path.front();
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
/// @param resolved  receives whether each of the resulting contours is wholly an outer one or wholly a hole
Paths cutApart(Paths&& paths, bool& resolved) {
    Chains chains(paths);
    std::vector<SharedPoint> shared = findSharedPoints(chains.points());
    if (shared.empty()) {
        resolved = true;
        return std::move(paths);
    }
    constexpr int rounds = 3; // an edge that gets a vertex may have to be relinked there
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

Paths withoutTouches(Paths&& paths) {
    // The clipper gets the turning direction of a contour wrong now and then where many edges meet at one point.
    constexpr int unions = 2;
    bool resolved = false;
    Paths loops = cutApart(std::move(paths), resolved);
    for (int i = 0; i < unions && !resolved; ++i) {
        loops = cutApart(unite(loops), resolved);
    }
    return loops;
}

/// Contours that enclose something, the larger ones first.
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
    void add(const IntPoint& point) {
        low = {std::min(low.X, point.X), std::min(low.Y, point.Y)};
        high = {std::max(high.X, point.X), std::max(high.Y, point.Y)};
    }
    bool holds(const GridBox& other) const {
        return low.X <= other.low.X && low.Y <= other.low.Y && other.high.X <= high.X && other.high.Y <= high.Y;
    }
    bool meets(const GridBox& other) const {
        return low.X <= other.high.X && other.low.X <= high.X && low.Y <= other.high.Y && other.low.Y <= high.Y;
    }

    IntPoint low{INT64_MAX, INT64_MAX};
    IntPoint high{INT64_MIN, INT64_MIN};
};

GridBox boxOf(const Path& path) {
    GridBox box;
    std::for_each(path.begin(), path.end(), [&](const IntPoint& point) { box.add(point); });
    return box;
}

/// The boxes of outer contours, searched for one that holds a hole's.
class OuterBoxes {
public:
    void add(const GridBox& box) { m_boxes.push_back(box); }
    /// Looks around the box found last: neighbouring holes often lie in neighbouring contours.
    bool hold(const GridBox& hole) {
        const size_t count = m_boxes.size();
        for (size_t distance = 0; distance < count; ++distance) {
            for (const size_t i : {m_last + distance, m_last - distance}) { // one before the first wraps to no index
                if (i < count && m_boxes[i].holds(hole)) {
                    m_last = i;
                    return true;
                }
            }
        }
        return false;
    }

private:
    std::vector<GridBox> m_boxes;
    size_t m_last = 0;
};

/// A hole that comes before the outer contours around it.
struct EarlyHole {
    Contour contour;
    GridBox box;
    GridBox outerContours; ///< those since then that meet it
};

/// Puts holes after the outer contours that hold them. Only rounding can make a hole the larger one, where it runs
/// along all of its outer contour, or of several that touch.
std::vector<Contour> withHolesInside(std::vector<Contour>&& contours) {
    std::vector<Contour> ordered;
    ordered.reserve(contours.size());
    OuterBoxes outerBoxes;
    std::vector<EarlyHole> early;
    for (Contour& contour : contours) {
        const GridBox box = boxOf(contour.path);
        if (contour.hole && !outerBoxes.hold(box)) {
            early.push_back({std::move(contour), box, {}});
            continue;
        }
        ordered.push_back(std::move(contour));
        if (ordered.back().hole) {
            continue;
        }
        outerBoxes.add(box);
        const auto settled = std::stable_partition(early.begin(), early.end(), [&](EarlyHole& hole) {
            if (hole.box.meets(box)) {
                hole.outerContours.add(box.low);
                hole.outerContours.add(box.high);
            }
            return !hole.outerContours.holds(hole.box);
        });
        std::for_each(settled, early.end(), [&](EarlyHole& hole) { ordered.push_back(std::move(hole.contour)); });
        early.erase(settled, early.end());
    }
    for (EarlyHole& hole : early) {
        ordered.push_back(std::move(hole.contour));
    }
    return ordered;
}

} // namespace

std::vector<Contour> toContours(Paths&& paths) {
    return withHolesInside(sortedBySize(withoutTouches(std::move(paths))));
}

} // namespace tarsel
