// SPDX-License-Identifier: BSD-3-Clause
#include "EngineSides.h"

#include <cmath>
#include <vector>

namespace {

constexpr double gridScale = 1099511627776.0; // 2^40, for coordinates up to 2^10: 50 bits

/// A polygon of one contour over vertices of its own.
struct OneContour {
    explicit OneContour(const Outline& outline) {
        for (const HT_Double_Point& point : outline) {
            vertices.push_back({point.x, point.y});
        }
        list = {static_cast<int>(vertices.size()), vertices.data()};
    }
    gpc_polygon polygon() { return {1, &hole, &list}; }

    std::vector<gpc_vertex> vertices;
    gpc_vertex_list list{};
    int hole = 0;
};

double areaOf(const gpc_polygon& polygon) {
    double area = 0.0;
    for (int i = 0; i < polygon.num_contours; ++i) {
        const gpc_vertex_list& contour = polygon.contour[i];
        Outline outline;
        for (int k = 0; k < contour.num_vertices; ++k) {
            outline.push_back({contour.vertex[k].x, contour.vertex[k].y});
        }
        const double enclosed = std::abs(signedArea(outline.data(), outline.size()));
        area += polygon.hole[i] != 0 ? -enclosed : enclosed;
    }
    return area;
}

ClipperLib::ClipType clipTypeOf(gpc_op op) {
    switch (op) {
    case GPC_INT:
        return ClipperLib::ctIntersection;
    case GPC_UNION:
        return ClipperLib::ctUnion;
    case GPC_DIFF:
        return ClipperLib::ctDifference;
    default:
        return ClipperLib::ctXor;
    }
}

} // namespace

ClipperLib::Path gridPath(const Outline& outline) {
    ClipperLib::Path path;
    for (const HT_Double_Point& point : outline) {
        path.push_back({std::llrint(point.x * gridScale), std::llrint(point.y * gridScale)});
    }
    return path;
}

double areaOf(const ClipperLib::Paths& paths) {
    double area = 0.0;
    for (const ClipperLib::Path& path : paths) {
        area += ClipperLib::Area(path); // negative for holes
    }
    return area / gridScale / gridScale;
}

void clipByGpc(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second) {
    OneContour subject(first);
    OneContour clip(second);
    double area = 0.0;
    for (auto _ : state) {
        gpc_polygon a = subject.polygon();
        gpc_polygon b = clip.polygon();
        gpc_polygon result{};
        gpc_polygon_clip(op, &a, &b, &result);
        benchmark::DoNotOptimize(result.num_contours);
        state.PauseTiming();
        area = areaOf(result);
        state.ResumeTiming();
        gpc_free_polygon(&result);
    }
    state.counters["result"] = area;
}

void clipByEngine(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second) {
    const ClipperLib::Paths subject{gridPath(first)};
    const ClipperLib::Paths clip{gridPath(second)};
    double area = 0.0;
    for (auto _ : state) {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(subject, ClipperLib::ptSubject, true);
        clipper.AddPaths(clip, ClipperLib::ptClip, true);
        ClipperLib::Paths result;
        clipper.Execute(clipTypeOf(op), result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
        benchmark::DoNotOptimize(result.size());
        state.PauseTiming();
        area = areaOf(result);
        state.ResumeTiming();
    }
    state.counters["result"] = area;
}
