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

} // namespace

std::vector<Contour> toContours(Paths&& paths) {
    struct Sized {
        Int128 area;
        Path* path;
    };
    Paths simple = withoutTouches(std::move(paths));
    std::vector<Sized> sizes;
    sizes.reserve(simple.size());
    for (Path& path : simple) {
        const Int128 area = path.size() < 3 ? 0 : doubleArea(path);
        if (area != 0) {
            sizes.push_back({area, &path});
        }
    }
    const auto size = [](const Sized& sized) {
        return sized.area < 0 ? -sized.area : sized.area;
    };
    std::stable_sort(sizes.begin(), sizes.end(), [&](const Sized& a, const Sized& b) { return size(a) > size(b); });
    std::vector<Contour> contours;
    contours.reserve(sizes.size());
    for (const Sized& sized : sizes) {
        contours.push_back({std::move(*sized.path), sized.area < 0});
    }
    return contours;
}

} // namespace tarsel
