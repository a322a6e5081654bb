// SPDX-License-Identifier: BSD-3-Clause
#include "Combine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <clipper.hpp>

#include "SweepAxis.h"

namespace tarsel {

namespace {

std::optional<ClipperLib::ClipType> clipTypeOf(gpc_op op) {
    switch (op) {
    case GPC_DIFF:
        return ClipperLib::ctDifference;
    case GPC_INT:
        return ClipperLib::ctIntersection;
    case GPC_XOR:
        return ClipperLib::ctXor;
    case GPC_UNION:
        return ClipperLib::ctUnion;
    }
    return std::nullopt;
}

bool isUsable(const gpc_vertex_list& contour) {
    return contour.num_vertices >= 3 && contour.vertex &&
           std::all_of(contour.vertex, contour.vertex + contour.num_vertices,
                       [](const gpc_vertex& vertex) { return std::isfinite(vertex.x) && std::isfinite(vertex.y); });
}

Outlines outlinesOf(const gpc_polygon* polygon) {
    Outlines outlines;
    if (!polygon || !polygon->contour) {
        return outlines;
    }
    for (int i = 0; i < polygon->num_contours; ++i) {
        if (isUsable(polygon->contour[i])) {
            outlines.push_back(&polygon->contour[i]);
        }
    }
    return outlines;
}

Box boxOf(const Outlines& subject, const Outlines& clip) {
    Box box;
    for (const Outlines* outlines : {&subject, &clip}) {
        for (const gpc_vertex_list* outline : *outlines) {
            std::for_each(outline->vertex, outline->vertex + outline->num_vertices,
                          [&](const gpc_vertex& vertex) { box.add(vertex); });
        }
    }
    return box;
}

size_t countVertices(const Outlines& outlines) {
    size_t count = 0;
    for (const gpc_vertex_list* outline : outlines) {
        count += static_cast<size_t>(outline->num_vertices);
    }
    return count;
}

std::vector<Contour> combine(ClipperLib::ClipType type, const ClipperLib::Paths& subject,
                             const ClipperLib::Paths& clip) {
    ClipperLib::Clipper clipper;
    clipper.AddPaths(subject, ClipperLib::ptSubject, true);
    clipper.AddPaths(clip, ClipperLib::ptClip, true);
    ClipperLib::Paths paths;
    clipper.Execute(type, paths, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
    return toContours(std::move(paths));
}

} // namespace

std::optional<Combination> combine(gpc_op op, const gpc_polygon* subject, const gpc_polygon* clip) {
    const auto clipType = clipTypeOf(op);
    const Outlines subjects = outlinesOf(subject);
    const Outlines clips = outlinesOf(clip);
    const size_t vertices = countVertices(subjects) + countVertices(clips);
    if (!clipType || vertices == 0) {
        return std::nullopt;
    }
    Conversion conversion(boxOf(subjects, clips), vertices);
    ClipperLib::Paths subjectPaths = conversion.toGrid(subjects);
    ClipperLib::Paths clipPaths = conversion.toGrid(clips);
    const bool exchanged = isQuickerAlongX(subjectPaths, clipPaths);
    if (exchanged) {
        exchangeAxes(subjectPaths);
        exchangeAxes(clipPaths);
    }
    std::vector<Contour> contours = combine(*clipType, subjectPaths, clipPaths);
    if (exchanged) {
        exchangeAxes(contours);
    }
    return Combination{std::move(conversion), std::move(contours)};
}

} // namespace tarsel
